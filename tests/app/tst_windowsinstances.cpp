// SPDX-License-Identifier: MIT
#include "app/instancelock_p.h"
#include "app/localpeer_p.h"

#include "instances.h"
#include "locksteps.h"
#include "support/vemotest.h"

#include <QDir>
#include <QElapsedTimer>
#include <QSignalSpy>

#include <functional>
#include <future>
#include <vector>

#include <aclapi.h>
#include <windows.h>

namespace {

using Preparation = std::function<bool(const QString &path)>;

const wchar_t *wide(const QString &path)
{
    return reinterpret_cast<const wchar_t *>(path.utf16());
}

void writeFile(const QString &path)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write("kept"), 4);
}

std::vector<char> ownUser()
{
    HANDLE token = nullptr;
    DWORD size = 0;
    std::vector<char> user(1024);
    const bool isRead = OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token)
        && GetTokenInformation(token, TokenUser, user.data(), DWORD(user.size()), &size);
    CloseHandle(token);
    return isRead ? user : std::vector<char>();
}

} // namespace

Q_DECLARE_METATYPE(Preparation)

/// The lock file and the named pipe, which Unix has no twin of.
class WindowsInstancesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void lockIsTakenOnceAtATime();
    void lockComesFreeWithItsHolder();
    void lockCoversTheWholeFile();
    void lockedFileCannotBeRemoved();
    void lockIsNotLostWhenTheFileIsOpenedAndClosed();
    void lockLeavesWhatIsInTheFile();
    void lockRefusesWhatIsNotAFileOfOurs_data();
    void lockRefusesWhatIsNotAFileOfOurs();
    void lockSaysWhyTheFileCannotBeMade();
    void pipeIsForItsUserAlone();
    void hearsWhoConnectsWhileItStartsToListen();
    void dropsWhoIsSilentForFiveSeconds();
    void roleIsFreeAfterThePrimaryWasKilled();

private:
    QString path() const
    {
        return QStringLiteral("%1/%2-%3")
            .arg(m_folder.path(), QLatin1String(QTest::currentTestFunction()),
                QString(QTest::currentDataTag()).remove(QLatin1Char(' ')));
    }

    const OwnTemporaryFolder m_folder;
};

void WindowsInstancesTest::lockIsTakenOnceAtATime()
{
    takeLockOnceAtATime(path());
}

void WindowsInstancesTest::lockComesFreeWithItsHolder()
{
    takeLockAfterItsHolderIsGone(path());
}

void WindowsInstancesTest::lockCoversTheWholeFile()
{
    InstanceLock lock(path());
    QCOMPARE(lock.take(), InstanceLock::Taken);
    const HANDLE file = CreateFileW(wide(path()), GENERIC_READ | GENERIC_WRITE,
        FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    QVERIFY(file != INVALID_HANDLE_VALUE);
    for (const DWORD place : {0, 1 << 30}) {
        OVERLAPPED start = {};
        start.Offset = place;
        QVERIFY(!LockFileEx(file, LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &start));
    }
    lock.release();
    OVERLAPPED start = {};
    QVERIFY(LockFileEx(file, LOCKFILE_FAIL_IMMEDIATELY | LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &start));
    QCOMPARE(lock.take(), InstanceLock::HeldElsewhere);
    CloseHandle(file);
}

void WindowsInstancesTest::lockedFileCannotBeRemoved()
{
    InstanceLock lock(path());
    QCOMPARE(lock.take(), InstanceLock::Taken);
    QVERIFY(!QFile::remove(path()));
    QVERIFY(lock.isHeld());
}

void WindowsInstancesTest::lockIsNotLostWhenTheFileIsOpenedAndClosed()
{
    openTheFileOfAHeldLock(path());
}

void WindowsInstancesTest::lockLeavesWhatIsInTheFile()
{
    writeFile(path());
    {
        InstanceLock lock(path());
        QCOMPARE(lock.take(), InstanceLock::Taken);
    }
    QFile file(path());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("kept"));
}

void WindowsInstancesTest::lockRefusesWhatIsNotAFileOfOurs_data()
{
    QTest::addColumn<Preparation>("prepare");
    QTest::addColumn<QString>("refusal");
    const auto row = [](const char *name, const QString &refusal, const Preparation &prepare) {
        QTest::newRow(name) << prepare << refusal;
    };
    // A link that nobody may make is not there either; then the row is skipped.
    row("link to a file", "it is a symbolic link", [](const QString &path) {
        writeFile(path + "-target");
        CreateSymbolicLinkW(wide(path), wide(path + "-target"), 0); // In Wine it does nothing.
        const DWORD attributes = GetFileAttributesW(wide(path));
        return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT);
    });
    row("folder", qt_error_string(ERROR_ACCESS_DENIED),
        [](const QString &path) { return QDir().mkdir(path); });
    row("file with a second name", "it has a second name", [](const QString &path) {
        writeFile(path);
        return bool(CreateHardLinkW(wide(path + "-second"), wide(path), nullptr));
    });
}

