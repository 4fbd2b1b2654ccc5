// SPDX-License-Identifier: MIT
#include <vemo/itemdelegate.h>

#include "core/scaling_p.h"
#include "support/testhost.h"
#include "support/vemotest.h"
#include "views/itemdelegate_p.h"

#include <vemo/stylemanager.h>

#include <QLineEdit>
#include <QSpinBox>
#include <QTreeWidget>
#include <QValidator>

namespace {

/// A tree whose items are renamed by the delegate.
struct Tree
{
    explicit Tree(const QVariant &name = "Projects")
    {
        delegate.setParent(&widget);
        widget.setItemDelegate(&delegate);
        auto *item = new QTreeWidgetItem(&widget);
        item->setData(0, Qt::EditRole, name);
        item->setFlags(item->flags() | Qt::ItemIsEditable);
        widget.show();
        widget.editItem(item);
    }
    ~Tree() { delegate.setParent(nullptr); }

    QTreeWidgetItem *item() const { return widget.topLevelItem(0); }
    QLineEdit *editor() const { return widget.viewport()->findChild<QLineEdit *>(); }

    QTreeWidget widget;
    ItemDelegate delegate;
};

} // namespace

class ItemDelegateTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void makesRowsOfOneHeight();
    void keepsTheWidthThatTheTextNeeds();
    void acceptsTheNamesThatAFileCanHave_data();
    void acceptsTheNamesThatAFileCanHave();
    void stopsTypingAtACharacterThatNoFileCanHave();
    void stylesTheEditor();
    void fillsTheEditorWithTheWholeName();
    void leavesTheValidatorsToTheirEditor();
    void fillsInOtherEditorsAsTheyAre();
    void reportsEscapeAndClosesTheEditor();
    void reportsNoOtherKey();
    void survivesTheEndOfTheTreeOnEscape();
    void remembersTheCheckBoxDrawnLast();
};

void ItemDelegateTest::initTestCase()
{
    qRegisterMetaType<QKeyEvent *>("QKeyEvent*");
    startDefaultTheme();
}

void ItemDelegateTest::makesRowsOfOneHeight()
{
    QTreeWidget tree;
    ItemDelegate delegate;
    tree.setItemDelegate(&delegate);
    auto *item = new QTreeWidgetItem(&tree, QStringList("two\nlines\nor three"));
    tree.show();
    QCOMPARE(tree.visualItemRect(item).height(), scaled(28));
}

void ItemDelegateTest::keepsTheWidthThatTheTextNeeds()
{
    QTreeWidget tree;
    const auto *item = new QTreeWidgetItem(&tree, QStringList("a rather long name for a folder"));
    Q_UNUSED(item)
    QStyleOptionViewItem option;
    option.font = tree.font();
    option.fontMetrics = tree.fontMetrics();
    const QModelIndex index = tree.model()->index(0, 0);
    const ItemDelegate delegate;
    QCOMPARE(
        delegate.sizeHint(option, index).width(), QItemDelegate().sizeHint(option, index).width());
    QCOMPARE(delegate.sizeHint(option, index).height(), scaled(28));
}

void ItemDelegateTest::acceptsTheNamesThatAFileCanHave_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QValidator::State>("state");
    QTest::newRow("plain") << "a" << QValidator::Acceptable;
    QTest::newRow("full stop inside") << "a.b" << QValidator::Acceptable;
    QTest::newRow("full stop at the end") << "a." << QValidator::Acceptable;
    QTest::newRow("blanks") << " a b " << QValidator::Acceptable;
    QTest::newRow("Chinese") << QString::fromUtf8("资料夹") << QValidator::Acceptable;
    QTest::newRow("right to left") << QString::fromUtf8("שלום") << QValidator::Acceptable;
    QTest::newRow("combining") << QString::fromUtf8("e\xCC\x81") << QValidator::Acceptable;
    QTest::newRow("ampersand and quote") << "a&'b" << QValidator::Acceptable;
    QTest::newRow("4096 characters") << QString(4096, 'a') << QValidator::Acceptable;
    QTest::newRow("empty") << "" << QValidator::Intermediate;
    QTest::newRow("full stop first") << ".a" << QValidator::Invalid;
    for (const char character : {'\\', '/', ':', '*', '?', '"', '<', '>', '|'}) {
        QTest::addRow("%c first", character)
            << QString(QLatin1Char(character)) << QValidator::Invalid;
        QTest::addRow("%c inside", character)
            << QString("a%1b").arg(QLatin1Char(character)) << QValidator::Invalid;
    }
}

