// SPDX-License-Identifier: MIT
#include "instances.h"

#include "app/localpeer_p.h"
#include "instancesystem.h"
#include "support/temporaryfolder.h"

#include <vemo/qtsingleapplication.h>

#include <QCryptographicHash>
#include <QThread>
#include <QtEndian>

#include <cstdio>
#include <functional>

namespace {

constexpr int kAnswerTimeout = 50000;
const char kScenarioVariable[] = "VEMO_TEST_INSTANCE";

/// The operations of both kinds of children.
struct Instance
{
    std::function<bool()> isRunning;
    std::function<bool(const QString &, int)> sendMessage;
    std::function<void()> unlock;
    std::function<QString()> id;
    QStringList received;
};

void answer(const QByteArray &text)
{
    std::puts(text.constData());
    std::fflush(stdout);
}

/// A short digest of a message of any length.
QByteArray digestOf(const QString &message)
{
    const QByteArray bytes = message.toUtf8();
    return QByteArray::number(bytes.size()) + ' '
        + QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex();
}

/// "sendmany 3" sends "0", "1" and "2" and answers with the number of messages received.
QByteArray sendMany(const Instance &instance, int count)
{
    int sent = 0;
    for (int i = 0; i < count; ++i)
        sent += instance.sendMessage(QString::number(i), 5000) ? 1 : 0;
    return QByteArray::number(sent);
}

QByteArray obey(Instance &instance, const QByteArray &command)
{
    const QByteArray verb = command.split(' ').first();
    const QByteArray rest = command.mid(verb.size() + 1);
    if (verb == "role")
        return instance.isRunning() ? "secondary" : "primary";
    if (verb == "send")
        return instance.sendMessage(QString::fromUtf8(rest), 5000) ? "sent" : "failed";
    if (verb == "sendwithin") // milliseconds
        return instance.sendMessage(QStringLiteral("late"), rest.toInt()) ? "sent" : "failed";
    if (verb == "sendlong") { // bytes
        const QString message(rest.toInt(), QLatin1Char('x'));
        return instance.sendMessage(message, 30000) ? "sent" : "failed";
    }
    if (verb == "sendmany")
        return sendMany(instance, rest.toInt());
    if (verb == "received")
        return QByteArray::number(instance.received.size());
    if (verb == "last")
        return instance.received.isEmpty() ? "none" : digestOf(instance.received.last());
    if (verb == "id")
        return instance.id().toUtf8();
    if (verb == "platform") // the current platform and the one in the environment
        return QGuiApplication::platformName().toUtf8() + ' ' + qgetenv("QT_QPA_PLATFORM");
    if (verb == "wait") // milliseconds
        QThread::msleep(rest.toUInt());
    if (verb == "unlock")
        instance.unlock();
    return "done";
}

/// Executes commands line by line until the input ends.
int obeyAll(Instance &instance)
{
    QByteArray input;
    const auto commands = watchInput([&](const QByteArray &bytes) {
        if (bytes.isEmpty())
            return QCoreApplication::quit();
        input += bytes;
        for (int end = input.indexOf('\n'); end >= 0; end = input.indexOf('\n')) {
            const QByteArray command = input.left(end);
            input.remove(0, end + 1);
            answer(obey(instance, command));
        }
    });
    return QCoreApplication::exec();
}

int runPeer(int &argc, char **argv)
{
    QCoreApplication app(argc, argv);
    LocalPeer peer {QString()};
    Instance instance {[&] { return peer.isClient(); },
        [&](const QString &message, int timeout) { return peer.sendMessage(message, timeout); },
        [&] { peer.unlock(); }, [&] { return peer.id(); }, {}};
    QObject::connect(&peer, &LocalPeer::messageReceived, &app,
        [&](const QString &message) { instance.received += message; });
    return obeyAll(instance);
}

int runWholeApplication(QtSingleApplication &app)
{
    Instance instance {[&] { return app.isRunning(); },
        [&](const QString &message, int timeout) { return app.sendMessage(message, timeout); },
        [&] { app.unlock(); }, [&] { return app.id(); }, {}};
    QObject::connect(&app, &QtSingleApplication::messageReceived, &app,
        [&](const QString &message) { instance.received += message; });
    return obeyAll(instance);
}

int runApplication(int &argc, char **argv)
{
    const QString id = qEnvironmentVariable("VEMO_TEST_ID");
    if (!id.isNull()) {
        QtSingleApplication app(id, argc, argv);
        return runWholeApplication(app);
    }
    QtSingleApplication app(argc, argv, false);
    return runWholeApplication(app);
}

} // namespace

QString defaultSocketName()
{
    const LocalPeer peer {QString()};
    return peer.socketName();
}

OwnTemporaryFolder::OwnTemporaryFolder() : m_outer(qgetenv(kTemporaryFolderVariable))
{
    qputenv(kTemporaryFolderVariable, QFile::encodeName(m_folder.path()));
}

OwnTemporaryFolder::~OwnTemporaryFolder()
{
    if (m_outer.isEmpty())
        qunsetenv(kTemporaryFolderVariable);
    else
        qputenv(kTemporaryFolderVariable, m_outer);
}

QString OwnTemporaryFolder::lockPath() const
{
    return path() + QLatin1Char('/') + defaultSocketName() + QLatin1String("-lockfile");
}

ChildInstance::ChildInstance(Kind kind, const QStringList &environment)
{
    QProcessEnvironment changed = QProcessEnvironment::systemEnvironment();
    changed.insert(QLatin1String(kScenarioVariable),
        kind == Peer ? QStringLiteral("peer") : QStringLiteral("application"));
    for (const QString &change : environment) {
        const QString name = change.section(QLatin1Char('='), 0, 0);
        changed.remove(name);
        if (name != change)
            changed.insert(name, change.mid(name.size() + 1));
    }
    m_process.setProcessEnvironment(changed);
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QCoreApplication::applicationFilePath(), QStringList());
}

ChildInstance::~ChildInstance()
{
    quit();
}

void ChildInstance::tell(const QByteArray &command)
{
    m_process.write(command + '\n');
    while (m_process.bytesToWrite() > 0 && m_process.waitForBytesWritten(kAnswerTimeout)) { }
}

QByteArray ChildInstance::answer()
{
    while (!hasAnswer()) {
        if (!m_process.waitForReadyRead(kAnswerTimeout))
            return {};
    }
    return m_process.readLine().trimmed();
}

bool ChildInstance::hasAnswer()
{
    return m_process.canReadLine();
}

QByteArray ChildInstance::ask(const QByteArray &command)
{
    tell(command);
    return answer();
}

void ChildInstance::quit()
{
    m_process.closeWriteChannel();
    m_process.waitForFinished(kAnswerTimeout);
}

void ChildInstance::kill()
{
    killWithoutWaiting();
    m_process.waitForFinished(kAnswerTimeout);
}

void ChildInstance::killWithoutWaiting()
{
    m_process.kill();
}

QByteArray header(quint32 size)
{
    QByteArray bytes(sizeof(size), '\0');
    qToBigEndian(size, bytes.data());
    return bytes;
}

QByteArray frame(const QByteArray &utf8)
{
    return header(quint32(utf8.size())) + utf8;
}

int runAsChild(int &argc, char **argv)
{
    const QByteArray scenario = qgetenv(kScenarioVariable);
    if (scenario.isEmpty())
        return -1;
    return scenario == "peer" ? runPeer(argc, argv) : runApplication(argc, argv);
}
