// SPDX-License-Identifier: MIT
// What becomes of the entries of a folder before they are listed.
#include "examples/filebrowser/files/entryfilter.h"

#include "examples/filebrowser/files/entrysorter.h"

#include "support/vemotest.h"

namespace {

FileEntry entry(const QString &name, bool isFolder = false, const QDateTime &modified = {})
{
    FileEntry entry;
    entry.name = name;
    entry.isFolder = isFolder;
    entry.modified = modified;
    return entry;
}

FileEntry sized(const QString &name, qint64 size)
{
    FileEntry sized = entry(name);
    sized.size = size;
    return sized;
}

QStringList namesOf(const QVector<FileEntry> &entries)
{
    QStringList names;
    for (const FileEntry &entry : entries)
        names += entry.name;
    return names;
}

} // namespace

class EntriesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void anEmptyFilterLetsEverythingPass();
    void theTextIsAnyPartOfTheName_data();
    void theTextIsAnyPartOfTheName();
    void theKindIsThatOfTheSuffix_data();
    void theKindIsThatOfTheSuffix();
    void foldersPassEveryKind();
    void bothMomentsCount_data();
    void bothMomentsCount();
    void anEntryWithoutATimePassesNoDate();
    void allPartsOfTheFilterMustAgree();
    void foldersComeFirst();
    void namesAreOrderedAsPeopleDo();
    void namesThatSortAlikeKeepTheirOrder();
    void aHundredThousandNamesAreSorted();
    void piecesAreSortedAsOne_data();
    void piecesAreSortedAsOne();
    void entriesOfPiecesThatSortAlikeKeepTheirOrder();
    void theSorterIsEmptyOnceTaken();
};

void EntriesTest::anEmptyFilterLetsEverythingPass()
{
    QVERIFY(EntryFilter().isEmpty());
    QVERIFY(EntryFilter().accepts(entry("a")));
    QVERIFY(EntryFilter().accepts(entry(QString(), true)));
}

void EntriesTest::theTextIsAnyPartOfTheName_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("passes");
    addRow("all of it", "Report.txt", true);
    addRow("the start", "Rep", true);
    addRow("the middle", "ort.t", true);
    addRow("another case", "REPORT", true);
    addRow("something else", "repart", false);
    addRow("no wildcard", "*.txt", false);
    addRow("a blank", " ", false);
}

void EntriesTest::theTextIsAnyPartOfTheName()
{
    QFETCH(QString, text);
    QFETCH(bool, passes);
    EntryFilter filter;
    filter.text = text;
    QCOMPARE(filter.accepts(entry("Report.txt")), passes);
    QCOMPARE(filter.accepts(entry("Report.txt", true)), passes);
}

void EntriesTest::theKindIsThatOfTheSuffix_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("passes");
    addRow("its kind", "a.png", "image", true);
    addRow("another case", "a.PNG", "image", true);
    addRow("another kind", "a.png", "video", false);
    addRow("a kind that begins alike", "a.acc", "a", false);
    addRow("the last suffix", "a.tar.gz", "zip", true);
    addRow("an unknown suffix", "a.qqq", "xxx", true);
    addRow("no suffix", "png", "xxx", true);
    addRow("a dot at the end", "png.", "xxx", true);
    addRow("a hidden file", ".png", "image", true);
}

void EntriesTest::theKindIsThatOfTheSuffix()
{
    QFETCH(QString, name);
    QFETCH(QString, kind);
    QFETCH(bool, passes);
    EntryFilter filter;
    filter.kind = kind;
    QCOMPARE(filter.accepts(entry(name)), passes);
}

void EntriesTest::foldersPassEveryKind()
{
    EntryFilter filter;
    filter.kind = "video";
    QVERIFY(filter.accepts(entry("a.png", true)));
}

void EntriesTest::bothMomentsCount_data()
{
    QTest::addColumn<QDateTime>("from");
    QTest::addColumn<QDateTime>("to");
    QTest::addColumn<bool>("passes");
    const QDateTime noon(QDate(2024, 2, 29), QTime(12, 0));
    addRow("that moment", noon, noon, true);
    addRow("from that moment", noon, QDateTime(), true);
    addRow("to that moment", QDateTime(), noon, true);
    addRow("from the next", noon.addMSecs(1), QDateTime(), false);
    addRow("to the one before", QDateTime(), noon.addMSecs(-1), false);
    addRow("around it", noon.addYears(-1), noon.addYears(1), true);
    addRow("the wrong way round", noon.addDays(1), noon.addDays(-1), false);
}

void EntriesTest::bothMomentsCount()
{
    QFETCH(QDateTime, from);
    QFETCH(QDateTime, to);
    QFETCH(bool, passes);
    EntryFilter filter;
    filter.from = from;
    filter.to = to;
    QCOMPARE(filter.isEmpty(), false);
    const QDateTime noon(QDate(2024, 2, 29), QTime(12, 0));
    for (const QDateTime &time : {noon, noon.toUTC()})
        QCOMPARE(filter.accepts(entry("a", false, time)), passes);
}

