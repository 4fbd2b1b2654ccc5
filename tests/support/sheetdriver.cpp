// SPDX-License-Identifier: MIT
#include "support/sheetdriver.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDialog>
#include <QtTest>

#include <utility>

namespace {

void endAll()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        for (VemoSheet *sheet : window->findChildren<VemoSheet *>())
            QMetaObject::invokeMethod(sheet, "quit");
        if (auto *dialog = qobject_cast<QDialog *>(window))
            dialog->reject();
    }
}

} // namespace

SheetDriver::SheetDriver(const std::function<void()> &act) : m_acts({[act](VemoSheet *) { act(); }})
{
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, this, [this] { call(nullptr); });
    m_timer.start(0);
}

SheetDriver::SheetDriver(QWidget *window, std::vector<Act> acts, const char *name)
    : m_acts(std::move(acts)), m_window(window), m_name(QLatin1String(name))
{
    // Queued, because a timer rests while its slot runs, and an act may open the next sheet.
    QObject::connect(
        &m_timer, &QTimer::timeout, this, [this] { look(); }, Qt::QueuedConnection);
    m_timer.start(1);
}

bool SheetDriver::isDone() const
{
    return hasActed() && !(m_window && sheetOver(m_window));
}

void SheetDriver::look()
{
    VemoSheet *sheet = m_window ? sheetOver(m_window) : nullptr;
    const bool counts = sheet && (m_name.isEmpty() || sheet->objectName() == m_name);
    if (!counts || sheet == m_last)
        return;
    m_last = sheet;
    call(sheet);
}

void SheetDriver::call(VemoSheet *sheet)
{
    if (m_next < m_acts.size())
        m_acts.at(m_next++)(sheet);
    else
        QTest::qFail("Unexpected sheet", __FILE__, __LINE__);
    if (QTest::currentTestFailed())
        endAll();
    // If an act has processed events after it ended the sheet, Qt on Windows would still wait for
    // the next message before exec() returns.
    QCoreApplication::eventDispatcher()->wakeUp();
}

VemoSheet *sheetOver(const QWidget *window)
{
    VemoSheet *top = nullptr;
    for (VemoSheet *sheet : window->findChildren<VemoSheet *>()) {
        if (sheet->isVisible())
            top = sheet;
    }
    return top;
}
