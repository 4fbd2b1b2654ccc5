// SPDX-License-Identifier: MIT
#include "app/messagereader_p.h"

#include "instances.h"
#include "support/vemotest.h"

Q_DECLARE_METATYPE(MessageReader::State)

class MessageReaderTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void putsTheTextTogetherWhereverTheBytesAreCut_data();
    void putsTheTextTogetherWhereverTheBytesAreCut();
    void looksAtTheCountAsSoonAsItIsThere_data();
    void looksAtTheCountAsSoonAsItIsThere();
    void leavesOutWhatComesAfterTheMessage();
    void keepsTheBytesOfAMessageThatNeverEnds();
    void decodesALongMessageInSteps();
    void joinsCharactersThatLieAcrossTwoChunks();
};

namespace {

QString decoded(MessageReader &reader)
{
    while (!reader.decodeSome()) { }
    return reader.text();
}

} // namespace

void MessageReaderTest::putsTheTextTogetherWhereverTheBytesAreCut_data()
{
    QTest::addColumn<QByteArray>("utf8");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const QString &text) {
        QTest::newRow(name) << text.toUtf8() << text;
    };
    row("empty", QString());
    row("plain", QStringLiteral("open a.txt"));
    row("two, three and four bytes a character", QStringLiteral("Größe 大小 😀"));
    row("byte order mark in front", QChar(QChar::ByteOrderMark) + QStringLiteral("a"));
    row("byte order mark alone", QString(QChar(QChar::ByteOrderMark)));
    row("null character inside", QStringLiteral("a") + QChar(QChar::Null) + QStringLiteral("b"));
    row("line ends", QStringLiteral("a\r\nb\n"));
    QTest::newRow("not UTF-8") << QByteArray("a\xff z") << QString::fromUtf8("a\uFFFD z");
    QTest::newRow("last character cut") << QByteArray("a\xe5\xa4") << QString::fromUtf8("a\uFFFD");
}

void MessageReaderTest::putsTheTextTogetherWhereverTheBytesAreCut()
{
    QFETCH(const QByteArray, utf8);
    QFETCH(const QString, text);
    const QByteArray bytes = frame(utf8);
    for (int cut = 1; cut <= bytes.size(); ++cut) {
        MessageReader reader;
        MessageReader::State state = MessageReader::Receiving;
        for (int at = 0; at < bytes.size(); at += cut) {
            QCOMPARE(state, MessageReader::Receiving);
            state = reader.take(bytes.constData() + at, qMin(cut, bytes.size() - at));
        }
        QCOMPARE(state, MessageReader::Received);
        QCOMPARE(decoded(reader), text);
    }
}

void MessageReaderTest::looksAtTheCountAsSoonAsItIsThere_data()
{
    QTest::addColumn<quint32>("count");
    QTest::addColumn<MessageReader::State>("state");
    QTest::newRow("nothing to come") << 0U << MessageReader::Received;
    QTest::newRow("one byte") << 1U << MessageReader::Receiving;
    QTest::newRow("16 MiB") << 16777216U << MessageReader::Receiving;
    QTest::newRow("16 MiB and a byte") << 16777217U << MessageReader::TooLong;
    QTest::newRow("2^31-1") << 2147483647U << MessageReader::TooLong;
    QTest::newRow("2^31") << 2147483648U << MessageReader::TooLong;
    QTest::newRow("2^32-1") << 4294967295U << MessageReader::TooLong;
}

void MessageReaderTest::looksAtTheCountAsSoonAsItIsThere()
{
    QFETCH(const quint32, count);
    QFETCH(const MessageReader::State, state);
    const QByteArray bytes = header(count);
    MessageReader reader;
    QVERIFY(reader.hasNothing());
    QCOMPARE(reader.take(bytes.constData(), 3), MessageReader::Receiving);
    QVERIFY(!reader.hasNothing());
    QCOMPARE(reader.take(bytes.constData() + 3, 1), state);
    QCOMPARE(reader.announcedSize(), count);
    QCOMPARE(reader.receivedSize(), 0U);
}

void MessageReaderTest::leavesOutWhatComesAfterTheMessage()
{
    const QByteArray bytes = frame("one") + frame("two");
    MessageReader reader;
    QCOMPARE(reader.take(bytes.constData(), bytes.size()), MessageReader::Received);
    QCOMPARE(decoded(reader), QStringLiteral("one"));
}

void MessageReaderTest::keepsTheBytesOfAMessageThatNeverEnds()
{
    const QByteArray bytes = frame("never").chopped(1);
    MessageReader reader;
    QCOMPARE(reader.take(bytes.constData(), bytes.size()), MessageReader::Receiving);
    QCOMPARE(reader.announcedSize(), 5U);
    QCOMPARE(reader.receivedSize(), 4U);
    QVERIFY(reader.text().isEmpty());
}

void MessageReaderTest::decodesALongMessageInSteps()
{
    const QByteArray bytes = frame(QByteArray(MessageReader::kMaxSize, 'x'));
    MessageReader reader;
    QCOMPARE(reader.take(bytes.constData(), bytes.size()), MessageReader::Received);
    int steps = 1;
    for (; !reader.decodeSome(); ++steps)
        QVERIFY(reader.text().size() <= steps * 1024 * 1024);
    QCOMPARE(steps, 16);
    QCOMPARE(reader.text().size(), 16777216);
}

void MessageReaderTest::joinsCharactersThatLieAcrossTwoChunks()
{
    // Three bytes per character: 65536 is not a multiple of 3.
    const QString text(100000, QChar(0x5927));
    const QByteArray bytes = frame(text.toUtf8());
    MessageReader reader;
    QCOMPARE(reader.take(bytes.constData(), bytes.size()), MessageReader::Received);
    QVERIFY(decoded(reader) == text);
}

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    MessageReaderTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_messagereader.moc"
