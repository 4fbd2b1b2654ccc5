// SPDX-License-Identifier: MIT
#include "app/localpeer_p.h"

#include "instances.h"
#include "support/vemotest.h"

#include <csignal>
#include <cstdio>
#include <functional>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using Preparation = std::function<void(const QByteArray &path)>;

struct stat statusOf(const QString &path)
{
    struct stat status = {};
    lstat(QFile::encodeName(path).constData(), &status);
    return status;
}

/// Creates a socket file without a listener, as a killed process leaves it.
void leaveSocket(const QByteArray &path)
{
    struct sockaddr_un name = {};
    name.sun_family = AF_UNIX;
    qstrncpy(name.sun_path, path.constData(), sizeof(name.sun_path));
    const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    QCOMPARE(bind(descriptor, reinterpret_cast<const sockaddr *>(&name), sizeof(name)), 0);
    close(descriptor);
}

void writeFile(const QByteArray &path)
{
    QVERIFY(close(open(path.constData(), O_CREAT | O_WRONLY, 0600)) == 0);
}

void giveToAnother(const QByteArray &path)
{
    QCOMPARE(chown(path.constData(), 12345, gid_t(-1)), 0);
}

QString inQuotes(const QString &text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace

Q_DECLARE_METATYPE(Preparation)

class PeerFilesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void areOpenToTheUserAlone_data();
    void areOpenToTheUserAlone();
    void areTakenOverFromAKilledPrimary();
    void replaceWhatIsOfNoUse_data();
    void replaceWhatIsOfNoUse();
    void replaceAnOrdinaryFileWhileTheyAreInUse();
    void refusesALockThatIsNotItsOwn_data();
    void refusesALockThatIsNotItsOwn();
    void refusesASocketThatIsNotItsOwn_data();
    void refusesASocketThatIsNotItsOwn();
    void refusesASocketPathThatIsTooLong();
    void runsWithoutATemporaryFolder();
    void becomesPrimaryOnceTheObstacleIsGone();
    void areRestoredByALivingPrimary_data();
    void areRestoredByALivingPrimary();
    void leaveOnePrimaryWhenTheFolderIsCleaned();
    void areNotRestoredAfterUnlock();
    void belongToTheSuccessorWhenThePredecessorEnds_data();
    void belongToTheSuccessorWhenThePredecessorEnds();
    void belongToTheSuccessorWhenThePredecessorLosesThem();
};

void PeerFilesTest::areOpenToTheUserAlone_data()
{
    QTest::addColumn<int>("mask");
    addRow("usual mask", 0022);
    addRow("no mask", 0000);
    addRow("everything masked", 0777);
}

void PeerFilesTest::areOpenToTheUserAlone()
{
    QFETCH(const int, mask);
    const OwnTemporaryFolder folder;
    LocalPeer primary {QString()};
    const mode_t outer = umask(mode_t(mask));
    const bool isClient = primary.isClient();
    umask(outer);
    QVERIFY(!isClient);
    QCOMPARE(int(statusOf(folder.socketPath()).st_mode), S_IFSOCK | 0600);
    QCOMPARE(int(statusOf(folder.lockPath()).st_mode), S_IFREG | 0600);
}

void PeerFilesTest::areTakenOverFromAKilledPrimary()
{
    const OwnTemporaryFolder folder;
    LocalPeer peer {QString()};
    for (int i = 0; i < 5; ++i) {
        ChildInstance child(i == 0 ? ChildInstance::Application : ChildInstance::Peer);
        QVERIFY(child.isPrimary());
        QVERIFY(peer.isClient());
        QVERIFY(peer.sendMessage(QStringLiteral("alive"), 5000));
        child.kill();
        QVERIFY(QFileInfo::exists(folder.socketPath()));
    }
    QVERIFY(!peer.isClient());
    ChildInstance sender;
    sender.tell("send hello");
    QTRY_VERIFY(sender.hasAnswer());
    QCOMPARE(sender.answer(), QByteArray("sent"));
}

void PeerFilesTest::replaceWhatIsOfNoUse_data()
{
    QTest::addColumn<Preparation>("prepare");
    addRow("a socket that nobody listens at", Preparation(leaveSocket));
    addRow("an ordinary file", Preparation(writeFile));
}

