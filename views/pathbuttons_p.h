// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QPushButton>

/// A button in the row of a VemoButtonPath. It is drawn as far as the folder button leaves room.
class PathButton : public QPushButton
{
public:
    /// A flat button in the row's viewport, which may lie under cover.
    PathButton(QWidget *viewport, const QWidget *cover, const QString &style);

protected:
    /// What is neither beyond the start of the row nor covered.
    QRect shownRect() const;

private:
    const QWidget *m_cover;
};

/// A part of the path. Cut at its front, it shows the rest after three dots.
class PathName : public PathButton
{
public:
    PathName(QWidget *viewport, const QWidget *cover, const QString &style);

    QString part() const;
    /// Sets the text, and the size that it needs in the style's font.
    void setPart(const QString &part);

protected:
    void paintEvent(QPaintEvent *event) override;
};

/// What separates two parts; it points to where the row goes on, and does nothing.
class PathArrow : public PathButton
{
public:
    PathArrow(
        QWidget *viewport, const QWidget *cover, const QString &style, const QPixmap &picture);

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void showPicture();

    QPixmap m_picture;
};
