// SPDX-License-Identifier: MIT
#include "app/localpeer_p.h"

#include "instances.h"
#include "support/vemotest.h"

#include <QLocalServer>
#include <QLocalSocket>

#include <limits>

namespace {

/// Milliseconds. On Windows the primary leaves a pipe open for five seconds, because closing it
/// discards an answer that has not been read yet.
constexpr int kClosingPatience = 30000;

} // namespace

class LocalPeerTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void namesItsSocketAfterTheId_data();
    void namesItsSocketAfterTheId();
    void hasTheProgramsPathAsIdWhenNoneIsChosen();
    void putsItsFilesIntoTheTemporaryFolder();
    void doesNothingBeforeItIsAsked();
    void takesThePrimaryRoleWhenAsked_data();
    void takesThePrimaryRoleWhenAsked();
    void isOnlyOneOfManyOfTheSameId();
    void answersAMessageWithAck_data();
    void answersAMessageWithAck();
    void takesOneMessageFromAConnection();
    void deliversAMessageWhoseSenderDoesNotWait();
    void deliversInTheOrderOfCompletion();
    void sendsTheCountAndTheText_data();
    void sendsTheCountAndTheText();
    void succeedsOnlyAfterTheAnswer_data();
    void succeedsOnlyAfterTheAnswer();
    void waitsForAPrimaryThatIsNotThereYet_data();
    void waitsForAPrimaryThatIsNotThereYet();
    void refusesToSendWhatIsTooLong();
    void takesTheRoleOverWhenThePrimaryEndsWhileItWaits();

private:
    void letItWait(ChildInstance *sender);

    const QString m_id = QStringLiteral("Vemo/Test-1");
};

void LocalPeerTest::namesItsSocketAfterTheId_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("name");
    // The row "check value" identifies the checksum: CRC-16/X-25.
    addRow("letters", "vemo", "qtsingleapp-vemo-CRC-UID");
    addRow("cut to six", "LongerThanSix", "qtsingleapp-Longer-CRC-UID");
    addRow("slashes", "/opt/vemo/bin/App", "qtsingleapp-optvem-CRC-UID");
    addRow("no letter", "123-456", "qtsingleapp--CRC-UID");
    addRow("other letters", QString::fromUtf8("Größe大V2"), "qtsingleapp-GreV-CRC-UID");
    addRow("check value", "123456789", "qtsingleapp--906e-UID");
}

void LocalPeerTest::namesItsSocketAfterTheId()
{
    QFETCH(const QString, id);
    QFETCH(QString, name);
    const QByteArray bytes = id.toUtf8();
    const quint16 checksum = qChecksum(bytes.constData(), uint(bytes.size()));
    name.replace(QLatin1String("CRC"), QString::number(checksum, 16));
    name.replace(QLatin1String("UID"), QString::number(userNumber(), 16));
    const LocalPeer peer(id);
    QCOMPARE(peer.id(), id);
    QCOMPARE(peer.socketName(), name);
}

void LocalPeerTest::hasTheProgramsPathAsIdWhenNoneIsChosen()
{
    const LocalPeer peer {QString()};
    const QString path = QCoreApplication::applicationFilePath();
    QCOMPARE(peer.id(), kHasSocketFile ? path : path.toLower()); // Windows ignores the case.
    const LocalPeer chosen(peer.id());
    // Only the readable part differs: it is the last part of the path, "tst_localpeer".
    QVERIFY(peer.socketName().startsWith(QLatin1String("qtsingleapp-tstloc-")));
    QCOMPARE(peer.socketName().mid(19), chosen.socketName().section(QLatin1Char('-'), 2));
}

