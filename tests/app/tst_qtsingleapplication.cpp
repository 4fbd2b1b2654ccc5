// SPDX-License-Identifier: MIT
#include <vemo/qtsingleapplication.h>

#include "instances.h"
#include "support/vemotest.h"

namespace {

/// The id of a program that chooses none. Windows does not distinguish the case of a path.
QString pathAsId()
{
    const QString path = QCoreApplication::applicationFilePath();
    return kHasSocketFile ? path : path.toLower();
}

} // namespace

class QtSingleApplicationTest : public VemoTest
{
    Q_OBJECT

public:
    QtSingleApplicationTest(QtSingleApplication *app, const OwnTemporaryFolder &folder)
        : m_app(app), m_folder(folder)
    {
    }

private Q_SLOTS:
    void init();
    void hasTheProgramsPathAsId();
    void hasTheIdThatItWasGiven_data();
    void hasTheIdThatItWasGiven();
    void runsWithoutAScreenWhenNoneIsWanted();
    void isPrimaryUntilItUnlocks();
    void becomesPrimaryByInitialize();
    void handsMessagesToThePrimary_data();
    void handsMessagesToThePrimary();
    void hasNoActivationWindowAtFirst();
    void forgetsAnActivationWindowThatIsDeleted();
    void showsTheWindowBeforeTheMessage_data();
    void showsTheWindowBeforeTheMessage();
    void leavesTheWindowAloneWhenItIsToldSo();
    void survivesWhatAMessageSetsOff_data();
    void survivesWhatAMessageSetsOff();

    // Slots called for messages.
    void noteWindowState(const QString &message);
    void unlock(const QString &message);
    void runEventLoop(const QString &message);
    void deleteWindow(const QString &message);

private:
    QtSingleApplication *const m_app;
    const OwnTemporaryFolder &m_folder;
    QWidget *m_window = nullptr;
    const RawPeer *m_second = nullptr;
    QStringList m_notes;
};

void QtSingleApplicationTest::init()
{
    VemoTest::messages.start();
    m_app->unlock();
    m_app->setActivationWindow(nullptr);
    m_app->disconnect(this);
    m_notes.clear();
}

void QtSingleApplicationTest::hasTheProgramsPathAsId()
{
    QCOMPARE(m_app->id(), pathAsId());
}

void QtSingleApplicationTest::hasTheIdThatItWasGiven_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("expected");
    addRow("chosen", "Vemo/Große 大 1", QString::fromUtf8("Vemo/Große 大 1"));
    addRow("empty", "", pathAsId());
}

void QtSingleApplicationTest::hasTheIdThatItWasGiven()
{
    QFETCH(const QString, id);
    QFETCH(const QString, expected);
    ChildInstance child(ChildInstance::Application, {QStringLiteral("VEMO_TEST_ID=") + id});
    QCOMPARE(QString::fromUtf8(child.ask("id")), expected);
    QVERIFY(!m_app->isRunning());
    QCOMPARE(child.isPrimary(), !id.isEmpty());
}

void QtSingleApplicationTest::runsWithoutAScreenWhenNoneIsWanted()
{
    ChildInstance named(ChildInstance::Application,
        {QStringLiteral("QT_QPA_PLATFORM=xcb"), QStringLiteral("DISPLAY")});
    QCOMPARE(named.ask("platform"), QByteArray("offscreen xcb"));
    ChildInstance unnamed(ChildInstance::Application,
        {QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("DISPLAY"),
            QStringLiteral("WAYLAND_DISPLAY")});
    QCOMPARE(unnamed.ask("platform"), QByteArray("offscreen"));
}

void QtSingleApplicationTest::isPrimaryUntilItUnlocks()
{
    QVERIFY(!m_app->isRunning());
    QVERIFY(!m_app->sendMessage(QStringLiteral("to nobody")));
    ChildInstance child(ChildInstance::Application);
    QVERIFY(!child.isPrimary());
    m_app->unlock();
    m_app->unlock(); // A second call has no effect.
    QVERIFY(child.isPrimary());
    QVERIFY(m_app->isRunning());
    QVERIFY(m_app->sendMessage(QStringLiteral("hello")));
    QCOMPARE(child.ask("received"), QByteArray("1"));
    child.quit();
    QVERIFY(!m_app->isRunning());
}

void QtSingleApplicationTest::becomesPrimaryByInitialize()
{
    m_app->initialize();
    QVERIFY(!ChildInstance().isPrimary());
}

void QtSingleApplicationTest::handsMessagesToThePrimary_data()
{
    QTest::addColumn<QString>("message");
    addRow("plain", "open a.txt");
    addRow("empty", "");
    addRow("Unicode", QString::fromUtf8("Größe 大小 😀"));
}

void QtSingleApplicationTest::handsMessagesToThePrimary()
{
    QFETCH(const QString, message);
    QVERIFY(!m_app->isRunning());
    const QSignalSpy received(m_app, SIGNAL(messageReceived(QString)));
    ChildInstance child(ChildInstance::Application);
    child.tell("send " + message.toUtf8());
    QTRY_COMPARE(received.size(), 1);
    QCOMPARE(received.first().first().toString(), message);
    QCOMPARE(child.answer(), QByteArray("sent"));
}

void QtSingleApplicationTest::hasNoActivationWindowAtFirst()
{
    QVERIFY(!m_app->activationWindow());
    m_app->activateWindow();
}

