// SPDX-License-Identifier: MIT
#pragma once

#include "support/vemotest.h"

#include <vemo/vemotimecombobox.h>

#include <QLineEdit>
#include <QListView>
#include <QStandardItemModel>

inline QString timeOf(int hour, int minute)
{
    return QString::asprintf("%02d:%02d", hour, minute);
}

inline QStringList halfHours()
{
    QStringList times;
    for (int minute = 0; minute < 24 * 60; minute += 30)
        times += timeOf(minute / 60, minute % 60);
    return times;
}

enum Kind { Plain, Editable };

/// A box of half hours that receives focus events through send().
struct Box : VemoTimeComboBox
{
    explicit Box(Kind kind = Editable, const QStringList &times = halfHours())
        : VemoTimeComboBox(nullptr)
    {
        addItems(times);
        setEditable(kind == Editable);
    }

    QStandardItem *item(int row) const
    {
        return static_cast<QStandardItemModel *>(model())->item(row);
    }
    bool isRowShown(int row) const { return !static_cast<QListView *>(view())->isRowHidden(row); }
    bool isCustomShown() const
    {
        const bool isShown = isRowShown(0);
        if (item(0)->isEnabled() != isShown)
            qWarning("row and flag of the custom item differ");
        return isShown;
    }
    void send(QEvent::Type type)
    {
        QFocusEvent event(type, Qt::OtherFocusReason);
        QCoreApplication::sendEvent(this, &event);
    }
    void leaveWith(const QString &typed)
    {
        lineEdit()->setText(typed);
        send(QEvent::FocusOut);
    }
};

/// A window manager may take the focus away and give it back at any time after a window is shown,
/// which would complete the text that is being typed.
class KeptFocus : public QObject
{
public:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        return event->type() == QEvent::FocusOut
            && static_cast<QFocusEvent *>(event)->reason() == Qt::ActiveWindowFocusReason;
    }
};

/// A box with the focus, next to another field in an active window.
struct Form
{
    explicit Form(Kind kind = Editable, const QStringList &times = halfHours()) : box(kind, times)
    {
        box.setParent(&window);
        other.setParent(&window);
        other.move(0, 60);
        window.resize(300, 120);
        window.show();
        window.activateWindow();
        box.installEventFilter(&keptFocus);
        waitUntilActive();
        box.setFocus();
        box.clearEditText();
    }
    void waitUntilActive()
    {
        // Not by isActiveWindow(), which asks the system: on Windows that is ahead of Qt's events.
        isActive = QApplication::activeWindow() == &window || QTest::qWaitForWindowActive(&window);
    }
    void type(const QString &text)
    {
        for (const QChar character : text)
            QTest::keyClick(window.windowHandle(), character.toLatin1());
    }
    void press(Qt::Key key)
    {
        waitUntilActive();
        QTest::keyClick(window.windowHandle(), key);
    }

    KeptFocus keptFocus;
    QWidget window;
    QLineEdit other;
    Box box;
    bool isActive = false;
};