void ItemDelegateTest::acceptsTheNamesThatAFileCanHave()
{
    QFETCH(QString, name);
    const Tree tree;
    int position = 0;
    QTEST(tree.editor()->validator()->validate(name, position), "state");
}

void ItemDelegateTest::stopsTypingAtACharacterThatNoFileCanHave()
{
    const Tree tree;
    tree.editor()->clear();
    QTest::keyClicks(tree.editor(), "a/b.c");
    QCOMPARE(tree.editor()->text(), QString("ab.c"));
    tree.editor()->clear();
    QTest::keyClicks(tree.editor(), ".b");
    QCOMPARE(tree.editor()->text(), QString("b"));
    QTest::keyClick(tree.editor(), Qt::Key_Return);
    QTRY_COMPARE(tree.item()->text(0), QString("b"));
}

void ItemDelegateTest::stylesTheEditor()
{
    const Tree tree;
    QCOMPARE(tree.editor()->styleSheet(), getStyleSheet("component.tree_item"));
    QVERIFY(!tree.editor()->testAttribute(Qt::WA_MacShowFocusRect));
    QCOMPARE(tree.editor()->accessibleName(), QString("Projects"));
}

void ItemDelegateTest::fillsTheEditorWithTheWholeName()
{
    const Tree tree;
    QCOMPARE(tree.editor()->text(), QString("Projects"));
    QCOMPARE(tree.editor()->selectedText(), QString("Projects"));
}

void ItemDelegateTest::leavesTheValidatorsToTheirEditor()
{
    const Tree tree;
    const QPointer<const QValidator> first = tree.editor()->validator();
    QVERIFY(first->parent() == tree.editor());
    tree.delegate.setEditorData(tree.editor(), tree.widget.model()->index(0, 0));
    QVERIFY(tree.editor()->validator() != first);
    QVERIFY(first);
    delete tree.editor();
    QVERIFY(!first);
}

void ItemDelegateTest::fillsInOtherEditorsAsTheyAre()
{
    const Tree tree(7);
    auto *editor = tree.widget.viewport()->findChild<QSpinBox *>();
    QVERIFY(editor);
    QCOMPARE(editor->value(), 7);
    QVERIFY(editor->styleSheet().isEmpty());
}

void ItemDelegateTest::reportsEscapeAndClosesTheEditor()
{
    const Tree tree;
    const QPointer<QLineEdit> editor = tree.editor();
    QList<bool> isOpen;
    connect(&tree.delegate, &ItemDelegate::sigKeyPressed, &tree.widget,
        [&](QKeyEvent *event) { isOpen << (event->key() == Qt::Key_Escape && editor); });
    editor->setText("Other");
    QTest::keyClick(editor, Qt::Key_Escape);
    QCOMPARE(isOpen, QList<bool>({true}));
    QTRY_VERIFY(!editor);
    QCOMPARE(tree.item()->text(0), QString("Projects"));
}

void ItemDelegateTest::reportsNoOtherKey()
{
    const Tree tree;
    const QSignalSpy keys(&tree.delegate, SIGNAL(sigKeyPressed(QKeyEvent *)));
    QTest::keyClick(tree.editor(), Qt::Key_A);
    QTest::keyRelease(tree.editor(), Qt::Key_Escape);
    QTest::keyClick(tree.editor(), Qt::Key_Return);
    QCOMPARE(keys.size(), 0);
}

void ItemDelegateTest::survivesTheEndOfTheTreeOnEscape()
{
    auto *tree = new QTreeWidget;
    auto *delegate = new ItemDelegate;
    delegate->setParent(tree);
    tree->setItemDelegate(delegate);
    auto *item = new QTreeWidgetItem(tree, QStringList("Projects"));
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    tree->show();
    tree->editItem(item);
    connect(delegate, &ItemDelegate::sigKeyPressed, qApp, [tree] { delete tree; });
    const QPointer<QTreeWidget> guard(tree);
    QTest::keyPress(tree->viewport()->findChild<QLineEdit *>(), Qt::Key_Escape);
    QVERIFY(!guard);
}

void ItemDelegateTest::remembersTheCheckBoxDrawnLast()
{
    QTreeWidget tree;
    ItemDelegate delegate;
    tree.setItemDelegate(&delegate);
    auto *item = new QTreeWidgetItem(&tree, QStringList("Projects"));
    item->setCheckState(0, Qt::Checked);
    lastCheckRect() = QRect();
    QVERIFY(!tree.grab().isNull());
    QVERIFY(tree.visualItemRect(item).contains(lastCheckRect()));
    QVERIFY(lastCheckRect().isValid());
}

VEMO_TEST_MAIN(ItemDelegateTest)
#include "tst_itemdelegate.moc"
