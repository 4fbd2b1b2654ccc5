// SPDX-License-Identifier: MIT
#include "app/instancelock_p.h"

#include "instances.h"
#include "locksteps.h"
#include "support/vemotest.h"

#include <cerrno>
#include <functional>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Preparation = std::function<void(const QByteArray &path)>;

void writeFile(const QByteArray &path, mode_t mode = 0600)
{
    QVERIFY(close(open(path.constData(), O_CREAT | O_WRONLY, mode)) == 0);
}

int modeOf(const QString &path)
{
    struct stat status = {};
    return lstat(QFile::encodeName(path).constData(), &status) == 0 ? int(status.st_mode & 07777)
                                                                    : -1;
}

} // namespace

Q_DECLARE_METATYPE(Preparation)

class InstanceLockTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void isTakenOnceAtATime();
    void comesFreeWithItsHolder();
    void isTheProcessLockOfTheWholeFile();
    void respectsAProcessLockOfTheWholeFile();
    void isNotLostWhenTheFileIsOpenedAndClosed();
    void opensItsFileToTheUserAlone_data();
    void opensItsFileToTheUserAlone();
    void leavesTheFileAndWhatIsInIt();
    void refusesWhatIsNotAFileOfOurs_data();
    void refusesWhatIsNotAFileOfOurs();
    void reportsWhyTheFileCannotBeMade();
    void isNotHeldOnAFileThatWasRemoved();
    void isGivenUpWhenAnotherHasTheNewFile();

private:
    /// A different path in each row.
    QString path() const
    {
        return QStringLiteral("%1/%2-%3")
            .arg(m_folder.path(), QLatin1String(QTest::currentTestFunction()),
                QLatin1String(QTest::currentDataTag()));
    }

    const OwnTemporaryFolder m_folder;
};

void InstanceLockTest::isTakenOnceAtATime()
{
    takeLockOnceAtATime(path());
}

void InstanceLockTest::comesFreeWithItsHolder()
{
    takeLockAfterItsHolderIsGone(path());
}

void InstanceLockTest::isTheProcessLockOfTheWholeFile()
{
    InstanceLock lock(path());
    QCOMPARE(lock.take(), InstanceLock::Taken);
    const int descriptor = open(QFile::encodeName(path()).constData(), O_RDWR | O_CLOEXEC);
    for (const off_t place : {off_t(0), off_t(1) << 40}) {
        struct flock wanted = {};
        wanted.l_type = F_RDLCK;
        wanted.l_whence = SEEK_SET;
        wanted.l_start = place;
        wanted.l_len = 1;
        QCOMPARE(fcntl(descriptor, F_GETLK, &wanted), 0);
        QCOMPARE(int(wanted.l_type), F_WRLCK);
        QCOMPARE(wanted.l_start, off_t(0));
        QCOMPARE(wanted.l_len, off_t(0));
    }
    close(descriptor);
}

void InstanceLockTest::respectsAProcessLockOfTheWholeFile()
{
    const int descriptor =
        open(QFile::encodeName(path()).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    struct flock whole = {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    QCOMPARE(fcntl(descriptor, F_SETLK, &whole), 0);
    InstanceLock lock(path());
    QCOMPARE(lock.take(), InstanceLock::HeldElsewhere);
    whole.l_type = F_UNLCK;
    QCOMPARE(fcntl(descriptor, F_SETLK, &whole), 0);
    QCOMPARE(lock.take(), InstanceLock::Taken);
    close(descriptor);
}

void InstanceLockTest::isNotLostWhenTheFileIsOpenedAndClosed()
{
    openTheFileOfAHeldLock(path());
}

void InstanceLockTest::opensItsFileToTheUserAlone_data()
{
    QTest::addColumn<int>("modeBefore");
    QTest::addColumn<int>("mask");
    QTest::newRow("new, usual mask") << -1 << 0022;
    QTest::newRow("new, no mask") << -1 << 0000;
    QTest::newRow("new, everything masked") << -1 << 0777;
    QTest::newRow("there, for all") << 0666 << 0022;
    QTest::newRow("there, with strange bits") << 04755 << 0022;
}

void InstanceLockTest::opensItsFileToTheUserAlone()
{
    QFETCH(const int, modeBefore);
    QFETCH(const int, mask);
    if (modeBefore >= 0) {
        writeFile(QFile::encodeName(path()));
        QCOMPARE(chmod(QFile::encodeName(path()).constData(), mode_t(modeBefore)), 0);
    }
    const mode_t outer = umask(mode_t(mask));
    InstanceLock lock(path());
    const InstanceLock::Result result = lock.take();
    umask(outer);
    QCOMPARE(result, InstanceLock::Taken);
    QCOMPARE(modeOf(path()), 0600);
}

void InstanceLockTest::leavesTheFileAndWhatIsInIt()
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("kept");
    file.close();
    {
        InstanceLock lock(path());
        QCOMPARE(lock.take(), InstanceLock::Taken);
    }
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("kept"));
}

