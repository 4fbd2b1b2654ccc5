// SPDX-License-Identifier: MIT
#include <vemo/vemomenu.h>

#include <QGuiApplication>
#include <QScreen>

namespace {

/// Adjusts position, a menu's coordinate along one axis; first and last are the inclusive edges of
/// the available area.
int pushedInside(int position, int length, int first, int last)
{
    // Deliberate: to 0, not to the area's edge, and both conditions use the original position.
    const int pushed = position < first ? 0 : position;
    return position + length > last ? pushed - (position + length) + last : pushed;
}

} // namespace

VemoMenu::VemoMenu(QWidget *parent) : QMenu(parent) { }

VemoMenu::VemoMenu(const QString &title, QWidget *parent) : QMenu(title, parent) { }

void VemoMenu::showEvent(QShowEvent *event)
{
    QMenu::showEvent(event);
    // Deliberate: the area of the primary screen, even for a menu on another screen.
    const QScreen *screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    const QRect area = screen->availableGeometry();
    const QPoint inside(pushedInside(x(), width(), area.left(), area.right()),
        pushedInside(y(), height(), area.top(), area.bottom()));
    if (inside != pos())
        move(inside);
}
