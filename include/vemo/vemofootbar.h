// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QPointer>
#include <QWidget>

#include <vector>

class QHBoxLayout;

/// The bar at the foot of a window: one group of widgets at its left, one at its right.
///
/// Push the widgets first and then call init() once, which lays them out and makes them children of
/// the bar; until then they belong to whom they did. It has no look of its own and needs no
/// resources. It belongs to its parent.
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
    /// An empty bar.
    explicit VemoFootbar(QWidget *parent = nullptr);

    /// Adds a widget to the end of the left group. A widget that is deleted before init() is left
    /// out.
    void pushLeftWidget(QWidget *widget);
    /// The same for the right group, from left to right.
    void pushRightWidget(QWidget *widget);

    /// Lays out the pushed widgets, each vertically centred, with margins of 20, 8, 20 and 8 and a
    /// spacing of 10 design pixels. A second call adds them, and the gap between them, again.
    void init();

    /// Around the widgets, in design pixels. Call it after init(), which sets its own values.
    void setMargins(int left, int top, int right, int bottom);
    /// Between the widgets, in design pixels; also after init().
    void setSpacing(int spacing);

private:
    using Group = std::vector<QPointer<QWidget>>;

    void addGroup(const Group &group);

    QHBoxLayout *m_layout;
    Group m_left_widgets;
    Group m_right_widgets;
};
