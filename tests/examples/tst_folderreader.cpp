// SPDX-License-Identifier: MIT
#include "childworld.h"
#include "diskfolder.h"
#include "examples/filebrowser/files/folderreader.h"
#include "examples/filebrowser/files/nativename.h"

#include "support/vemotest.h"

#include <sys/stat.h>
#include <unistd.h>
#include <utime.h>

namespace {

/// What one reading of a folder has told.
class Reading : public QObject
{
    Q_OBJECT

public:
    explicit Reading(FolderReader *reader)
    {
        connect(reader,
            SIGNAL(entriesRead(QVector<FileEntry>)), this, SLOT(slotEntries(QVector<FileEntry>)));
        connect(reader, SIGNAL(finished()), this, SLOT(slotFinished()));
        connect(reader, SIGNAL(failed(QString)), this, SLOT(slotFailed(QString)));
    }

    QMap<QString, FileEntry> entries;
    QVector<int> slices;
    int ends = 0;
    QStringList reasons;

private Q_SLOTS:
    void slotEntries(const QVector<FileEntry> &read)
    {
        slices += read.size();
        for (const FileEntry &entry : read)
            entries.insert(entry.name, entry);
    }
    void slotFinished() { ++ends; }
    void slotFailed(const QString &reason) { reasons += reason; }
};

/// Reads a folder to its end, which must be the only one.
QMap<QString, FileEntry> entriesOf(const QString &folder)
{
    FolderReader reader;
    Reading reading(&reader);
    reader.read(folder);
    [&reading] { QTRY_VERIFY(reading.ends == 1 || !reading.reasons.isEmpty()); }();
    QCoreApplication::processEvents();
    return reading.ends == 1 && reading.reasons.isEmpty() ? reading.entries
                                                          : QMap<QString, FileEntry>();
}

int readWithoutRights(const QString &)
{
    if (!ChildWorld::becomeNobody())
        return ChildWorld::kCannot;
    FolderReader reader;
    Reading reading(&reader);
    reader.read(ChildWorld::folder());
    while (reading.ends == 0 && reading.reasons.isEmpty())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return reading.reasons == QStringList(systemReason(EACCES)) ? 0 : 1;
}

} // namespace

class FolderReaderTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void anEmptyFolderHasNoEntries();
    void everythingIsKnownOfAFile();
    void aFolderIsOne();
    void hiddenEntriesAreRead();
    void aLinkIsDescribedByItsTarget();
    void aLinkThatLeadsNowhereIsDescribedItself_data();
    void aLinkThatLeadsNowhereIsDescribedItself();
    void everyNameComesBack_data();
    void everyNameComesBack();
    void twoNamesAreNeverTheSame();
    void nothingIsSaidBeforeTheEventLoopRuns();
    void aFolderThatCanNotBeReadFails_data();
    void aFolderThatCanNotBeReadFails();
    void aFolderWithoutRightsFails();
    void aFolderThatVanishesWhileItIsReadFails();
    void aSecondReadSilencesTheFirst();
    void theReaderMayBeDeletedInItsSignals();
    void theReaderMayReadAnotherFolderInItsSignals();
    void aHundredThousandEntriesComeInSlices();
};

void FolderReaderTest::anEmptyFolderHasNoEntries()
{
    const DiskFolder folder;
    FolderReader reader;
    Reading reading(&reader);
    reader.read(folder.path());
    QCOMPARE(reader.folder(), folder.path());
    QTRY_COMPARE(reading.ends, 1);
    QVERIFY(reading.slices.isEmpty());
    QVERIFY(reading.reasons.isEmpty());
}

void FolderReaderTest::everythingIsKnownOfAFile()
{
    const DiskFolder folder;
    folder.write("a.txt", "hello");
    const utimbuf times = {1000000000, 1000000000};
    QCOMPARE(utime(folder.native("a.txt").constData(), &times), 0);
    const FileEntry entry = entriesOf(folder.path()).value("a.txt");
    QCOMPARE(entry.size, 5);
    QCOMPARE(entry.modified, QDateTime::fromSecsSinceEpoch(1000000000));
    // Not supported by every file system, in which case there is an error.
    QVERIFY(!entry.created.isValid() || entry.created > entry.modified);
    QVERIFY(!entry.isFolder);
    QVERIFY(!entry.isLink);
    QVERIFY(entry.isWritable);
}

