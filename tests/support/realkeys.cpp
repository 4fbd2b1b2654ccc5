// SPDX-License-Identifier: MIT
#include "support/realkeys.h"

#include <QGuiApplication>
#include <QHash>
#include <QProcess>
#include <QtTest>

namespace {

QString x11Name(Qt::Key key)
{
    static const QHash<Qt::Key, QString> names {{Qt::Key_Backtab, "Tab"}, {Qt::Key_Down, "Down"},
        {Qt::Key_Delete, "Delete"}, {Qt::Key_End, "End"}, {Qt::Key_Enter, "KP_Enter"},
        {Qt::Key_Escape, "Escape"}, {Qt::Key_F4, "F4"}, {Qt::Key_F10, "F10"},
        {Qt::Key_Home, "Home"}, {Qt::Key_Left, "Left"}, {Qt::Key_Menu, "Menu"},
        {Qt::Key_PageDown, "Next"}, {Qt::Key_PageUp, "Prior"}, {Qt::Key_Return, "Return"},
        {Qt::Key_Right, "Right"}, {Qt::Key_Space, "space"}, {Qt::Key_Tab, "Tab"},
        {Qt::Key_Up, "Up"}};
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return QString(QChar(key)).toLower();
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
        return QString(QChar(key));
    return names.value(key);
}

QString x11Keys(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QStringList keys;
    if (modifiers.testFlag(Qt::ControlModifier))
        keys += "ctrl";
    if (modifiers.testFlag(Qt::AltModifier))
        keys += "alt";
    if (modifiers.testFlag(Qt::ShiftModifier) || key == Qt::Key_Backtab)
        keys += "shift";
    keys += x11Name(key);
    return keys.join('+');
}

} // namespace

void pressRealKey(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    if (QGuiApplication::platformName() != "xcb") {
        QVERIFY(QGuiApplication::focusWindow());
        QTest::keyClick(QGuiApplication::focusWindow(), key, modifiers);
        return;
    }
    QVERIFY(!x11Name(key).isEmpty());
    QProcess server;
    server.start("xdotool", {"key", x11Keys(key, modifiers)});
    QVERIFY2(server.waitForFinished(), "needs the program xdotool");
    QCOMPARE(server.exitCode(), 0);
    QCoreApplication::processEvents();
}