void LocalPeerTest::putsItsFilesIntoTheTemporaryFolder()
{
    const OwnTemporaryFolder folder;
    {
        LocalPeer peer {QString()};
        QVERIFY(!peer.isClient());
        QVERIFY(!kHasSocketFile || QFileInfo::exists(folder.socketPath()));
        QVERIFY(QFileInfo::exists(folder.lockPath()));
        QCOMPARE(folder.lockPath(),
            QStringLiteral("%1/%2-lockfile").arg(QDir::tempPath(), peer.socketName()));
        const QDir::Filters all =
            QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System | QDir::Hidden;
        QCOMPARE(QDir(folder.path()).entryList(all).size(), kHasSocketFile ? 2 : 1);
    }
    QVERIFY(!kHasSocketFile || !QFileInfo::exists(folder.socketPath()));
    QVERIFY(QFileInfo::exists(folder.lockPath()));
}

void LocalPeerTest::doesNothingBeforeItIsAsked()
{
    const OwnTemporaryFolder folder;
    const LocalPeer peer(m_id);
    QVERIFY(QDir(folder.path()).isEmpty());
}

void LocalPeerTest::takesThePrimaryRoleWhenAsked_data()
{
    QTest::addColumn<bool>("bySending");
    addRow("by isClient", false);
    addRow("by sendMessage", true);
}

void LocalPeerTest::takesThePrimaryRoleWhenAsked()
{
    QFETCH(const bool, bySending);
    const OwnTemporaryFolder folder;
    LocalPeer first(m_id);
    LocalPeer second(m_id);
    if (bySending)
        QVERIFY(!first.sendMessage(QStringLiteral("to nobody"), 5000));
    else
        QVERIFY(!first.isClient());
    QVERIFY(second.isClient());
    QVERIFY(!first.isClient());
    first.unlock();
    QVERIFY(!second.isClient());
    QVERIFY(first.isClient());
}

void LocalPeerTest::isOnlyOneOfManyOfTheSameId()
{
    const OwnTemporaryFolder folder;
    LocalPeer first(m_id);
    LocalPeer second(m_id);
    LocalPeer other(QStringLiteral("Vemo/Test-2"));
    QVERIFY(!first.isClient());
    QVERIFY(second.isClient());
    QVERIFY(!other.isClient());
}

void LocalPeerTest::answersAMessageWithAck_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");
    addRow("plain", QByteArray("\0\0\0\x05hello", 9), "hello");
    addRow("empty", QByteArray("\0\0\0\0", 4), "");
    addRow("big-endian", QByteArray("\0\0\x01\x02", 4) + QByteArray(258, 'x'), QString(258, 'x'));
    addRow("UTF-8", QByteArray("\0\0\0\x0b\xc3\x9f\xe5\xa4\xa7\xf0\x9f\x98\x80\0!", 15),
        QString::fromUtf8("ß大😀") + QChar(QChar::Null) + QLatin1Char('!'));
    addRow("8 MiB", QByteArray("\0\x80\0\0", 4) + QByteArray(8388608, 'y'), QString(8388608, 'y'));
    addRow(
        "16 MiB", QByteArray("\x01\0\0\0", 4) + QByteArray(16777216, 'z'), QString(16777216, 'z'));
}

