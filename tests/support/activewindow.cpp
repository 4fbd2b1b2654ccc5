// SPDX-License-Identifier: MIT
#include "support/activewindow.h"

#include <QGuiApplication>
#include <QtTest>

namespace {

/// Waits until the window manager has handled all that came before: it handles requests in order,
/// and the last one is to show a window that does not take the focus.
bool waitForWindowManager()
{
    QWidget last(nullptr, Qt::WindowDoesNotAcceptFocus);
    last.setAttribute(Qt::WA_ShowWithoutActivating);
    last.show();
    return QTest::qWaitForWindowExposed(&last);
}

} // namespace

bool showActive(QWidget *window)
{
    window->show();
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window))
        return false;
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        return true;
    // The second time for what it has done in return for the first.
    return waitForWindowManager() && waitForWindowManager() && QTest::qWaitForWindowActive(window);
}