void PeerFilesTest::replaceWhatIsOfNoUse()
{
    QFETCH(const Preparation, prepare);
    const OwnTemporaryFolder folder;
    prepare(QFile::encodeName(folder.socketPath()));
    LocalPeer primary {QString()};
    QVERIFY(!primary.isClient());
    const QSignalSpy received(&primary, SIGNAL(messageReceived(QString)));
    ChildInstance sender;
    sender.tell("send hello");
    QTRY_COMPARE(received.size(), 1);
    QCOMPARE(sender.answer(), QByteArray("sent"));
}

void PeerFilesTest::replaceAnOrdinaryFileWhileTheyAreInUse()
{
    const OwnTemporaryFolder folder;
    LocalPeer primary {QString()};
    QVERIFY(!primary.isClient());
    const QSignalSpy received(&primary, SIGNAL(messageReceived(QString)));
    const QByteArray path = QFile::encodeName(folder.socketPath());
    writeFile(path + 'f');
    QCOMPARE(std::rename((path + 'f').constData(), path.constData()), 0);
    // Waits until the primary has restored its socket, as it does for a missing file.
    ChildInstance sender;
    sender.tell("send hello");
    QTRY_COMPARE(received.size(), 1);
    QCOMPARE(sender.answer(), QByteArray("sent"));
}

void PeerFilesTest::refusesALockThatIsNotItsOwn_data()
{
    QTest::addColumn<Preparation>("prepare");
    QTest::addColumn<QString>("why");
    addRow("symbolic link",
        Preparation([](const QByteArray &path) { symlink("/dev/null", path.constData()); }),
        "it is a symbolic link");
    addRow("folder", Preparation([](const QByteArray &path) { mkdir(path.constData(), 0700); }),
        "it is not a file");
    if (geteuid() != 0)
        return; // Only root can give a file away.
    addRow("another user's", Preparation([](const QByteArray &path) {
        writeFile(path);
        giveToAnother(path);
    }),
        "it belongs to another user");
}

void PeerFilesTest::refusesALockThatIsNotItsOwn()
{
    QFETCH(const Preparation, prepare);
    QFETCH(const QString, why);
    const OwnTemporaryFolder folder;
    prepare(QFile::encodeName(folder.lockPath()));
    LocalPeer peer {QString()};
    QVERIFY(!peer.isClient());
    QCOMPARE(messages.take(),
        QStringList(QStringLiteral("Cannot use the instance lock %1 - %2")
                        .arg(inQuotes(folder.lockPath()), inQuotes(why))));
    QVERIFY(!peer.isClient());
    QVERIFY(!peer.sendMessage(QStringLiteral("to nobody"), 5000));
    QVERIFY(!QFileInfo::exists(folder.socketPath()));
}

void PeerFilesTest::refusesASocketThatIsNotItsOwn_data()
{
    QTest::addColumn<Preparation>("prepare");
    QTest::addColumn<QString>("why");
    addRow("symbolic link to a socket", Preparation([](const QByteArray &path) {
        leaveSocket(path + 't');
        symlink((path + 't').constData(), path.constData());
    }),
        "it is a symbolic link");
    addRow("symbolic link to nothing",
        Preparation([](const QByteArray &path) { symlink("/nowhere/at/all", path.constData()); }),
        "it is a symbolic link");
    addRow("folder", Preparation([](const QByteArray &path) { mkdir(path.constData(), 0700); }),
        "it is not a socket");
    addRow("pipe", Preparation([](const QByteArray &path) { mkfifo(path.constData(), 0600); }),
        "it is not a socket");
    addRow("file with a second name", Preparation([](const QByteArray &path) {
        writeFile(path);
        QCOMPARE(link(path.constData(), (path + 't').constData()), 0);
    }),
        "it has a second name");
    if (geteuid() != 0)
        return; // Only root can give a file away.
    addRow("another user's", Preparation([](const QByteArray &path) {
        leaveSocket(path);
        giveToAnother(path);
    }),
        "it belongs to another user");
    addRow("another user's file", Preparation([](const QByteArray &path) {
        writeFile(path);
        giveToAnother(path);
    }),
        "it belongs to another user");
}

