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

    bool event(QEvent *event) override;

private:
    const QWidget *m_cover;
    bool m_is_set_up = false;
};

/// A part of the path. If its start is cut off, it shows the rest after three dots.
class PathName : public PathButton
{
public:
    PathName(QWidget *viewport, const QWidget *cover, const QString &style);

    /// Escapes ampersands, which would otherwise create mnemonics.
    static QString captionOf(QString part);

    QString part() const;
    /// Sets the text and the size that it needs in the style's font.
    void setPart(const QString &part);

    /// Whether a name that is cut off has a tool tip with all of it.
    void setToolTipEnabled(bool enabled) { m_has_tool_tip = enabled; }

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_has_tool_tip = false;
};

/// The arrow between two parts. It points in the direction of the row. Without a menu it is narrow
/// and does nothing when clicked.
class PathArrow : public PathButton
{
public:
    PathArrow(
        QWidget *viewport, const QWidget *cover, const QString &style, const QPixmap &picture);
    /// Creates an arrow for a menu of what is in folder, which is read out as its name.
    PathArrow(QWidget *viewport, const QWidget *cover, const QString &style, const QPixmap &picture,
        const QString &folder);

    bool hasMenu() const { return m_has_menu; }

    void setPicture(const QPixmap &picture);

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void setUp(const QString &name, const QPixmap &picture);
    void showPicture();

    QPixmap m_picture;
    bool m_has_menu = false;
};
