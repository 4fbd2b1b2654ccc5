// SPDX-License-Identifier: MIT
#include <vemo/filesystemtreewidgetitem.h>

#include "support/vemotest.h"

#include <QTreeWidget>

#include <limits>
#include <type_traits>

namespace {

FileSystemTreeWidgetItem itemWith(const QString &text, const QString &path)
{
    FileSystemTreeWidgetItem item;
    item.setText(0, text);
    item.setPath(path);
    return item;
}

/// An item class of a host.
class HostItem : public FileSystemTreeWidgetItem
{
};

FileSystemTreeWidgetItem removedFolder()
{
    FileSystemTreeWidgetItem item = itemWith("Projects", "home/projects");
    item.setBelongViewId(std::numeric_limits<unsigned long long>::max());
    item.setNodeId(7);
    item.setFake(true);
    item.setRemoved(true);
    item.setRO(true);
    item.setFakeChildExist(true);
    item.setTreeWidgetItemStatus(FileSystemTreeWidgetItem::FAILED);
    return item;
}

void compareWithRemovedFolder(const FileSystemTreeWidgetItem &item)
{
    QCOMPARE(item.text(0), QString("Projects"));
    QCOMPARE(item.getPath(), QString("home/projects"));
    QCOMPARE(item.getBelongViewId(), std::numeric_limits<unsigned long long>::max());
    QCOMPARE(item.getNodeId(), 7ULL);
    QVERIFY(item.isFake());
    QVERIFY(item.isRemoved());
    QVERIFY(item.getRO());
    QVERIFY(item.isFakeChildExist());
    QCOMPARE(item.getTreeWidgetItemStatus(), FileSystemTreeWidgetItem::FAILED);
}

} // namespace

class FileSystemTreeWidgetItemTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsAsAnUnknownNode();
    void copiesAndMovesAllItsFields();
    void leavesAMovedItemAsItWas();
    void setsEachFieldAlone();
    void leavesTheRowAsItIs();
    void putsHomeBehindNothing_data();
    void putsHomeBehindNothing();
    void comparesWithOtherKindsByText();
    void sortsATreeOfAllKinds();
};

void FileSystemTreeWidgetItemTest::startsAsAnUnknownNode()
{
    const FileSystemTreeWidgetItem item;
    QCOMPARE(item.type(), int(QTreeWidgetItem::Type));
    QVERIFY(item.getPath().isEmpty());
    QVERIFY(!item.isFake());
    QVERIFY(!item.isRemoved());
    QVERIFY(!item.getRO());
    QVERIFY(!item.isFakeChildExist());
    QCOMPARE(int(item.getTreeWidgetItemStatus()), 0);
    QCOMPARE(sizeof(item.getTreeWidgetItemStatus()), sizeof(int));
}

void FileSystemTreeWidgetItemTest::copiesAndMovesAllItsFields()
{
    const FileSystemTreeWidgetItem item = removedFolder();
    FileSystemTreeWidgetItem copy(item);
    compareWithRemovedFolder(copy);
    const FileSystemTreeWidgetItem moved(std::move(copy));
    compareWithRemovedFolder(moved);
    FileSystemTreeWidgetItem assigned;
    assigned = item;
    compareWithRemovedFolder(assigned);
    FileSystemTreeWidgetItem moveAssigned;
    moveAssigned = std::move(assigned);
    compareWithRemovedFolder(moveAssigned);
}

void FileSystemTreeWidgetItemTest::leavesAMovedItemAsItWas()
{
    QTreeWidget tree;
    auto *item = new FileSystemTreeWidgetItem(removedFolder());
    tree.addTopLevelItem(item);
    const FileSystemTreeWidgetItem moved(std::move(*item));
    compareWithRemovedFolder(*item);
    FileSystemTreeWidgetItem assigned;
    assigned = std::move(*item);
    compareWithRemovedFolder(*item);
    QCOMPARE(tree.topLevelItem(0), item);
}

