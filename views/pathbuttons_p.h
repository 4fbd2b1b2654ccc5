// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QPushButton>

/// A button in the row of a VemoButtonPath. Only the part that the folder button does not cover is
/// drawn.
class PathButton : public QPushButton
{
public:
    /// Creates a flat button in the row's viewport; cover is the folder button.
    PathButton(QWidget *viewport, const QWidget *cover, const QString &style);

protected:
    /// The part that is neither beyond the start of the row nor covered.
    QRect shownRect() const;

private:
    const QWidget *m_cover;
};

/// A part of the path. If its start is cut off, it shows the rest after three dots.
class PathName : public PathButton
{
public:
    PathName(QWidget *viewport, const QWidget *cover, const QString &style);

    QString part() const;
    /// Sets the text and the size that it needs in the style's font.
    void setPart(const QString &part);

protected:
    void paintEvent(QPaintEvent *event) override;
};

/// The arrow between two parts. It points in the direction of the row and does nothing when
/// clicked.
class PathArrow : public PathButton
{
public:
    PathArrow(
        QWidget *viewport, const QWidget *cover, const QString &style, const QPixmap &picture);

    void setPicture(const QPixmap &picture);

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void showPicture();

    QPixmap m_picture;
};
