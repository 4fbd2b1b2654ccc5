// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/vemosheet.h>

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTimer>
#include <QtTest>

#include <functional>

/// Calls a function once, as soon as the event loop of a sheet runs, and records that it did.
///
///     SheetDriver driver([&] { QTest::keyClick(&window, Qt::Key_Return); });
///     QCOMPARE(sheet.exec(), int(QDialogButtonBox::Ok));
///     QVERIFY(driver.hasActed());
class SheetDriver : public QObject
{
public:
    explicit SheetDriver(std::function<void()> act) : m_act(std::move(act))
    {
        m_timer.setSingleShot(true);
        QObject::connect(&m_timer, &QTimer::timeout, this, [this] {
            m_hasActed = true;
            m_act();
            if (QTest::currentTestFailed())
                endAll();
        });
        m_timer.start(0);
    }

    bool hasActed() const { return m_hasActed; }

private:
    /// After a failed check the sheet is still open, and the test would wait for it forever.
    static void endAll()
    {
        for (QWidget *window : QApplication::topLevelWidgets()) {
            for (VemoSheet *sheet : window->findChildren<VemoSheet *>())
                QMetaObject::invokeMethod(sheet, "quit");
            if (auto *dialog = qobject_cast<QDialog *>(window))
                dialog->reject();
        }
    }

    std::function<void()> m_act;
    QTimer m_timer;
    bool m_hasActed = false;
};

/// The topmost visible sheet over window; null if there is none.
inline VemoSheet *sheetOver(const QWidget *window)
{
    VemoSheet *top = nullptr;
    for (VemoSheet *sheet : window->findChildren<VemoSheet *>()) {
        if (sheet->isVisible())
            top = sheet;
    }
    return top;
}
