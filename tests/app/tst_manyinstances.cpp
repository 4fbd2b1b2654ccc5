// SPDX-License-Identifier: MIT
#include "app/localpeer_p.h"

#include "instances.h"
#include "support/sanitizers.h"
#include "support/vemotest.h"

#include <algorithm>
#include <array>
#include <vector>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

constexpr int kPatience = 60000;
#ifdef Q_OS_WIN
// There processes are more expensive.
constexpr int kCrowd = 20;
constexpr int kRounds = 5;
#else
constexpr int kCrowd = 100;
constexpr int kRounds = 20;
#endif

int rounds()
{
    return underSanitizers() ? 4 : kRounds;
}

std::vector<std::unique_ptr<ChildInstance>> startMany(int count, ChildInstance::Kind kind)
{
    std::vector<std::unique_ptr<ChildInstance>> children;
    for (int i = 0; i < count; ++i)
        children.push_back(std::make_unique<ChildInstance>(kind));
    return children;
}

/// Tells a file from another that has taken its place; 0 if there is none.
quint64 fileAt(const QString &path)
{
#ifdef Q_OS_UNIX
    struct stat status = {};
    return lstat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_ino : 0;
#else
    // The lock file can't be removed while it is open, and a pipe has no file.
    return path.contains(QLatin1String("pipe")) || QFile::exists(path) ? 1 : 0;
#endif
}

} // namespace

Q_DECLARE_METATYPE(ChildInstance::Kind)

class ManyInstancesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void areOnePrimaryWhenAllStartAtOnce_data();
    void areOnePrimaryWhenAllStartAtOnce();
    void handTheRoleOverAThousandTimes();
    void areOnePrimaryWhenTwoWantTheUnlockedRole();
    void areOnePrimaryAgainWhateverACleanerRemoves();
    void sendTenThousandMessagesInOrder();
    void sendTheirMessagesWholeWhateverTheirLength_data();
    void sendTheirMessagesWholeWhateverTheirLength();
};

void ManyInstancesTest::areOnePrimaryWhenAllStartAtOnce_data()
{
    QTest::addColumn<ChildInstance::Kind>("kind");
    QTest::addColumn<int>("rounds");
    QTest::newRow("whole applications") << ChildInstance::Application << 1;
    QTest::newRow("their talking part") << ChildInstance::Peer << rounds();
}

void ManyInstancesTest::areOnePrimaryWhenAllStartAtOnce()
{
    QFETCH(const ChildInstance::Kind, kind);
    QFETCH(const int, rounds);
    // The same folder, so that from the second round on there is a lock file, and after a kill a
    // socket.
    const OwnTemporaryFolder folder;
    for (int round = 0; round < rounds; ++round) {
        auto children = startMany(kCrowd, kind);
        for (auto &child : children)
            child->tell("role");
        int primaries = 0;
        int secondaries = 0;
        ChildInstance *primary = nullptr;
        for (auto &child : children) {
            const QByteArray role = child->answer();
            primaries += role == "primary" ? 1 : 0;
            secondaries += role == "secondary" ? 1 : 0;
            if (role == "primary")
                primary = child.get();
        }
        QCOMPARE(primaries, 1);
        QCOMPARE(secondaries, kCrowd - 1);
        ChildInstance *other = children[children[0].get() == primary ? 1 : 0].get();
        QCOMPARE(other->ask("send hello"), QByteArray("sent"));
        QCOMPARE(primary->ask("received"), QByteArray("1"));
        for (auto &child : children)
            child->killWithoutWaiting();
    }
}

void ManyInstancesTest::handTheRoleOverAThousandTimes()
{
    const OwnTemporaryFolder folder;
    std::array<ChildInstance, 2> instances;
    QVERIFY(instances[0].isPrimary());
    QVERIFY(!instances[1].isPrimary());
    for (int i = 0; i < 1000; ++i) {
        ChildInstance &predecessor = instances[size_t(i) % 2];
        ChildInstance &successor = instances[size_t(i + 1) % 2];
        QCOMPARE(predecessor.ask("unlock"), QByteArray("done"));
        QCOMPARE(successor.ask("role"), QByteArray("primary"));
        QCOMPARE(predecessor.ask("role"), QByteArray("secondary"));
        QCOMPARE(predecessor.ask("send hello"), QByteArray("sent"));
    }
    QCOMPARE(instances[0].ask("received"), QByteArray("500"));
    QCOMPARE(instances[1].ask("received"), QByteArray("500"));
}