void FileSystemTreeWidgetItemTest::setsEachFieldAlone()
{
    FileSystemTreeWidgetItem item;
    const auto flags = [&item] {
        return QList<bool> {item.isFake(), item.isRemoved(), item.getRO(), item.isFakeChildExist()};
    };
    item.setFake(true);
    QCOMPARE(flags(), QList<bool>({true, false, false, false}));
    item.setFake(false);
    item.setRemoved(true);
    QCOMPARE(flags(), QList<bool>({false, true, false, false}));
    item.setRemoved(false);
    item.setRO(true);
    QCOMPARE(flags(), QList<bool>({false, false, true, false}));
    item.setRO(false);
    item.setFakeChildExist(true);
    QCOMPARE(flags(), QList<bool>({false, false, false, true}));
    item.setNodeId(3);
    item.setBelongViewId(4);
    QCOMPARE(item.getNodeId(), 3ULL);
    QCOMPARE(item.getBelongViewId(), 4ULL);
}

void FileSystemTreeWidgetItemTest::leavesTheRowAsItIs()
{
    QTreeWidget tree;
    auto *item = new FileSystemTreeWidgetItem(itemWith("Projects", "home/projects"));
    tree.addTopLevelItem(item);
    const QSignalSpy changes(tree.model(), SIGNAL(dataChanged(QModelIndex, QModelIndex)));
    item->setPath("home");
    item->setRemoved(true);
    item->setRO(true);
    item->setFake(true);
    item->setTreeWidgetItemStatus(FileSystemTreeWidgetItem::LOADING);
    QCOMPARE(changes.size(), 0);
    QCOMPARE(item->text(0), QString("Projects"));
    QVERIFY(item->icon(0).isNull());
    QVERIFY(!item->data(0, Qt::CheckStateRole).isValid());
}

void FileSystemTreeWidgetItemTest::putsHomeBehindNothing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("otherText");
    QTest::addColumn<QString>("otherPath");
    QTest::addColumn<bool>("isLess");
    addRow("before", "a", "x/a", "b", "x/b", true);
    addRow("after", "b", "x/b", "a", "x/a", false);
    addRow("same text", "a", "x/a", "a", "y/a", false);
    addRow("before home", "a", "x/a", "zz", "home", false);
    addRow("after home", "zz", "x/zz", "a", "home", false);
    addRow("home before", "a", "home", "b", "x/b", true);
    addRow("home after, by its own text", "zz", "home", "b", "x/b", false);
    addRow("home and home", "a", "home", "b", "home", false);
    addRow("Home is not home", "a", "x/a", "b", "Home", true);
    addRow("in home is not home", "a", "x/a", "b", "home/b", true);
    addRow("no path", "a", "", "b", "", true);
}

void FileSystemTreeWidgetItemTest::putsHomeBehindNothing()
{
    QFETCH(QString, text);
    QFETCH(QString, path);
    QFETCH(QString, otherText);
    QFETCH(QString, otherPath);
    const FileSystemTreeWidgetItem item = itemWith(text, path);
    const FileSystemTreeWidgetItem other = itemWith(otherText, otherPath);
    QTEST(item < other, "isLess");
}

void FileSystemTreeWidgetItemTest::comparesWithOtherKindsByText()
{
    const FileSystemTreeWidgetItem item = itemWith("b", "home");
    const QTreeWidgetItem before(QStringList("a"));
    const QTreeWidgetItem after(QStringList("home"));
    QVERIFY(!(item < before));
    QVERIFY(item < after);
    HostItem home;
    home.setText(0, "zz");
    home.setPath("home");
    QVERIFY(!(item < home));
}

void FileSystemTreeWidgetItemTest::sortsATreeOfAllKinds()
{
    QTreeWidget tree;
    for (const char *text : {"c", "a", "e"})
        tree.addTopLevelItem(new QTreeWidgetItem(QStringList(text)));
    for (const char *text : {"d", "b"})
        tree.addTopLevelItem(new FileSystemTreeWidgetItem(itemWith(text, text)));
    auto *hostItem = new HostItem;
    hostItem->setText(0, "f");
    tree.addTopLevelItem(hostItem);
    tree.sortItems(0, Qt::AscendingOrder);
    QString order;
    for (int row = 0; row < tree.topLevelItemCount(); ++row)
        order += tree.topLevelItem(row)->text(0);
    QCOMPARE(order, QString("abcdef"));
}

VEMO_TEST_MAIN(FileSystemTreeWidgetItemTest)
#include "tst_filesystemtreewidgetitem.moc"
