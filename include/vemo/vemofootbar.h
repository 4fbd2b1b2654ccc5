// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QPointer>
#include <QWidget>

#include <vector>

class QHBoxLayout;

/// A bar at the bottom of a window, with one group of widgets on the left and one on the right.
///
/// Push the widgets first, then call init() once, which lays them out and makes them children of
/// the bar; until then ownership does not change. It has no look of its own. Requires: nothing. It
/// belongs to its parent.
///
///     auto *bar = new VemoFootbar(window);
///     bar->pushLeftWidget(new VemoButton(tr("Help"), VemoButton::DEFAULT));
///     bar->pushRightWidget(new VemoButton(tr("Save"), VemoButton::APPLY));
///     bar->init();
///
/// \image html foot-bar-two-groups.png
class VEMO_EXPORT VemoFootbar : public QWidget
{
public:
    /// Creates an empty bar.
    explicit VemoFootbar(QWidget *parent = nullptr);

    /// Appends a widget to the left group. Widgets that are deleted before init() are ignored.
    void pushLeftWidget(QWidget *widget);
    /// The same for the right group, from left to right.
    void pushRightWidget(QWidget *widget);

    /// Lays out the pushed widgets, each vertically centred, with margins of 20, 8, 20 and 8 and a
    /// spacing of 10 design pixels. A second call adds them, and the gap between them, again.
    void init();

    /// Sets the margins in design pixels. Call it after init(), which sets the default margins.
    void setMargins(int left, int top, int right, int bottom);
    /// Sets the spacing between the widgets in design pixels. Call it after init().
    void setSpacing(int spacing);

private:
    using Group = std::vector<QPointer<QWidget>>;

    void addGroup(const Group &group);

    QHBoxLayout *m_layout;
    Group m_left_widgets;
    Group m_right_widgets;
};
