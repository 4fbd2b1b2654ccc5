// SPDX-License-Identifier: MIT
#include "app/localpeer_p.h"

#include "instances.h"
#include "support/vemotest.h"

#include <algorithm>
#include <vector>

#include <malloc.h>
#include <sys/resource.h>
#include <time.h>
#include <unistd.h>

namespace {

constexpr qint64 kMaxEventTime = 50 * 1000; // Microseconds of CPU time.
constexpr qint64 kMemoryAllowance = 1024 * 1024;
constexpr int kPieceSize = 64 * 1024;
constexpr int kPatience = 30000;
const char kIdle[] = "Dropped a message of another instance: nothing has come for 5000 ms";
const char kIdleInACrowd[] = "Dropped a message of another instance: nothing has come for 1500 ms";

qint64 cpuMicroseconds()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return qint64(time.tv_sec) * 1000000 + time.tv_nsec / 1000;
}

/// Bytes that this process has allocated; always 0 under AddressSanitizer.
qint64 allocatedBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
}

/// Measures the delivery of every event.
class MeteredApplication : public QCoreApplication
{
public:
    using QCoreApplication::QCoreApplication;

    void startMeasuring()
    {
        m_before = allocatedBytes();
        m_peak = m_before;
        m_longestEvent = 0;
    }
    qint64 longestEvent() const { return m_longestEvent; }
    qint64 memoryPeak() const { return m_peak - m_before; }

    bool notify(QObject *receiver, QEvent *event) override
    {
        const qint64 start = cpuMicroseconds();
        const bool result = QCoreApplication::notify(receiver, event);
        m_longestEvent = std::max(m_longestEvent, cpuMicroseconds() - start);
        m_peak = std::max(m_peak, allocatedBytes());
        return result;
    }

private:
    qint64 m_before = 0;
    qint64 m_peak = 0;
    qint64 m_longestEvent = 0;
};

/// Needed because both ends of a thousand connections are in this process.
void allowManyDescriptors()
{
    rlimit limit = {};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = std::min(limit.rlim_max, rlim_t(4096));
    setrlimit(RLIMIT_NOFILE, &limit);
}

/// Prevents the process from opening files until the returned limit is restored.
rlimit takeDescriptorsAway()
{
    rlimit usual = {};
    getrlimit(RLIMIT_NOFILE, &usual);
    const int firstFree = dup(STDIN_FILENO);
    close(firstFree);
    rlimit none = usual;
    none.rlim_cur = rlim_t(firstFree);
    setrlimit(RLIMIT_NOFILE, &none);
    return usual;
}

} // namespace

class HostilePeersTest : public VemoTest
{
    Q_OBJECT

public:
    explicit HostilePeersTest(MeteredApplication *app) : m_app(app) { }

private Q_SLOTS:
    void init();
    void cleanup();
    void dropsWhoIsSilentForFiveSeconds();
    void dropsWhatIsAnnouncedTooLong_data();
    void dropsWhatIsAnnouncedTooLong();
    void neverDeliversWhatIsBrokenOff_data();
    void neverDeliversWhatIsBrokenOff();
    void takesMemoryForWhatHasCome_data();
    void takesMemoryForWhatHasCome();
    void decodesALongMessageWithoutBlocking();
    void hearsATalkerBehindAThousandSilentOnes();
    void hearsAThousandAtOnce();
    void readsWhatHasComeBeforeItCallsThatIdle();
    void goesOnWhenThereAreDescriptorsAgain();

private:
    QString message(int i) const { return m_received->at(i).first().toString(); }
    void sendAll(const RawPeer &peer, const QByteArray &bytes) const;

    MeteredApplication *const m_app;
    std::unique_ptr<OwnTemporaryFolder> m_folder;
    std::unique_ptr<LocalPeer> m_primary;
    std::unique_ptr<QSignalSpy> m_received;
    QString m_address;
};

void HostilePeersTest::init()
{
    messages.start();
    m_folder = std::make_unique<OwnTemporaryFolder>();
    m_address = m_folder->socketPath();
    m_primary = std::make_unique<LocalPeer>(QString());
    m_received = std::make_unique<QSignalSpy>(m_primary.get(), SIGNAL(messageReceived(QString)));
    QVERIFY(!m_primary->isClient());
    m_app->startMeasuring();
}

void HostilePeersTest::cleanup()
{
    qInfo("longest event %lld us, memory peak %lld bytes", m_app->longestEvent(),
        m_app->memoryPeak());
    QVERIFY(m_app->longestEvent() < kMaxEventTime);
    m_received.reset();
    m_primary.reset();
    m_folder.reset();
    messages.stop();
    QCOMPARE(messages.take(), QStringList());
}

/// Sends as fast as the primary reads.
void HostilePeersTest::sendAll(const RawPeer &peer, const QByteArray &bytes) const
{
    for (int sent = 0; sent < bytes.size();) {
        const int size = std::min(kPieceSize, int(bytes.size()) - sent);
        sent += peer.send(QByteArray::fromRawData(bytes.constData() + sent, size));
        QCoreApplication::processEvents();
    }
}