void ManyInstancesTest::areOnePrimaryWhenTwoWantTheUnlockedRole()
{
    const OwnTemporaryFolder folder;
    // The instance that unlocks ends immediately and removes nothing of its successor's.
    auto primary = std::make_unique<ChildInstance>();
    QVERIFY(primary->isPrimary());
    for (int i = 0; i < 40; ++i) {
        auto first = std::make_unique<ChildInstance>();
        auto second = std::make_unique<ChildInstance>();
        QVERIFY(!first->isPrimary());
        QVERIFY(!second->isPrimary());
        primary->tell("unlock");
        QByteArray firstRole;
        QByteArray secondRole;
        do {
            first->tell("role");
            second->tell("role");
            firstRole = first->answer();
            secondRole = second->answer();
        } while (firstRole == "secondary" && secondRole == "secondary");
        QVERIFY(firstRole != secondRole);
        const quint64 socket = fileAt(folder.socketPath());
        const quint64 lock = fileAt(folder.lockPath());
        primary->quit();
        QVERIFY(socket != 0);
        QCOMPARE(fileAt(folder.socketPath()), socket);
        QCOMPARE(fileAt(folder.lockPath()), lock);
        auto &next = firstRole == "primary" ? first : second;
        auto &other = firstRole == "primary" ? second : first;
        QCOMPARE(other->ask("send hello"), QByteArray("sent"));
        primary = std::move(next);
    }
}

void ManyInstancesTest::areOnePrimaryAgainWhateverACleanerRemoves()
{
    const OwnTemporaryFolder folder;
    auto instances = startMany(5, ChildInstance::Peer);
    for (int i = 0; i < 200; ++i) {
        // The files are removed while the instances look for their role and restore their files.
        for (auto &instance : instances)
            instance->tell("role");
        QFile::remove(i % 3 == 0 ? folder.socketPath() : folder.lockPath());
        QFile::remove(i % 2 == 0 ? folder.socketPath() : folder.lockPath());
        for (auto &instance : instances)
            QVERIFY(!instance->answer().isEmpty());
        // Two instances may still assume to be primary; asking each resolves this.
        for (auto &instance : instances)
            instance->ask("role");
        const auto primaries = std::count_if(instances.begin(), instances.end(),
            [](auto &instance) { return instance->isPrimary(); });
        QCOMPARE(primaries, 1);
    }
    ChildInstance sender;
    QCOMPARE(sender.ask("send hello"), QByteArray("sent"));
}

void ManyInstancesTest::sendTenThousandMessagesInOrder()
{
    const OwnTemporaryFolder folder;
    LocalPeer primary {QString()};
    QVERIFY(!primary.isClient());
    QSignalSpy received(&primary, SIGNAL(messageReceived(QString)));
    ChildInstance sender;
    sender.tell("sendmany 10000");
    while (received.size() < 10000)
        QVERIFY(received.wait(kPatience));
    QCOMPARE(sender.answer(), QByteArray("10000"));
    for (int i = 0; i < 10000; ++i)
        QCOMPARE(received.at(i).first().toString(), QString::number(i));
}

void ManyInstancesTest::sendTheirMessagesWholeWhateverTheirLength_data()
{
    QTest::addColumn<int>("length");
    QTest::newRow("empty") << 0;
    QTest::newRow("a byte more than is read at once") << 65536 - 4 + 1;
    QTest::newRow("8 MiB") << 8388608;
    QTest::newRow("16 MiB") << 16777216;
}

void ManyInstancesTest::sendTheirMessagesWholeWhateverTheirLength()
{
    QFETCH(const int, length);
    const OwnTemporaryFolder folder;
    LocalPeer primary {QString()};
    QVERIFY(!primary.isClient());
    const QSignalSpy received(&primary, SIGNAL(messageReceived(QString)));
    ChildInstance sender;
    sender.tell("sendlong " + QByteArray::number(length));
    QTRY_COMPARE_WITH_TIMEOUT(received.size(), 1, kPatience);
    QCOMPARE(sender.answer(), QByteArray("sent"));
    QVERIFY(received.first().first().toString() == QString(length, QLatin1Char('x')));
}

int main(int argc, char **argv)
{
    const int result = runAsChild(argc, argv);
    if (result >= 0)
        return result;
    QCoreApplication app(argc, argv);
    ManyInstancesTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_manyinstances.moc"
