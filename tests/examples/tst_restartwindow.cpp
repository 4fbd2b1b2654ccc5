// SPDX-License-Identifier: MIT
#include "examples/restart/restartwindow.h"

#include "app/instances.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/qtsingleapplication.h>
#include <vemo/vemobutton.h>
#include <vemo/vemolabel.h>

namespace {

const char kSuccessorVariable[] = "VEMO_TEST_SUCCESSOR";

/// The process that a restart starts: writes down which role it finds.
int runSuccessor(QtSingleApplication &app, const QString &path)
{
    const QByteArray role = app.isRunning() ? "secondary" : "primary";
    QFile file(path + QLatin1String(".new"));
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(role) == role.size();
    file.close();
    return isWritten && file.rename(path) ? 0 : 1;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool hasLabel(const QWidget &window, const QString &text)
{
    const QList<VemoLabel *> labels = window.findChildren<VemoLabel *>();
    return std::any_of(
        labels.begin(), labels.end(), [&](VemoLabel *label) { return label->text() == text; });
}

} // namespace

class RestartWindowTest : public VemoTest
{
    Q_OBJECT

public:
    RestartWindowTest(QtSingleApplication *app, const OwnTemporaryFolder &folder)
        : m_app(app), m_folder(folder)
    {
    }

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void showsWhatAnotherStartHandsOver_data();
    void showsWhatAnotherStartHandsOver();
    void leavesTheRoleToTheProcessThatItStarts();

private:
    QtSingleApplication *const m_app;
    const OwnTemporaryFolder &m_folder;
};

void RestartWindowTest::showsWhatAnotherStartHandsOver_data()
{
    QTest::addColumn<QByteArray>("arguments");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << QByteArray() << "I was started again.";
    QTest::newRow("arguments") << QByteArray("a b") << "I was started again, with: a b";
}

void RestartWindowTest::showsWhatAnotherStartHandsOver()
{
    QFETCH(const QByteArray, arguments);
    QFETCH(const QString, text);
    const RestartWindow window(m_app);
    QVERIFY(!m_app->isRunning());
    const RawPeer other(m_folder.socketPath());
    other.send(frame(arguments));
    QTRY_VERIFY(hasLabel(window, text));
}

void RestartWindowTest::leavesTheRoleToTheProcessThatItStarts()
{
    RestartWindow window(m_app);
    window.show();
    QVERIFY(!m_app->isRunning());
    const QString path = m_folder.path() + QLatin1String("/role");
    qputenv(kSuccessorVariable, QFile::encodeName(path));
    auto *button = window.findChild<VemoButton *>();
    QTimer::singleShot(0, button, SLOT(click()));
    QCOMPARE(QtSingleApplication::exec(), 0); // The click ends it.
    QTRY_COMPARE(contentOf(path), QByteArray("primary"));
    qunsetenv(kSuccessorVariable);
}

int main(int argc, char **argv)
{
    setTestEnvironment();
    const QString successor = qEnvironmentVariable(kSuccessorVariable);
    if (!successor.isEmpty()) {
        QtSingleApplication app(argc, argv, false);
        return runSuccessor(app, successor);
    }
    const OwnTemporaryFolder folder;
    QtSingleApplication app(argc, argv);
    RestartWindowTest test(&app, folder);
    return QTest::qExec(&test, argc, argv);
}
#include "tst_restartwindow.moc"