void HostilePeersTest::dropsWhoIsSilentForFiveSeconds()
{
    const RawPeer nothing(m_address);
    const RawPeer halfACount(m_address);
    const RawPeer halfAMessage(m_address);
    const RawPeer slow(m_address);
    halfACount.send(header(100).left(2));
    halfAMessage.send(frame(QByteArray(100, 'x')).chopped(50));
    const QByteArray slowBytes = frame("a byte a second");
    int slowAt = 0;
    QElapsedTimer clock;
    clock.start();
    QTimer eachSecond;
    connect(
        &eachSecond, &QTimer::timeout, &eachSecond, [&] { slow.send(slowBytes.mid(slowAt++, 1)); });
    eachSecond.start(1000);
    QTRY_VERIFY_WITH_TIMEOUT(nothing.isClosedByOther(), kPatience);
    QVERIFY(clock.elapsed() >= 5000);
    QTRY_VERIFY(halfACount.isClosedByOther() && halfAMessage.isClosedByOther());
    QCOMPARE(messages.take(), QStringList({kIdle, kIdle, kIdle}));
    QVERIFY(!slow.isClosedByOther());
    QVERIFY(slowAt >= 4);
    eachSecond.stop();
    slow.send(slowBytes.mid(slowAt));
    QTRY_COMPARE(m_received->size(), 1);
    QCOMPARE(message(0), QStringLiteral("a byte a second"));
}

void HostilePeersTest::dropsWhatIsAnnouncedTooLong_data()
{
    QTest::addColumn<quint32>("count");
    QTest::newRow("16 MiB and a byte") << 16777217U;
    QTest::newRow("2^31-1") << 2147483647U;
    QTest::newRow("2^31") << 2147483648U;
    QTest::newRow("2^32-1") << 4294967295U;
}

void HostilePeersTest::dropsWhatIsAnnouncedTooLong()
{
    QFETCH(const quint32, count);
    const QByteArray bytes = header(count) + QByteArray(1000, 'x');
    const RawPeer peer(m_address);
    peer.send(bytes);
    QTRY_VERIFY(peer.isClosedByOther());
    QCOMPARE(peer.receive(), QByteArray());
    QCOMPARE(messages.take(),
        QStringList(QStringLiteral(
            "Dropped a message of another instance: it is longer than 16 MiB: %1 bytes")
                        .arg(count)));
    QVERIFY(m_app->memoryPeak() < kMemoryAllowance);
    QCOMPARE(m_received->size(), 0);
}

void HostilePeersTest::neverDeliversWhatIsBrokenOff_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("warnings");
    const auto warning = [](int size) {
        return QStringList(QStringLiteral(
            "Dropped a message of another instance: it was broken off after %1 bytes")
                               .arg(size));
    };
    QTest::newRow("only knocks") << QByteArray() << QStringList();
    QTest::newRow("in the count") << header(7).left(3) << warning(0);
    QTest::newRow("after the count") << header(7) << warning(0);
    QTest::newRow("before the last byte") << frame("message").chopped(1) << warning(6);
    QTest::newRow("within a character") << frame("a\xe5\xa4\xa7").chopped(1) << warning(3);
    QTest::newRow("long") << frame(QByteArray(200000, 'x')).left(100004) << warning(100000);
}

void HostilePeersTest::neverDeliversWhatIsBrokenOff()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QStringList, warnings);
    RawPeer peer(m_address);
    QCOMPARE(peer.send(bytes), bytes.size());
    peer.close();
    const RawPeer next(m_address);
    next.send(frame("next"));
    QTRY_COMPARE(m_received->size(), 1);
    QCOMPARE(message(0), QStringLiteral("next"));
    QStringList said;
    QTRY_COMPARE(said += messages.take(), warnings);
}

void HostilePeersTest::takesMemoryForWhatHasCome_data()
{
    QTest::addColumn<int>("peers");
    QTest::addColumn<int>("bytesEach");
    QTest::newRow("announced only") << 1 << 0;
    QTest::newRow("half a message") << 1 << 8 * 1024 * 1024;
    QTest::newRow("a whole one but a byte") << 1 << 16 * 1024 * 1024 - 1;
    QTest::newRow("many, announced only") << 390 << 0;
    QTest::newRow("many with a byte") << 390 << 1;
    QTest::newRow("many with 33 KiB") << 390 << 33 * 1024;
}