void PeerFilesTest::refusesASocketThatIsNotItsOwn()
{
    QFETCH(const Preparation, prepare);
    QFETCH(const QString, why);
    const OwnTemporaryFolder folder;
    prepare(QFile::encodeName(folder.socketPath()));
    const ino_t before = statusOf(folder.socketPath()).st_ino;
    const QString end =
        QStringLiteral(" %1 - %2").arg(inQuotes(folder.socketPath()), inQuotes(why));
    {
        LocalPeer primary {QString()};
        LocalPeer sender {QString()};
        QVERIFY(!primary.isClient());
        QVERIFY(!primary.isClient());
        QCOMPARE(messages.take(),
            QStringList(QLatin1String("Cannot receive messages of other instances at") + end));
        QVERIFY(sender.isClient());
        QVERIFY(!sender.sendMessage(QStringLiteral("secret"), 5000));
        QVERIFY(!sender.sendMessage(QStringLiteral("secret"), 5000));
        QCOMPARE(messages.take(), QStringList(QLatin1String("Cannot send messages to") + end));
    }
    QCOMPARE(statusOf(folder.socketPath()).st_ino, before);
}

void PeerFilesTest::refusesASocketPathThatIsTooLong()
{
    const OwnTemporaryFolder folder;
    const QString deep = folder.path() + QLatin1Char('/') + QString(90, QLatin1Char('d'));
    QVERIFY(QDir().mkdir(deep));
    qputenv("TMPDIR", QFile::encodeName(deep));
    LocalPeer primary {QString()};
    QVERIFY(!primary.isClient());
    const QString path = deep + QLatin1Char('/') + primary.socketName();
    QCOMPARE(messages.take(),
        QStringList(QStringLiteral("Cannot receive messages of other instances at %1 - %2")
                        .arg(inQuotes(path), inQuotes(qt_error_string(ENAMETOOLONG)))));
    QCOMPARE(QDir(deep).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System),
        QStringList(primary.socketName() + QLatin1String("-lockfile")));
}

void PeerFilesTest::runsWithoutATemporaryFolder()
{
    const OwnTemporaryFolder folder;
    const QString lockPath = folder.lockPath();
    LocalPeer peer {QString()};
    QVERIFY(QDir().rmdir(folder.path()));
    QVERIFY(!peer.isClient());
    QCOMPARE(messages.take(),
        QStringList(QStringLiteral("Cannot use the instance lock %1 - %2")
                        .arg(inQuotes(lockPath), inQuotes(qt_error_string(ENOENT)))));
    QVERIFY(!peer.sendMessage(QString(), 5000));
}

void PeerFilesTest::becomesPrimaryOnceTheObstacleIsGone()
{
    const OwnTemporaryFolder folder;
    QVERIFY(QDir().mkdir(folder.lockPath()));
    QVERIFY(QDir().mkdir(folder.socketPath()));
    LocalPeer peer {QString()};
    QVERIFY(!peer.isClient());
    QVERIFY(QDir().rmdir(folder.lockPath()));
    QVERIFY(!peer.isClient());
    QCOMPARE(messages.take().size(), 2);
    QVERIFY(QDir().rmdir(folder.socketPath()));
    QVERIFY(!peer.isClient());
    QVERIFY(RawPeer(folder.socketPath()).isConnected());
}

void PeerFilesTest::areRestoredByALivingPrimary_data()
{
    QTest::addColumn<bool>("socket");
    QTest::addColumn<bool>("lock");
    addRow("socket", true, false);
    addRow("lock", false, true);
    addRow("both", true, true);
}