void WindowsInstancesTest::lockRefusesWhatIsNotAFileOfOurs()
{
    QFETCH(const Preparation, prepare);
    QFETCH(const QString, refusal);
    if (!prepare(path()))
        QSKIP("This system does not let the user make such an entry");
    InstanceLock lock(path());
    QCOMPARE(lock.take(), InstanceLock::Refused);
    QCOMPARE(lock.refusal(), refusal);
    QVERIFY(!lock.isHeld());
}

void WindowsInstancesTest::lockSaysWhyTheFileCannotBeMade()
{
    InstanceLock lock(m_folder.path() + QLatin1String("/missing/lock"));
    QCOMPARE(lock.take(), InstanceLock::Refused);
    QCOMPARE(lock.refusal(), qt_error_string(ERROR_PATH_NOT_FOUND));
}

void WindowsInstancesTest::pipeIsForItsUserAlone()
{
    const OwnTemporaryFolder folder;
    LocalPeer primary {QString()};
    QVERIFY(!primary.isClient());
    const QString address = folder.socketPath();
    const HANDLE pipe = CreateFileW(
        wide(address), GENERIC_READ | READ_CONTROL, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    QVERIFY(pipe != INVALID_HANDLE_VALUE);
    PACL rights = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    const DWORD error = GetSecurityInfo(pipe, SE_KERNEL_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
        nullptr, &rights, nullptr, &descriptor);
    QCOMPARE(error, DWORD(ERROR_SUCCESS));
    QVERIFY(rights); // Without a list everybody may connect.
    std::vector<char> user = ownUser();
    QVERIFY(!user.empty());
    int allowed = 0;
    for (DWORD i = 0; i < rights->AceCount; ++i) {
        void *entry = nullptr;
        QVERIFY(GetAce(rights, i, &entry));
        auto *access = static_cast<ACCESS_ALLOWED_ACE *>(entry);
        if (access->Header.AceType != ACCESS_ALLOWED_ACE_TYPE)
            continue;
        ++allowed;
        QVERIFY(EqualSid(&access->SidStart, reinterpret_cast<TOKEN_USER *>(user.data())->User.Sid));
    }
    QCOMPARE(allowed, 1);
    LocalFree(descriptor);
    CloseHandle(pipe);
}

void WindowsInstancesTest::hearsWhoConnectsWhileItStartsToListen()
{
    const OwnTemporaryFolder folder;
    const QString address = folder.socketPath();
    // It connects as soon as there is a pipe. The result's destructor waits for its end.
    const auto sender = std::async(std::launch::async, [address] {
        QElapsedTimer clock;
        clock.start();
        HANDLE pipe = INVALID_HANDLE_VALUE;
        while (pipe == INVALID_HANDLE_VALUE && !clock.hasExpired(30000))
            pipe = CreateFileW(
                wide(address), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        const QByteArray message = frame("early");
        DWORD count = 0;
        WriteFile(pipe, message.constData(), DWORD(message.size()), &count, nullptr);
        CloseHandle(pipe);
    });
    LocalPeer primary {QString()};
    const QSignalSpy received(&primary, SIGNAL(messageReceived(QString)));
    QVERIFY(!primary.isClient());
    QTRY_COMPARE(received.size(), 1);
    QCOMPARE(received.first().first().toString(), QStringLiteral("early"));
}

void WindowsInstancesTest::dropsWhoIsSilentForFiveSeconds()
{
    const OwnTemporaryFolder folder;
    LocalPeer primary {QString()};
    QVERIFY(!primary.isClient());
    const QSignalSpy received(&primary, SIGNAL(messageReceived(QString)));
    const RawPeer silent(folder.socketPath());
    const RawPeer halfAMessage(folder.socketPath());
    halfAMessage.send(frame("half a message").chopped(5));
    QElapsedTimer clock;
    clock.start();
    const RawPeer talker(folder.socketPath());
    talker.send(frame("hello"));
    QTRY_COMPARE(received.size(), 1);
    QTRY_VERIFY_WITH_TIMEOUT(silent.isClosedByOther() && halfAMessage.isClosedByOther(), 30000);
    QVERIFY(clock.elapsed() >= 4000);
    const QString idle("Dropped a message of another instance: nothing has come for 5000 ms");
    QCOMPARE(messages.take(), QStringList({idle, idle}));
    QCOMPARE(received.size(), 1);
}

void WindowsInstancesTest::roleIsFreeAfterThePrimaryWasKilled()
{
    const OwnTemporaryFolder folder;
    ChildInstance primary;
    QVERIFY(primary.isPrimary());
    ChildInstance second;
    QVERIFY(!second.isPrimary());
    primary.kill();
    QTRY_VERIFY(second.isPrimary());
    LocalPeer third {QString()};
    QVERIFY(third.isClient());
    QVERIFY(third.sendMessage(QStringLiteral("hello"), 5000));
    QCOMPARE(second.ask("received"), QByteArray("1"));
}

int main(int argc, char **argv)
{
    const int result = runAsChild(argc, argv);
    if (result >= 0)
        return result;
    QCoreApplication app(argc, argv);
    WindowsInstancesTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_windowsinstances.moc"