void LocalPeerTest::answersAMessageWithAck()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, message);
    const OwnTemporaryFolder folder;
    LocalPeer primary(m_id);
    QVERIFY(!primary.isClient());
    const QSignalSpy received(&primary, SIGNAL(messageReceived(QString)));
    QLocalSocket peer;
    peer.connectToServer(primary.socketName());
    QVERIFY(peer.waitForConnected());
    peer.write(bytes.chopped(1));
    QTRY_COMPARE(peer.bytesToWrite(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(peer.bytesAvailable(), 0);
    QCOMPARE(received.size(), 0);
    peer.write(bytes.right(1));
    QTRY_COMPARE_WITH_TIMEOUT(peer.state(), QLocalSocket::UnconnectedState, kClosingPatience);
    QCOMPARE(peer.readAll(), QByteArray("ack"));
    QCOMPARE(received.size(), 1);
    QVERIFY(received.first().first().toString() == message);
}

void LocalPeerTest::takesOneMessageFromAConnection()
{
    const OwnTemporaryFolder folder;
    LocalPeer primary {QString()};
    QVERIFY(!primary.isClient());
    const QSignalSpy received(&primary, SIGNAL(messageReceived(QString)));
    const RawPeer peer(folder.socketPath());
    peer.send(frame("one") + frame("two"));
    QTRY_VERIFY(received.size() == 1);
    QByteArray answer;
    QTRY_COMPARE(answer += peer.receive(), QByteArray("ack"));
    QTRY_VERIFY_WITH_TIMEOUT(peer.isClosedByOther(), kClosingPatience);
    QCOMPARE(received.size(), 1);
    QCOMPARE(received.first().first().toString(), QStringLiteral("one"));
}

void LocalPeerTest::deliversAMessageWhoseSenderDoesNotWait()
{
    const OwnTemporaryFolder folder;
    LocalPeer primary {QString()};
    QVERIFY(!primary.isClient());
    const QSignalSpy received(&primary, SIGNAL(messageReceived(QString)));
    RawPeer peer(folder.socketPath());
    peer.send(frame("whole"));
    peer.close();
    QTRY_COMPARE(received.size(), 1);
    QCOMPARE(received.first().first().toString(), QStringLiteral("whole"));
}

void LocalPeerTest::deliversInTheOrderOfCompletion()
{
    const OwnTemporaryFolder folder;
    LocalPeer primary {QString()};
    QVERIFY(!primary.isClient());
    const QSignalSpy received(&primary, SIGNAL(messageReceived(QString)));
    const RawPeer slow(folder.socketPath());
    slow.send(frame("slow").chopped(1));
    const RawPeer fast(folder.socketPath());
    fast.send(frame("fast"));
    QTRY_COMPARE(received.size(), 1);
    slow.send("w");
    QTRY_COMPARE(received.size(), 2);
    QCOMPARE(received.first().first().toString(), QStringLiteral("fast"));
    QCOMPARE(received.last().first().toString(), QStringLiteral("slow"));
}

void LocalPeerTest::sendsTheCountAndTheText_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QByteArray>("bytes");
    addRow("plain", "hello", QByteArray("\0\0\0\x05hello", 9));
    addRow("empty", "", QByteArray("\0\0\0\0", 4));
    addRow("UTF-8", QString::fromUtf8("ß大😀"),
        QByteArray("\0\0\0\x09\xc3\x9f\xe5\xa4\xa7\xf0\x9f\x98\x80", 13));
    addRow("big-endian", QString(258, 'x'), QByteArray("\0\0\x01\x02", 4) + QByteArray(258, 'x'));
}

void LocalPeerTest::sendsTheCountAndTheText()
{
    QFETCH(const QString, message);
    QFETCH(const QByteArray, bytes);
    const OwnTemporaryFolder folder;
    InstanceLock lock(folder.lockPath());
    QCOMPARE(lock.take(), InstanceLock::Taken);
    QLocalServer server;
    QVERIFY(server.listen(folder.socketPath()));
    ChildInstance sender;
    sender.tell("send " + message.toUtf8());
    QVERIFY(server.waitForNewConnection(-1));
    QLocalSocket *connection = server.nextPendingConnection();
    QTRY_VERIFY(connection->bytesAvailable() >= bytes.size());
    QCOMPARE(connection->readAll(), bytes);
    QVERIFY(!sender.hasAnswer());
    connection->write("ack");
    connection->flush();
    QCOMPARE(sender.answer(), QByteArray("sent"));
}

void LocalPeerTest::succeedsOnlyAfterTheAnswer_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("isClosing");
    QTest::addColumn<QByteArray>("result");
    addRow("answer", QByteArray("ack"), false, QByteArray("sent"));
    addRow("answer and end", QByteArray("ack"), true, QByteArray("sent"));
    addRow("another answer", QByteArray("nak"), false, QByteArray("failed"));
    addRow("part of an answer", QByteArray("ac"), true, QByteArray("failed"));
    addRow("end without answer", QByteArray(), true, QByteArray("failed"));
    addRow("silence", QByteArray(), false, QByteArray("failed"));
}