void HostilePeersTest::takesMemoryForWhatHasCome()
{
    QFETCH(const int, peers);
    QFETCH(const int, bytesEach);
    allowManyDescriptors();
    const QByteArray bytes = header(16 * 1024 * 1024) + QByteArray(bytesEach, 'x');
    std::vector<RawPeer> all;
    all.reserve(size_t(peers));
    for (int i = 0; i < peers; ++i)
        all.emplace_back(m_address);
    m_app->startMeasuring();
    for (const RawPeer &peer : all)
        sendAll(peer, bytes);
    // Connections are served in order, so this one is served last.
    const RawPeer last(m_address);
    last.send(frame("last"));
    QTRY_COMPARE(m_received->size(), 1);
    QVERIFY(m_app->memoryPeak() <= qint64(peers) * bytesEach + kMemoryAllowance);
    all.clear();
    QStringList said;
    QTRY_COMPARE((said += messages.take()).size(), peers);
    QCOMPARE(said.removeDuplicates(), peers - 1);
}

void HostilePeersTest::decodesALongMessageWithoutBlocking()
{
    const QString text(16 * 1024 * 1024 / 3, QChar(0x5927));
    const QByteArray bytes = frame(text.toUtf8());
    const RawPeer peer(m_address);
    m_app->startMeasuring();
    sendAll(peer, bytes);
    QTRY_COMPARE(m_received->size(), 1);
    QVERIFY(message(0) == text);
    QCOMPARE(peer.receive(), QByteArray("ack"));
}

void HostilePeersTest::hearsATalkerBehindAThousandSilentOnes()
{
    allowManyDescriptors();
    std::vector<RawPeer> silent;
    silent.reserve(1000);
    for (int i = 0; i < 1000; ++i)
        silent.emplace_back(m_address);
    QVERIFY(
        std::all_of(silent.begin(), silent.end(), [](auto &peer) { return peer.isConnected(); }));
    ChildInstance talker;
    talker.tell("send hello");
    QTRY_COMPARE_WITH_TIMEOUT(m_received->size(), 1, kPatience);
    QCOMPARE(talker.answer(), QByteArray("sent"));
    QVERIFY(m_app->memoryPeak() <= kMemoryAllowance);

    QStringList said;
    QTRY_COMPARE_WITH_TIMEOUT((said += messages.take()).size(), 1000, kPatience);
    QVERIFY(std::all_of(
        silent.begin(), silent.end(), [](auto &peer) { return peer.isClosedByOther(); }));
    // The exact number that remains when the crowd gets smaller depends on timing.
    QVERIFY(said.count(kIdleInACrowd) >= 600);
    QCOMPARE(said.count(kIdleInACrowd) + said.count(kIdle), 1000);
}

void HostilePeersTest::hearsAThousandAtOnce()
{
    allowManyDescriptors();
    std::vector<RawPeer> all;
    all.reserve(1000);
    for (int i = 0; i < 1000; ++i) {
        all.emplace_back(m_address);
        all.back().send(frame(QByteArray::number(i)));
    }
    QTRY_COMPARE_WITH_TIMEOUT(m_received->size(), 1000, kPatience);
    QSet<QString> different;
    for (int i = 0; i < 1000; ++i)
        different += message(i);
    QCOMPARE(different.size(), 1000);
    QVERIFY(
        std::all_of(all.begin(), all.end(), [](auto &peer) { return peer.receive() == "ack"; }));
}

void HostilePeersTest::readsWhatHasComeBeforeItCallsThatIdle()
{
    // The primary's event loop is blocked for longer than the limit, while the rest arrives.
    const RawPeer peer(m_address);
    peer.send(frame("patient").chopped(1));
    const RawPeer signal(m_address);
    signal.send(frame("the other one has been read"));
    QTRY_COMPARE(m_received->size(), 1);
    ChildInstance waiter;
    waiter.tell("wait 5500");
    peer.send("t");
    QCOMPARE(waiter.answer(), QByteArray("done"));
    QTRY_COMPARE(m_received->size(), 2);
    QCOMPARE(message(1), QStringLiteral("patient"));
    QCOMPARE(peer.receive(), QByteArray("ack"));
}

void HostilePeersTest::goesOnWhenThereAreDescriptorsAgain()
{
    const QStringList warning(
        QStringLiteral("Cannot accept messages of other instances for now: \"%1\"")
            .arg(qt_error_string(EMFILE)));
    for (int round = 1; round <= 2; ++round) {
        std::vector<RawPeer> all;
        for (int i = 0; i < 10; ++i) {
            all.emplace_back(m_address);
            all.back().send(frame(QByteArray::number(i)));
        }
        const rlimit usual = takeDescriptorsAway();
        QElapsedTimer clock;
        clock.start();
        QTRY_VERIFY(clock.hasExpired(500)); // Accepting fails repeatedly, but warns once.
        setrlimit(RLIMIT_NOFILE, &usual);
        QCOMPARE(messages.take(), warning);
        QTRY_COMPARE(m_received->size(), 10 * round);
    }
}

int main(int argc, char **argv)
{
    const int result = runAsChild(argc, argv);
    if (result >= 0)
        return result;
    MeteredApplication app(argc, argv);
    HostilePeersTest test(&app);
    // All messages are checked, but only some need be printed.
    return QTest::qExec(&test, QCoreApplication::arguments() + QStringList {"-maxwarnings", "50"});
}
#include "tst_hostilepeers.moc"