void FolderReaderTest::aFolderIsOne()
{
    const DiskFolder folder;
    folder.makeFolder("sub");
    const FileEntry entry = entriesOf(folder.path()).value("sub");
    QVERIFY(entry.isFolder);
    QVERIFY(!entry.isLink);
    QCOMPARE(entry.size, 0);
}

void FolderReaderTest::hiddenEntriesAreRead()
{
    const DiskFolder folder;
    folder.write(".hidden", "");
    folder.write("...", "");
    QCOMPARE(entriesOf(folder.path()).keys(), QStringList({"...", ".hidden"}));
}

void FolderReaderTest::aLinkIsDescribedByItsTarget()
{
    const DiskFolder folder;
    folder.write("a.txt", "hello");
    folder.makeFolder("sub");
    folder.link("to file", "a.txt");
    folder.link("to folder", "sub");
    const QMap<QString, FileEntry> entries = entriesOf(folder.path());
    QVERIFY(entries.value("to file").isLink);
    QVERIFY(!entries.value("to file").isFolder);
    QCOMPARE(entries.value("to file").size, 5);
    QVERIFY(entries.value("to folder").isLink);
    QVERIFY(entries.value("to folder").isFolder);
}

void FolderReaderTest::aLinkThatLeadsNowhereIsDescribedItself_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::newRow("dangling") << QByteArray("nowhere");
    QTest::newRow("to itself") << QByteArray("link");
}

void FolderReaderTest::aLinkThatLeadsNowhereIsDescribedItself()
{
    QFETCH(QByteArray, target);
    const DiskFolder folder;
    folder.link("link", target);
    const FileEntry entry = entriesOf(folder.path()).value("link");
    QVERIFY(entry.isLink);
    QVERIFY(!entry.isFolder);
    QCOMPARE(entry.size, target.size());
    QVERIFY(!entry.isWritable);
}

void FolderReaderTest::everyNameComesBack_data()
{
    QTest::addColumn<QByteArray>("name");
    QByteArray low, high;
    for (int c = 1; c < 256; ++c)
        (c < 128 ? low : high) += c == '/' ? QByteArray() : QByteArray(1, char(c));
    QTest::newRow("all ASCII") << low;
    QTest::newRow("all other bytes") << high;
    QTest::newRow("the longest") << QByteArray(255, 'n');
    QTest::newRow("a line break") << QByteArray("a\nb");
    QTest::newRow("a leading dash") << QByteArray("-rf");
    QTest::newRow("markup") << QByteArray("<b>&amp;<br>");
    QTest::newRow("four-byte character") << QByteArray("\xF0\x9F\x93\x81");
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF"
                                                   "a");
    QTest::newRow("half a character") << QByteArray("a\xE2\x82");
    QTest::newRow("a surrogate") << QByteArray("\xED\xB3\xBF");
    QTest::newRow("overlong") << QByteArray("\xC0\xAF");
    QTest::newRow("beyond Unicode") << QByteArray("\xF4\x90\x80\x80");
    QTest::newRow("a stray byte") << QByteArray("\x80\xF0\x9F\x93\x81\xFF");
}

void FolderReaderTest::everyNameComesBack()
{
    QFETCH(QByteArray, name);
    const DiskFolder folder;
    folder.write(name, "content");
    const QStringList names = entriesOf(folder.path()).keys();
    QCOMPARE(names.size(), 1);
    QCOMPARE(toNativeName(names.first()), name);
}

void FolderReaderTest::twoNamesAreNeverTheSame()
{
    const DiskFolder folder;
    const QByteArrayList names {"\xE9", "\xE8", "\xEF\xBF\xBD", "\xC3\xA9", "e\xCC\x81", "?"};
    for (const QByteArray &name : names)
        folder.write(name, "");
    QCOMPARE(entriesOf(folder.path()).size(), names.size());
}

void FolderReaderTest::nothingIsSaidBeforeTheEventLoopRuns()
{
    FolderReader reader;
    Reading reading(&reader);
    reader.read("/no/such/folder");
    QVERIFY(reading.reasons.isEmpty());
    QTRY_COMPARE(reading.reasons.size(), 1);
}

void FolderReaderTest::aFolderThatCanNotBeReadFails_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("error");
    QTest::newRow("missing") << "/no/such/folder" << ENOENT;
    QTest::newRow("empty path") << "" << ENOENT;
    QTest::newRow("a file") << "/proc/version" << ENOTDIR;
    QTest::newRow("too long a path") << '/' + QString(5000, 'a') << ENAMETOOLONG;
}

