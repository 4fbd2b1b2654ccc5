// SPDX-License-Identifier: MIT
#include "browserstage.h"

#include "examples/filebrowser/ui/look.h"
#include "support/activewindow.h"
#include "support/iswindows.h"

#include <vemo/helpwindow.h>

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QtTest>

namespace {

constexpr int kWatchTime = 500; // milliseconds
constexpr int kWatchTimes = 20;

void startOnce()
{
    static const QTemporaryDir userFolder;
    static const bool isStarted = startLook(userFolder.path(), "enu");
    QVERIFY(isStarted);
    // Nothing answers there, so the local pages are shown immediately.
    HelpWindow::setKnowledgeBaseUrl(QUrl("https://127.0.0.1:1"));
}

/// An X server reports with a delay that a pop-up has the focus. A test is faster and would lose
/// the focus of what follows the pop-up.
bool isSettled(const QWidget *popup)
{
    return QGuiApplication::platformName() != QLatin1String("xcb")
        || QGuiApplication::focusWindow() == popup->windowHandle();
}

} // namespace

BrowserStage::BrowserStage()
{
    if (!kIsWindows) {
        qputenv("HOME", home.path().toUtf8());
        qputenv("XDG_DATA_HOME", trash.path().toUtf8());
    }
    startOnce();
    QObject::connect(&m_watch, &QTimer::timeout, [this] { watchForgottenSheets(); });
    m_watch.start(kWatchTime);
}

/// The test would wait forever for a sheet that it did not expect.
void BrowserStage::watchForgottenSheets()
{
    VemoSheet *sheet = window ? sheetOver(window.get()) : nullptr;
    m_times_seen = sheet && sheet == m_seen ? m_times_seen + 1 : 0;
    m_seen = sheet;
    if (m_times_seen < kWatchTimes)
        return;
    QTest::qFail(qPrintable("Nobody answered: " + wordsOf(sheet)), __FILE__, __LINE__);
    QMetaObject::invokeMethod(sheet, "quit");
}

void BrowserStage::open(const QString &folder)
{
    window = std::make_unique<FileWindow>(folder.isEmpty() ? home.path() : folder);
    QVERIFY(showActive(window.get()));
    waitUntilRead();
}

void BrowserStage::waitUntilRead() const
{
    QTRY_VERIFY(!window->isReading());
    QCoreApplication::processEvents();
}

void BrowserStage::reactivate() const
{
    QVERIFY(showActive(window.get()));
}

QStringList BrowserStage::names() const
{
    QStringList names;
    for (const FileEntry &entry : window->table()->entries())
        names += entry.name;
    return names;
}

int BrowserStage::rowOf(const QString &name) const
{
    return names().indexOf(name);
}

QPoint BrowserStage::placeOf(const QString &name) const
{
    const QTableWidgetItem *item = table()->item(rowOf(name), 0);
    if (!item) {
        QTest::qFail(qPrintable("There is no row " + name), __FILE__, __LINE__);
        return {};
    }
    table()->scrollToItem(item);
    return table()->visualItemRect(item).center();
}

QString BrowserStage::footer() const
{
    QStringList texts;
    for (const QLabel *label : part<QWidget>("pagingBar")->findChildren<QLabel *>()) {
        if (!label->text().isEmpty())
            texts += label->text();
    }
    return texts.join(" | ");
}

void BrowserStage::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(window->windowHandle(), key, modifiers);
}

void BrowserStage::type(const QString &letters) const
{
    for (const QChar letter : letters)
        QTest::sendKeyEvent(
            QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, letter, Qt::NoModifier);
}

void BrowserStage::click(QWidget *widget, const QPoint &place) const
{
    QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, place);
}

void BrowserStage::clickRow(const QString &name, Qt::KeyboardModifiers modifiers) const
{
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, modifiers, placeOf(name));
}

void BrowserStage::doubleClickRow(const QString &name) const
{
    const QPoint place = placeOf(name);
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
}

void BrowserStage::clickAction(QWidget *menu, const char *name) const
{
    for (QAction *one : menu->actions()) {
        if (one->objectName() == QLatin1String(name))
            return click(menu, static_cast<QMenu *>(menu)->actionGeometry(one).center());
    }
    QTest::qFail(name, __FILE__, __LINE__);
}

void BrowserStage::select(const QStringList &names) const
{
    window->table()->select(names);
    table()->setFocus();
}

OnPopup::OnPopup(std::function<void(QWidget *)> act) : m_act(std::move(act))
{
    QObject::connect(&m_timer, &QTimer::timeout, this, [this] {
        QWidget *popup = QApplication::activePopupWidget();
        if (!popup || !isSettled(popup))
            return;
        m_timer.stop();
        m_act(popup);
        m_isDone = true;
        if (QTest::currentTestFailed())
            popup->close();
    });
    m_timer.start(1);
}

SheetLog::SheetLog()
{
    qApp->installEventFilter(this);
}

bool SheetLog::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show && qobject_cast<VemoSheet *>(watched))
        shown += watched->objectName();
    return false;
}

QString wordsOf(const VemoSheet *sheet)
{
    QStringList words;
    for (const QLabel *label : sheet->findChildren<QLabel *>()) {
        QTextDocument document;
        document.setHtml(label->text());
        words += document.toPlainText().remove(QChar(0x200B));
    }
    return words.join('\n');
}