void LocalPeerTest::succeedsOnlyAfterTheAnswer()
{
    QFETCH(const QByteArray, answer);
    QFETCH(const bool, isClosing);
    QFETCH(const QByteArray, result);
    const OwnTemporaryFolder folder;
    InstanceLock lock(folder.lockPath());
    QCOMPARE(lock.take(), InstanceLock::Taken);
    QLocalServer server;
    QVERIFY(server.listen(folder.socketPath()));
    ChildInstance sender;
    const bool isSilent = answer.isEmpty() && !isClosing;
    sender.tell(isSilent ? "sendwithin 200" : "send x");
    QVERIFY(server.waitForNewConnection(-1));
    QLocalSocket *connection = server.nextPendingConnection();
    QTRY_VERIFY(connection->bytesAvailable() > 4);
    connection->write(answer);
    connection->flush();
    if (isClosing)
        connection->close();
    QCOMPARE(sender.answer(), result);
}

/// Makes sure that the sender has found no instance and keeps trying.
void LocalPeerTest::letItWait(ChildInstance *sender)
{
    QElapsedTimer clock;
    clock.start();
    QTRY_VERIFY(clock.hasExpired(300));
    QVERIFY(!sender->hasAnswer());
}

void LocalPeerTest::waitsForAPrimaryThatIsNotThereYet_data()
{
    QTest::addColumn<QByteArray>("timeout");
    addRow("-1", QByteArray("-1"));
    addRow("-2", QByteArray("-2"));
    addRow("the lowest number", QByteArray::number(std::numeric_limits<int>::min()));
}

void LocalPeerTest::waitsForAPrimaryThatIsNotThereYet()
{
    QFETCH(const QByteArray, timeout);
    const OwnTemporaryFolder folder;
    InstanceLock lock(folder.lockPath());
    QCOMPARE(lock.take(), InstanceLock::Taken);
    ChildInstance sender;
    QCOMPARE(sender.ask("role"), QByteArray("secondary"));
    QCOMPARE(sender.ask("sendwithin 0"), QByteArray("failed"));
    QCOMPARE(sender.ask("sendwithin 50"), QByteArray("failed"));
    sender.tell("sendwithin " + timeout);
    letItWait(&sender);
    lock.release();
    LocalPeer primary {QString()};
    // Either the sender becomes primary first, or it reaches us.
    const QSignalSpy received(&primary, SIGNAL(messageReceived(QString)));
    const bool isSenderPrimary = primary.isClient();
    QTRY_VERIFY(isSenderPrimary || received.size() == 1);
    QCOMPARE(sender.answer(), isSenderPrimary ? QByteArray("failed") : QByteArray("sent"));
}

void LocalPeerTest::takesTheRoleOverWhenThePrimaryEndsWhileItWaits()
{
    const OwnTemporaryFolder folder;
    InstanceLock lock(folder.lockPath());
    QCOMPARE(lock.take(), InstanceLock::Taken);
    ChildInstance sender;
    QCOMPARE(sender.ask("role"), QByteArray("secondary"));
    sender.tell("sendwithin -1");
    letItWait(&sender);
    lock.release();
    QCOMPARE(sender.answer(), QByteArray("failed"));
    QVERIFY(sender.isPrimary());
    LocalPeer peer {QString()};
    QVERIFY(peer.sendMessage(QStringLiteral("hello"), 5000));
    QCOMPARE(sender.ask("received"), QByteArray("1"));
}

void LocalPeerTest::refusesToSendWhatIsTooLong()
{
    const OwnTemporaryFolder folder;
    LocalPeer primary(m_id);
    LocalPeer sender(m_id);
    QVERIFY(!primary.isClient());
    QVERIFY(!sender.sendMessage(QString(16777217, QLatin1Char('x')), 5000));
    QCOMPARE(messages.take(),
        QStringList("Cannot send a message that is longer than 16 MiB: 16777217 bytes"));
}

int main(int argc, char **argv)
{
    const int result = runAsChild(argc, argv);
    if (result >= 0)
        return result;
    QCoreApplication app(argc, argv);
    LocalPeerTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_localpeer.moc"