void FolderReaderTest::aFolderThatCanNotBeReadFails()
{
    QFETCH(QString, path);
    QFETCH(int, error);
    FolderReader reader;
    Reading reading(&reader);
    reader.read(path);
    QTRY_COMPARE(reading.reasons, QStringList(systemReason(error)));
    QVERIFY(reading.slices.isEmpty());
    QCOMPARE(reading.ends, 0);
}

void FolderReaderTest::aFolderWithoutRightsFails()
{
    if (getuid() != 0)
        QSKIP("Only root can become somebody else");
    const DiskFolder folder; // Made by mkdtemp(): nobody else may read it.
    const ChildResult result = runChild("unreadable", {ChildWorld::variableFor(folder.path())});
    QCOMPARE(result.status, QProcess::NormalExit);
    QCOMPARE(result.exitCode, 0);
}

void FolderReaderTest::aFolderThatVanishesWhileItIsReadFails()
{
    const DiskFolder parent;
    parent.makeFolder("sub");
    for (int i = 0; i < 20000; ++i)
        parent.write("sub/" + QByteArray::number(i), "");
    FolderReader reader;
    Reading reading(&reader);
    reader.read(parent.path("sub"));
    QTRY_VERIFY(!reading.slices.isEmpty());
    QCOMPARE(reading.ends, 0);
    parent.remove("sub");
    QTRY_COMPARE(reading.reasons, QStringList(systemReason(ENOENT)));
    QCOMPARE(reading.ends, 0);
}

void FolderReaderTest::aSecondReadSilencesTheFirst()
{
    const DiskFolder first, second;
    first.write("first", "");
    second.write("second", "");
    FolderReader reader;
    Reading reading(&reader);
    reader.read(first.path());
    reader.read(second.path());
    QTRY_COMPARE(reading.ends, 1);
    QCOMPARE(reading.entries.keys(), QStringList("second"));
    QCoreApplication::processEvents();
    QCOMPARE(reading.ends, 1);
}

void FolderReaderTest::theReaderMayBeDeletedInItsSignals()
{
    const DiskFolder folder;
    folder.write("a", "");
    QPointer<FolderReader> reader = new FolderReader;
    int slices = 0;
    connect(reader.data(), &FolderReader::entriesRead, [&] {
        ++slices;
        delete reader.data();
    });
    reader->read(folder.path());
    QTRY_VERIFY(!reader);
    QCOMPARE(slices, 1);
    reader = new FolderReader;
    connect(reader.data(), &FolderReader::failed, [&] { delete reader.data(); });
    reader->read("/no/such/folder");
    QTRY_VERIFY(!reader);
}

void FolderReaderTest::theReaderMayReadAnotherFolderInItsSignals()
{
    const DiskFolder first, second;
    first.write("first", "");
    second.write("second", "");
    FolderReader reader;
    connect(&reader, &FolderReader::entriesRead, [&] {
        if (reader.folder() == first.path())
            reader.read(second.path());
    });
    Reading reading(&reader);
    reader.read(first.path());
    QTRY_COMPARE(reading.ends, 1);
    QCOMPARE(reader.folder(), second.path());
    QVERIFY(reading.entries.contains("second"));
    QVERIFY(reading.reasons.isEmpty());
}

void FolderReaderTest::aHundredThousandEntriesComeInSlices()
{
    constexpr int kCount = 100000;
    const DiskFolder folder;
    folder.fill(kCount);
    FolderReader reader;
    Reading reading(&reader);
    int servedEvents = 0;
    QTimer others;
    connect(&others, &QTimer::timeout, [&servedEvents] { ++servedEvents; });
    others.start(0);
    reader.read(folder.path());
    QTRY_COMPARE_WITH_TIMEOUT(reading.ends, 1, 60000);
    QCOMPARE(reading.entries.size(), kCount);
    QVERIFY(reading.slices.size() > 10);
    QVERIFY(servedEvents >= reading.slices.size() - 1);
    const int longest = *std::max_element(reading.slices.cbegin(), reading.slices.cend());
    QVERIFY2(longest < kCount / 4, qPrintable(QString::number(longest)));
}

VEMO_TEST_MAIN_WITH_CHILD(FolderReaderTest, readWithoutRights)
#include "tst_folderreader.moc"
