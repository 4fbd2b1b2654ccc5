// SPDX-License-Identifier: MIT
#include "examples/filebrowser/files/entrysorter.h"

#include "support/vemotest.h"

namespace {

FileEntry entry(const QString &name, bool isFolder = false, qint64 size = 0)
{
    FileEntry result;
    result.name = name;
    result.isFolder = isFolder;
    result.size = size;
    return result;
}

QStringList namesOf(const QVector<FileEntry> &entries)
{
    QStringList names;
    for (const FileEntry &one : entries)
        names << one.name;
    return names;
}

} // namespace

class EntrySorterTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void sortsPiecesAsOne_data();
    void sortsPiecesAsOne();
    void keepsTheOrderOfWhatSortsAlike();
    void isEmptyAfterItWasTaken();
};

void EntrySorterTest::sortsPiecesAsOne_data()
{
    QTest::addColumn<int>("pieceLength");
    for (const int length : {1, 2, 3, 7, 64, 1000})
        QTest::addRow("pieces of %d", length) << length;
}

void EntrySorterTest::sortsPiecesAsOne()
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

void EntrySorterTest::keepsTheOrderOfWhatSortsAlike()
{
    EntrySorter sorter;
    constexpr int kCount = 20;
    for (int i = 0; i < kCount; ++i)
        sorter.add({entry("same", false, i)});
    const QVector<FileEntry> sorted = sorter.take();
    for (int i = 0; i < kCount; ++i)
        QCOMPARE(sorted.at(i).size, qint64(i));
}

void EntrySorterTest::isEmptyAfterItWasTaken()
{
    EntrySorter sorter;
    QVERIFY(sorter.take().isEmpty());
    sorter.add({entry("a")});
    QCOMPARE(sorter.take().size(), 1);
    QCOMPARE(sorter.count(), 0);
    sorter.add({entry("b")});
    QCOMPARE(namesOf(sorter.take()), QStringList("b"));
}

VEMO_TEST_MAIN(EntrySorterTest)
#include "tst_entrysorter.moc"