void InstanceLockTest::refusesWhatIsNotAFileOfOurs_data()
{
    QTest::addColumn<Preparation>("prepare");
    QTest::addColumn<QString>("refusal");
    const auto row = [](const char *name, const char *refusal, const Preparation &prepare) {
        QTest::newRow(name) << prepare << QString::fromLatin1(refusal);
    };
    row("link to a file", "it is a symbolic link", [](const QByteArray &path) {
        writeFile(path + "-target");
        QCOMPARE(symlink((path + "-target").constData(), path.constData()), 0);
    });
    row("link to nothing", "it is a symbolic link",
        [](const QByteArray &path) { QCOMPARE(symlink("/nowhere/at/all", path.constData()), 0); });
    row("folder", "it is not a file",
        [](const QByteArray &path) { QCOMPARE(mkdir(path.constData(), 0700), 0); });
    row("pipe", "it is not a file",
        [](const QByteArray &path) { QCOMPARE(mkfifo(path.constData(), 0600), 0); });
    row("file with a second name", "it has a second name", [](const QByteArray &path) {
        writeFile(path);
        unlink((path + "-second").constData());
        QCOMPARE(link(path.constData(), (path + "-second").constData()), 0);
    });
    if (geteuid() != 0)
        return; // Only root can change the owner of a file.
    row("another user's", "it belongs to another user", [](const QByteArray &path) {
        writeFile(path, 0666);
        QCOMPARE(chown(path.constData(), 12345, gid_t(-1)), 0);
    });
}

void InstanceLockTest::refusesWhatIsNotAFileOfOurs()
{
    QFETCH(const Preparation, prepare);
    QFETCH(const QString, refusal);
    prepare(QFile::encodeName(path()));
    const int modeBefore = modeOf(path());
    InstanceLock lock(path());
    QCOMPARE(lock.take(), InstanceLock::Refused);
    QCOMPARE(lock.refusal(), refusal);
    QVERIFY(!lock.isHeld());
    QCOMPARE(modeOf(path()), modeBefore);
    QVERIFY(!QFile::exists(QStringLiteral("/nowhere/at/all")));
}

void InstanceLockTest::reportsWhyTheFileCannotBeMade()
{
    InstanceLock lock(m_folder.path() + QLatin1String("/missing/lock"));
    QCOMPARE(lock.take(), InstanceLock::Refused);
    QCOMPARE(lock.refusal(), qt_error_string(ENOENT));
}

void InstanceLockTest::isNotHeldOnAFileThatWasRemoved()
{
    InstanceLock lock(path());
    QCOMPARE(lock.take(), InstanceLock::Taken);
    QVERIFY(QFile::remove(path()));
    QVERIFY(!lock.isHeld());
    QCOMPARE(lock.take(), InstanceLock::Taken);
    QVERIFY(lock.isHeld());
    InstanceLock second(path());
    QCOMPARE(second.take(), InstanceLock::HeldElsewhere);
}

void InstanceLockTest::isGivenUpWhenAnotherHasTheNewFile()
{
    InstanceLock first(path());
    QCOMPARE(first.take(), InstanceLock::Taken);
    QVERIFY(QFile::remove(path()));
    InstanceLock second(path());
    QCOMPARE(second.take(), InstanceLock::Taken);
    QVERIFY(!first.isHeld());
    QCOMPARE(first.take(), InstanceLock::HeldElsewhere);
    QVERIFY(second.isHeld());
}

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    InstanceLockTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_instancelock.moc"
