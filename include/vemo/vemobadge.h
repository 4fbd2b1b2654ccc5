// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QLabel>
#include <QPointer>

/// A small label for a count, a short text or just a dot, on its own or at a corner of another
/// widget.
///
/// On its own it is placed by a layout like any label. Attached, its centre is 4 design pixels
/// inside the upper right corner of its target, or the upper left one from right to left; a badge
/// wider than high grows outwards from there. It never leaves the target's parent. It then belongs
/// to the parent of the target, or to the target itself if that is a window or a pane of a
/// splitter. It moves with the target, is hidden, shown and disabled with it, and is deleted with
/// it. It lets mouse events through, and its text is appended to the accessible description of the
/// target, unless the host has set one.
///
/// A badge that has nothing to show hides. Its size is in screen pixels and follows the font: a
/// style section sets the minimum. Requires: style files; without the section of its kind it is a
/// plain label, with a warning.
///
///     auto *badge = new VemoBadge;
///     badge->attachTo(inboxButton);
///     badge->setCount(3);
///
/// \image html labels-badges.png
class VEMO_EXPORT VemoBadge : public QLabel
{
    Q_OBJECT
    Q_PROPERTY(int count READ count WRITE setCount)
    Q_PROPERTY(int maximum READ maximum WRITE setMaximum)
    Q_PROPERTY(bool zeroVisible READ isZeroVisible WRITE setZeroVisible)
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(bool dot READ isDot WRITE setDot)
    Q_PROPERTY(Kind kind READ kind WRITE setKind)

public:
    /// Kinds and their style sections. A dot has the property "dot" for selectors.
    enum Kind : int {
        Accent, ///< "component.badge_accent"
        Danger, ///< "component.badge_danger"
        Neutral, ///< "component.badge_neutral"
    };
    Q_ENUM(Kind)

    /// Creates a hidden badge with the kind Accent, the count 0 and the maximum 99.
    explicit VemoBadge(QWidget *parent = nullptr);
    ~VemoBadge() override;

    /// Puts the badge at the corner of another widget, or of none: it then keeps its parent, and is
    /// hidden until it changes.
    void attachTo(QWidget *target);
    QWidget *target() const; ///< the widget it is attached to; null if there is none

    int count() const; ///< initially 0
    /// Shows a number in the digits of the badge's locale. The badge is hidden while it is 0,
    /// unless isZeroVisible(); less than 0 means 0.
    void setCount(int count);

    int maximum() const; ///< initially 99
    /// Sets the largest number that is shown as it is; a larger one is shown as "99+". At least 1.
    void setMaximum(int maximum);

    bool isZeroVisible() const; ///< whether the count 0 is shown; initially false
    void setZeroVisible(bool visible); ///< shows the count 0, too

    QString text() const; ///< set by setText(); initially empty
    /// Shows a plain text instead of the count, until it is empty.
    void setText(const QString &text);

    bool isDot() const; ///< initially false
    /// Shows a dot instead of the text or the count. Set an accessible name first: without one,
    /// assistive tools announce nothing.
    void setDot(bool dot);

    Kind kind() const; ///< initially Accent
    /// Sets the style sheet of another kind; an unknown one means Accent.
    void setKind(Kind kind);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void changeEvent(QEvent *event) override;

private:
    QString shownText() const;
    bool isEmpty() const;
    void refresh();
    void refreshVisibility();
    void describeTarget() const;
    void leaveTarget();
    void followParent();
    void place();

    QPointer<QWidget> m_target;
    QString m_text;
    int m_count = 0;
    int m_maximum = 99;
    Kind m_kind = Accent;
    bool m_zero_visible = false;
    bool m_dot = false;
    bool m_is_shown = false; ///< by its content; the host may have hidden it
};