void QtSingleApplicationTest::forgetsAnActivationWindowThatIsDeleted()
{
    {
        QWidget window;
        m_app->setActivationWindow(&window);
        QCOMPARE(m_app->activationWindow(), &window);
    }
    QVERIFY(!m_app->activationWindow());
    m_app->activateWindow();
    QVERIFY(!m_app->isRunning());
    const QSignalSpy received(m_app, SIGNAL(messageReceived(QString)));
    const RawPeer peer(m_folder.socketPath());
    peer.send(frame("hello"));
    QTRY_COMPARE(received.size(), 1);
}

void QtSingleApplicationTest::noteWindowState(const QString &message)
{
    m_notes += message + (m_window->isMinimized() ? " minimised" : " open")
        + (m_window->isActiveWindow() ? " active" : "");
}

void QtSingleApplicationTest::showsTheWindowBeforeTheMessage_data()
{
    QTest::addColumn<Qt::WindowStates>("before");
    QTest::addColumn<Qt::WindowStates>("after");
    const Qt::WindowStates none = Qt::WindowNoState;
    addRow("open", none, none);
    addRow("minimised", Qt::WindowStates(Qt::WindowMinimized), none);
    // A window manager may report a combination of two states later.
    if (QGuiApplication::platformName() != QLatin1String("offscreen"))
        return;
    addRow("maximised and minimised", (Qt::WindowMaximized | Qt::WindowMinimized),
        Qt::WindowStates(Qt::WindowMaximized));
}

void QtSingleApplicationTest::showsTheWindowBeforeTheMessage()
{
    QFETCH(const Qt::WindowStates, before);
    QFETCH(const Qt::WindowStates, after);
    QWidget window;
    window.resize(200, 100);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.setWindowState(before);
    QWidget other;
    other.show();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QTRY_COMPARE(window.windowState() & ~Qt::WindowActive, before);

    m_window = &window;
    m_app->setActivationWindow(&window);
    QVERIFY(!m_app->isRunning());
    connect(m_app, SIGNAL(messageReceived(QString)), this, SLOT(noteWindowState(QString)));
    const RawPeer peer(m_folder.socketPath());
    peer.send(frame("hello"));
    QTRY_COMPARE(m_notes.size(), 1);
    QVERIFY(m_notes.first().startsWith("hello open"));
    QTRY_VERIFY(window.isActiveWindow());
    QTRY_COMPARE(window.windowState() & ~Qt::WindowActive, after);
}

void QtSingleApplicationTest::leavesTheWindowAloneWhenItIsToldSo()
{
    QWidget window;
    window.showMinimized();
    QTRY_VERIFY(window.isMinimized());
    m_window = &window;
    m_app->setActivationWindow(&window, false);
    QVERIFY(!m_app->isRunning());
    connect(m_app, SIGNAL(messageReceived(QString)), this, SLOT(noteWindowState(QString)));
    const RawPeer peer(m_folder.socketPath());
    peer.send(frame("hello"));
    QTRY_COMPARE(m_notes.size(), 1);
    QVERIFY(m_notes.first().startsWith(QLatin1String("hello minimised")));
    m_app->activateWindow();
    QTRY_VERIFY(!window.isMinimized());
}

void QtSingleApplicationTest::unlock(const QString &message)
{
    m_app->unlock();
    m_notes += message;
}

void QtSingleApplicationTest::runEventLoop(const QString &message)
{
    m_notes += message;
    if (m_notes.size() > 1)
        return;
    m_second->send("o");
    QTRY_COMPARE(m_notes.size(), 2);
}

void QtSingleApplicationTest::deleteWindow(const QString &message)
{
    delete m_app->activationWindow();
    m_notes += message;
}

void QtSingleApplicationTest::survivesWhatAMessageSetsOff_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<QStringList>("notes");
    const QStringList both {QStringLiteral("one"), QStringLiteral("two")};
    addRow("unlock", QByteArray(SLOT(unlock(QString))), QStringList("one"));
    addRow("an event loop", QByteArray(SLOT(runEventLoop(QString))), both);
    addRow("the window's end", QByteArray(SLOT(deleteWindow(QString))), both);
}

void QtSingleApplicationTest::survivesWhatAMessageSetsOff()
{
    QFETCH(const QByteArray, slot);
    QFETCH(const QStringList, notes);
    m_app->setActivationWindow(new QWidget);
    QVERIFY(!m_app->isRunning());
    connect(m_app, SIGNAL(messageReceived(QString)), this, slot.constData());
    const RawPeer first(m_folder.socketPath());
    const RawPeer second(m_folder.socketPath());
    m_second = &second;
    second.send(frame("two").chopped(1));
    first.send(frame("one"));
    QTRY_VERIFY(!m_notes.isEmpty());
    second.send("o");
    QTRY_COMPARE(m_notes, notes);
    QCOMPARE(second.receive(), notes.size() == 2 ? QByteArray("ack") : QByteArray());
    QTRY_VERIFY(second.isClosedByOther());
    delete m_app->activationWindow();
}

int main(int argc, char **argv)
{
    const int result = runAsChild(argc, argv);
    if (result >= 0)
        return result;
    setTestEnvironment();
    const OwnTemporaryFolder folder;
    QtSingleApplication app(argc, argv);
    QtSingleApplicationTest test(&app, folder);
    return QTest::qExec(&test, argc, argv);
}
#include "tst_qtsingleapplication.moc"