void PeerFilesTest::areRestoredByALivingPrimary()
{
    QFETCH(const bool, socket);
    QFETCH(const bool, lock);
    const OwnTemporaryFolder folder;
    LocalPeer primary {QString()};
    QVERIFY(!primary.isClient());
    const QSignalSpy received(&primary, SIGNAL(messageReceived(QString)));
    const RawPeer early(folder.socketPath());
    early.send(frame("early").chopped(1));
    // Twice, because restored files must be watched as well.
    for (int i = 0; i < 2; ++i) {
        if (socket)
            QVERIFY(QFile::remove(folder.socketPath()));
        if (lock)
            QVERIFY(QFile::remove(folder.lockPath()));
        QTRY_VERIFY(QFileInfo::exists(folder.socketPath()));
        QTRY_VERIFY(QFileInfo::exists(folder.lockPath()));
    }
    ChildInstance next;
    next.tell("send hello");
    QTRY_COMPARE(received.size(), 1);
    QCOMPARE(next.answer(), QByteArray("sent"));
    early.send("y");
    QTRY_COMPARE(received.size(), 2);
}

void PeerFilesTest::leaveOnePrimaryWhenTheFolderIsCleaned()
{
    const OwnTemporaryFolder folder;
    LocalPeer first {QString()};
    LocalPeer second {QString()};
    QVERIFY(!first.isClient());
    QVERIFY(QFile::remove(folder.socketPath()));
    QVERIFY(QFile::remove(folder.lockPath()));
    QVERIFY(!second.isClient()); // Faster than the first one's event loop.
    QCoreApplication::processEvents();
    QVERIFY(first.isClient());
    QVERIFY(!second.isClient());
    const QSignalSpy received(&second, SIGNAL(messageReceived(QString)));
    const RawPeer sender(folder.socketPath());
    sender.send(frame("hello"));
    QTRY_COMPARE(received.size(), 1);
}

void PeerFilesTest::areNotRestoredAfterUnlock()
{
    const OwnTemporaryFolder folder;
    LocalPeer first {QString()};
    LocalPeer second {QString()};
    QVERIFY(!first.isClient());
    // Already queued, as if the files had just been removed.
    QVERIFY(QMetaObject::invokeMethod(&first, "restoreFiles", Qt::QueuedConnection));
    first.unlock();
    QCoreApplication::processEvents();
    QVERIFY(!QFileInfo::exists(folder.socketPath()));
    QVERIFY(!second.isClient());
}

void PeerFilesTest::belongToTheSuccessorWhenThePredecessorEnds_data()
{
    QTest::addColumn<bool>("isUnlocking");
    addRow("after unlock", true);
    addRow("after its files were removed", false);
}

void PeerFilesTest::belongToTheSuccessorWhenThePredecessorEnds()
{
    QFETCH(const bool, isUnlocking);
    const OwnTemporaryFolder folder;
    ChildInstance first(ChildInstance::Application);
    QVERIFY(first.isPrimary());
    LocalPeer second {QString()};
    if (isUnlocking) {
        QCOMPARE(first.ask("unlock"), QByteArray("done"));
        QVERIFY(!QFileInfo::exists(folder.socketPath()));
    } else {
        first.signal(SIGSTOP); // Otherwise it would restore the file.
        QVERIFY(QFile::remove(folder.lockPath()));
    }
    QVERIFY(!second.isClient());
    const ino_t socket = statusOf(folder.socketPath()).st_ino;
    const ino_t lock = statusOf(folder.lockPath()).st_ino;
    first.signal(SIGCONT);
    first.quit();
    QCOMPARE(statusOf(folder.socketPath()).st_ino, socket);
    QCOMPARE(statusOf(folder.lockPath()).st_ino, lock);
    QVERIFY(RawPeer(folder.socketPath()).isConnected());
    QVERIFY(!second.isClient());
    QVERIFY(ChildInstance().ask("role") == "secondary");
}

void PeerFilesTest::belongToTheSuccessorWhenThePredecessorLosesThem()
{
    const OwnTemporaryFolder folder;
    LocalPeer first {QString()};
    LocalPeer second {QString()};
    QVERIFY(!first.isClient());
    QVERIFY(QFile::remove(folder.lockPath()));
    QVERIFY(!second.isClient());
    first.unlock();
    QVERIFY(RawPeer(folder.socketPath()).isConnected());
    QVERIFY(!second.isClient());
    QVERIFY(first.isClient());
}

int main(int argc, char **argv)
{
    const int result = runAsChild(argc, argv);
    if (result >= 0)
        return result;
    QCoreApplication app(argc, argv);
    PeerFilesTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_peerfiles.moc"