void EntriesTest::anEntryWithoutATimePassesNoDate()
{
    EntryFilter filter;
    filter.from = QDate(1970, 1, 1).startOfDay();
    QVERIFY(!filter.accepts(entry("a")));
}

void EntriesTest::allPartsOfTheFilterMustAgree()
{
    EntryFilter filter;
    filter.text = "a";
    filter.kind = "image";
    filter.from = QDate(2024, 1, 1).startOfDay();
    const QDateTime late(QDate(2024, 6, 1), QTime(12, 0));
    QVERIFY(filter.accepts(entry("a.png", false, late)));
    QVERIFY(!filter.accepts(entry("b.png", false, late)));
    QVERIFY(!filter.accepts(entry("a.txt", false, late)));
    QVERIFY(!filter.accepts(entry("a.png", false, late.addYears(-1))));
}

void EntriesTest::foldersComeFirst()
{
    QVector<FileEntry> entries {entry("a"), entry("z", true), entry("b"), entry("y", true)};
    sortEntries(entries);
    QCOMPARE(namesOf(entries), QStringList({"y", "z", "a", "b"}));
}

void EntriesTest::namesAreOrderedAsPeopleDo()
{
    const QStringList ordered {"2 b", "10 a", "apple", "Banana", QString::fromUtf8("Ägypten") + "x",
        "cherry", "file 2", "file 10"};
    QVector<FileEntry> entries;
    for (const QString &name : ordered)
        entries.prepend(entry(name));
    sortEntries(entries);
    QCOMPARE(namesOf(entries),
        QStringList({"2 b", "10 a", QString::fromUtf8("Ägypten") + "x", "apple", "Banana", "cherry",
            "file 2", "file 10"}));
}

void EntriesTest::namesThatSortAlikeKeepTheirOrder()
{
    QVector<FileEntry> entries {entry("same"), entry("same"), entry("same")};
    for (int i = 0; i < entries.size(); ++i)
        entries[i].size = i;
    sortEntries(entries);
    for (int i = 0; i < entries.size(); ++i)
        QCOMPARE(entries.at(i).size, i);
}

void EntriesTest::aHundredThousandNamesAreSorted()
{
    constexpr int kCount = 100000;
    QVector<FileEntry> entries;
    for (int i = 0; i < kCount; ++i)
        entries += entry("file " + QString::number((i * 7919LL) % kCount));
    sortEntries(entries);
    QCOMPARE(entries.size(), kCount);
    for (int i = 0; i < kCount; ++i)
        QCOMPARE(entries.at(i).name, "file " + QString::number(i));
}

void EntriesTest::piecesAreSortedAsOne_data()
{
    QTest::addColumn<int>("pieceLength");
    for (const int length : {1, 2, 3, 7, 64, 1000})
        QTest::addRow("pieces of %d", length) << length;
}

void EntriesTest::piecesAreSortedAsOne()
{
    QFETCH(const int, pieceLength);
    constexpr int kCount = 300;
    // 7 and 300 have no common divisor, so that each number comes once.
    QVector<FileEntry> entries;
    for (int i = 0; i < kCount; ++i)
        entries += entry(QString("file %1").arg(i * 7 % kCount), i % 10 == 0);
    EntrySorter sorter;
    for (int i = 0; i < kCount; i += pieceLength)
        sorter.add(entries.mid(i, pieceLength));
    QCOMPARE(sorter.count(), kCount);

    QVector<int> folders;
    QVector<int> files;
    for (int i = 0; i < kCount; ++i)
        (i % 10 == 0 ? folders : files) << i * 7 % kCount;
    std::sort(folders.begin(), folders.end());
    std::sort(files.begin(), files.end());
    QStringList expected;
    for (const int number : folders + files)
        expected << QString("file %1").arg(number);
    QCOMPARE(namesOf(sorter.take()), expected);
}

void EntriesTest::entriesOfPiecesThatSortAlikeKeepTheirOrder()
{
    EntrySorter sorter;
    constexpr int kCount = 20;
    for (int i = 0; i < kCount; ++i)
        sorter.add({sized("same", i)});
    const QVector<FileEntry> sorted = sorter.take();
    for (int i = 0; i < kCount; ++i)
        QCOMPARE(sorted.at(i).size, qint64(i));
}

void EntriesTest::theSorterIsEmptyOnceTaken()
{
    EntrySorter sorter;
    QVERIFY(sorter.take().isEmpty());
    sorter.add({entry("a")});
    QCOMPARE(sorter.take().size(), 1);
    QCOMPARE(sorter.count(), 0);
    sorter.add({entry("b")});
    QCOMPARE(namesOf(sorter.take()), QStringList("b"));
}

VEMO_TEST_MAIN(EntriesTest)
#include "tst_entries.moc"
