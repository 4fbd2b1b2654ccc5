// SPDX-License-Identifier: MIT
// The pages of a VemoSideBar, and how the program, the user and a stack choose them.
#include "views/sidebarwindow.h"

#include "support/testhost.h"
#include "support/vemotest.h"

#include <QSignalSpy>
#include <QStackedWidget>

class VemoSideBarTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void isEmptyAtFirst();
    void numbersPagesWithoutHeadings();
    void keepsWhatIsSet();
    void ignoresUnknownNumbers();
    void insertsIntoTheGroupOfTheNextPage();
    void headingRemainsWhileItsGroupHasPages();
    void firstPageIsCurrentAtOnce();
    void reportsEachChangeOnce();
    void insertedPageKeepsTheCurrentOne();
    void removedPageLeavesTheNextOneCurrent_data();
    void removedPageLeavesTheNextOneCurrent();
    void clearLeavesNothing();
    void keysChooseAPage_data();
    void keysChooseAPage();
    void lettersChooseAPage_data();
    void lettersChooseAPage();
    void returnActivatesTheCurrentPage();
    void clickChoosesAnEnabledPage();
    void ctrlClickKeepsTheSelection();
    void draggingChoosesNothing();
    void disabledCurrentPageRemainsCurrent();
    void isOneTabStop();
    void keepsThePageOfTheStack();
    void leavesTheStack();
    void survivesTheStack();
    void mayDieWhenItReports_data();
    void mayDieWhenItReports();
};

namespace {

using Keys = QVector<Qt::Key>;
using Numbers = QVector<int>;
using Cause = void (*)(const SideBarWindow &);

/// What a signal with a number has reported.
Numbers numbersOf(const QSignalSpy &spy)
{
    Numbers numbers;
    for (const QVariantList &arguments : spy)
        numbers.append(arguments.first().toInt());
    return numbers;
}

/// A stack with a page for each one of bar.
void fill(QStackedWidget *stack, const VemoSideBar *bar)
{
    for (int i = 0; i < bar->count(); ++i)
        stack->addWidget(new QWidget);
}

/// The pages with a heading above them, and what they are described by, from top to bottom.
QStringList headings(const SideBarWindow &side)
{
    QStringList texts;
    for (int page = 0; page < side.bar->count(); ++page) {
        if (side.row(page).height() > side.row(0).height())
            texts.append(side.entry(page)->text(QAccessible::Description) + " above "
                + side.bar->pageText(page));
    }
    return texts;
}

} // namespace

Q_DECLARE_METATYPE(Keys)
Q_DECLARE_METATYPE(Cause)

void VemoSideBarTest::isEmptyAtFirst()
{
    VemoSideBar bar;
    QCOMPARE(bar.count(), 0);
    QCOMPARE(bar.currentIndex(), -1);
    QCOMPARE(bar.stack(), nullptr);
    QVERIFY(!bar.isCollapsed());
    QVERIFY(bar.sizeHint().width() >= DPIinfo::scaled(120));
    QCOMPARE(bar.minimumSizeHint(), QSize(DPIinfo::scaled(44), DPIinfo::scaled(56)));
}

void VemoSideBarTest::numbersPagesWithoutHeadings()
{
    const SideBarWindow side;
    QCOMPARE(side.bar->count(), 6);
    QCOMPARE(side.bar->pageText(2), QString("Notifications"));
    QCOMPARE(side.bar->pageText(3), QString("Network"));
    QCOMPARE(side.bar->groupText(0), QString("Advanced"));
    QCOMPARE(side.bar->addGroup("More"), 1);
    QCOMPARE(side.bar->addPage("Last"), 6);
    QCOMPARE(side.bar->insertPage(1, "Second"), 1);
    QCOMPARE(side.bar->insertPage(99, "End"), 8);
    QCOMPARE(side.bar->pageText(4), QString("Network"));
}

void VemoSideBarTest::keepsWhatIsSet()
{
    const SideBarWindow side;
    side.bar->setPageText(1, "<b>Mail</b> & more");
    side.bar->setPageIcon(1, "bt_add");
    side.bar->setPageBadge(1, 3);
    side.bar->setGroupText(0, "Other");
    QCOMPARE(side.bar->pageText(1), QString("<b>Mail</b> & more"));
    QCOMPARE(side.bar->pageIcon(1), QString("bt_add"));
    QCOMPARE(side.bar->pageBadge(1), 3);
    QCOMPARE(side.bar->pageBadge(0), 0);
    QCOMPARE(side.bar->groupText(0), QString("Other"));
    side.bar->setPageBadge(1, -1);
    QCOMPARE(side.bar->pageBadge(1), 0);
    side.bar->setPageIcon(1, {});
    QCOMPARE(side.bar->pageIcon(1), QString());
    QVERIFY(side.bar->isPageEnabled(3));
    QVERIFY(!side.bar->isPageEnabled(4));
}

void VemoSideBarTest::ignoresUnknownNumbers()
{
    const SideBarWindow side;
    for (const int number : {-1, 6}) {
        side.bar->setPageText(number, "x");
        side.bar->setPageIcon(number, "bt_add");
        side.bar->setPageBadge(number, 1);
        side.bar->setPageEnabled(number, false);
        side.bar->setGroupText(number, "x");
        side.bar->removePage(number);
        side.bar->setCurrentIndex(number);
        QCOMPARE(side.bar->pageText(number), QString());
        QCOMPARE(side.bar->pageIcon(number), QString());
        QCOMPARE(side.bar->groupText(number), QString());
        QCOMPARE(side.bar->pageBadge(number), 0);
        QVERIFY(!side.bar->isPageEnabled(number));
    }
    QCOMPARE(side.bar->count(), 6);
    QCOMPARE(side.bar->currentIndex(), 0);
}

void VemoSideBarTest::insertsIntoTheGroupOfTheNextPage()
{
    const SideBarWindow side;
    side.bar->addGroup("Empty");
    QCOMPARE(headings(side), QStringList("Advanced above Network"));
    side.bar->insertPage(3, "Disks");
    QTRY_COMPARE(headings(side), QStringList("Advanced above Disks"));
    side.bar->insertPage(2, "Mail");
    QTRY_COMPARE(headings(side), QStringList("Advanced above Disks"));
    side.bar->addPage("Last");
    QTRY_COMPARE(headings(side), QStringList({"Advanced above Disks", "Empty above Last"}));
}

void VemoSideBarTest::headingRemainsWhileItsGroupHasPages()
{
    const SideBarWindow side;
    side.bar->setGroupText(0, "Other");
    QTRY_COMPARE(headings(side), QStringList("Other above Network"));
    side.bar->removePage(3);
    QTRY_COMPARE(headings(side), QStringList("Other above Proxy"));
    side.bar->removePage(3);
    side.bar->removePage(3);
    QTRY_COMPARE(headings(side), QStringList());
    side.bar->addPage("New");
    QTRY_COMPARE(headings(side), QStringList("Other above New"));
}

void VemoSideBarTest::firstPageIsCurrentAtOnce()
{
    VemoSideBar bar;
    QSignalSpy changed(&bar, &VemoSideBar::currentChanged);
    bar.addGroup("Heading");
    QCOMPARE(bar.currentIndex(), -1);
    bar.addPage("First");
    bar.addPage("Second");
    QCOMPARE(bar.currentIndex(), 0);
    QCOMPARE(numbersOf(changed), Numbers {0});
}

void VemoSideBarTest::reportsEachChangeOnce()
{
    const SideBarWindow side;
    QSignalSpy changed(side.bar, &VemoSideBar::currentChanged);
    side.bar->setCurrentIndex(3);
    side.bar->setCurrentIndex(3);
    side.bar->setCurrentIndex(4); // disabled
    QCOMPARE(side.bar->currentIndex(), 4);
    side.click(0);
    side.click(0);
    QCOMPARE(numbersOf(changed), (Numbers {3, 4, 0}));
}

void VemoSideBarTest::insertedPageKeepsTheCurrentOne()
{
    const SideBarWindow side;
    side.bar->setCurrentIndex(3);
    QSignalSpy changed(side.bar, &VemoSideBar::currentChanged);
    side.bar->insertPage(0, "Before");
    QCOMPARE(side.bar->pageText(side.bar->currentIndex()), QString("Network"));
    QCOMPARE(side.bar->currentIndex(), 4);
    side.bar->removePage(0);
    QCOMPARE(side.bar->currentIndex(), 3);
    QCOMPARE(changed.count(), 0);
}

void VemoSideBarTest::removedPageLeavesTheNextOneCurrent_data()
{
    QTest::addColumn<int>("removed");
    QTest::addColumn<QString>("next");
    addRow("first", 0, QString("Accounts"));
    addRow("before a heading", 2, QString("Network"));
    addRow("before a disabled page", 3, QString("About"));
    addRow("last", 5, QString("Network"));
}

void VemoSideBarTest::removedPageLeavesTheNextOneCurrent()
{
    QFETCH(int, removed);
    QFETCH(QString, next);
    const SideBarWindow side;
    side.bar->setCurrentIndex(removed);
    QSignalSpy changed(side.bar, &VemoSideBar::currentChanged);
    side.bar->removePage(removed);
    QCOMPARE(side.bar->pageText(side.bar->currentIndex()), next);
    QCOMPARE(numbersOf(changed), Numbers {side.bar->currentIndex()});
    QVERIFY(side.hasItsSelection());
}

void VemoSideBarTest::clearLeavesNothing()
{
    const SideBarWindow side;
    QSignalSpy changed(side.bar, &VemoSideBar::currentChanged);
    side.bar->clear();
    side.bar->clear();
    QCOMPARE(side.bar->count(), 0);
    QCOMPARE(side.bar->groupText(0), QString());
    QCOMPARE(side.bar->currentIndex(), -1);
    QCOMPARE(numbersOf(changed), Numbers {-1});
    side.bar->addPage("New");
    QCOMPARE(side.bar->currentIndex(), 0);
    side.bar->removePage(0);
    QCOMPARE(numbersOf(changed), (Numbers {-1, 0, -1}));
}

void VemoSideBarTest::keysChooseAPage_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<int>("last");
    addRow("down", 0, Keys {Qt::Key_Down}, 1);
    addRow("down over a heading", 2, Keys {Qt::Key_Down}, 3);
    addRow("down over a disabled page", 3, Keys {Qt::Key_Down}, 5);
    addRow("down at the end", 5, Keys {Qt::Key_Down}, 5);
    addRow("up over a heading", 3, Keys {Qt::Key_Up}, 2);
    addRow("up over a disabled page", 5, Keys {Qt::Key_Up}, 3);
    addRow("up at the start", 0, Keys {Qt::Key_Up}, 0);
    addRow("end", 0, Keys {Qt::Key_End}, 5);
    addRow("home", 5, Keys {Qt::Key_Home}, 0);
    addRow("page down", 0, Keys {Qt::Key_PageDown}, 5);
    addRow("page up", 5, Keys {Qt::Key_PageUp}, 0);
    addRow("blank", 1, Keys {Qt::Key_Space}, 1);
    addRow("there and back", 1, Keys {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up}, 2);
}

void VemoSideBarTest::keysChooseAPage()
{
    QFETCH(int, first);
    QFETCH(Keys, keys);
    QFETCH(int, last);
    const SideBarWindow side;
    QVERIFY(side.activate());
    side.bar->setCurrentIndex(first);
    for (const Qt::Key key : keys)
        side.press(key);
    QTRY_COMPARE(side.bar->currentIndex(), last);
    QVERIFY(side.hasItsSelection());
}

void VemoSideBarTest::lettersChooseAPage_data()
{
    QTest::addColumn<QString>("letters");
    QTest::addColumn<int>("page");
    addRow("first letters", QString("net"), 3);
    addRow("other case", QString("NET"), 3);
    addRow("next with the letter", QString("a"), 1);
    addRow("heading", QString("adv"), 1);
    addRow("disabled page", QString("prox"), 0);
    addRow("none", QString("x"), 0);
}

void VemoSideBarTest::lettersChooseAPage()
{
    QFETCH(QString, letters);
    const SideBarWindow side;
    QTest::keyClicks(side.list, letters);
    QTEST(side.bar->currentIndex(), "page");
}

void VemoSideBarTest::returnActivatesTheCurrentPage()
{
    const SideBarWindow side;
    QVERIFY(side.activate());
    QSignalSpy activated(side.bar, &VemoSideBar::activated);
    side.bar->setCurrentIndex(3);
    side.press(Qt::Key_Return);
    side.press(Qt::Key_Enter);
    QTRY_COMPARE(numbersOf(activated), (Numbers {3, 3}));
    side.bar->setCurrentIndex(4); // disabled
    QTest::keyClick(side.list, Qt::Key_Return);
    side.bar->clear();
    QTest::keyClick(side.list, Qt::Key_Return);
    QCOMPARE(activated.count(), 2);
}

void VemoSideBarTest::clickChoosesAnEnabledPage()
{
    const SideBarWindow side;
    side.click(1);
    QCOMPARE(side.bar->currentIndex(), 1);
    side.click(side.row(3).topLeft() + QPoint(9, 9)); // the heading
    QCOMPARE(side.bar->currentIndex(), 1);
    side.click(4); // disabled
    QCOMPARE(side.bar->currentIndex(), 1);
    side.click(3);
    QCOMPARE(side.bar->currentIndex(), 3);
    side.click(side.row(5).bottomLeft() + QPoint(5, 9)); // below the last page
    QCOMPARE(side.bar->currentIndex(), 3);
    QTest::mouseClick(side.list->viewport(), Qt::RightButton, {}, side.page(0).center());
    QCOMPARE(side.bar->currentIndex(), 3);
}

void VemoSideBarTest::ctrlClickKeepsTheSelection()
{
    const SideBarWindow side;
    side.click(1);
    side.click(side.page(1).center(), Qt::ControlModifier);
    QVERIFY(side.hasItsSelection());
}

void VemoSideBarTest::draggingChoosesNothing()
{
    const SideBarWindow side;
    QWidget *view = side.list->viewport();
    const QPoint end = side.page(2).center();
    QTest::mousePress(view, Qt::LeftButton, {}, side.page(0).center());
    QMouseEvent move(
        QEvent::MouseMove, end, view->mapToGlobal(end), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(view, &move);
    QTest::mouseRelease(view, Qt::LeftButton, {}, end);
    QCOMPARE(side.bar->currentIndex(), 0);
}

void VemoSideBarTest::disabledCurrentPageRemainsCurrent()
{
    const SideBarWindow side;
    QSignalSpy changed(side.bar, &VemoSideBar::currentChanged);
    side.bar->setPageEnabled(0, false);
    QCOMPARE(side.bar->currentIndex(), 0);
    side.bar->setPageEnabled(0, true);
    QVERIFY(side.hasItsSelection());
    QCOMPARE(changed.count(), 0);
}

void VemoSideBarTest::isOneTabStop()
{
    const SideBarWindow side;
    QVERIFY(side.activate());
    QCOMPARE(QApplication::focusWidget(), side.list);
    side.press(Qt::Key_Tab);
    QTRY_VERIFY(qobject_cast<VemoButton *>(QApplication::focusWidget()));
    side.press(Qt::Key_Tab);
    QTRY_COMPARE(QApplication::focusWidget(), side.list);
    QCOMPARE(side.bar->currentIndex(), 0);
}

void VemoSideBarTest::keepsThePageOfTheStack()
{
    const SideBarWindow side;
    QStackedWidget stack;
    fill(&stack, side.bar);
    stack.setCurrentIndex(1);
    side.bar->setCurrentIndex(2);
    side.bar->setStack(&stack);
    QCOMPARE(side.bar->stack(), &stack);
    QCOMPARE(stack.currentIndex(), 2);
    QSignalSpy changed(side.bar, &VemoSideBar::currentChanged);
    side.click(0);
    QCOMPARE(stack.currentIndex(), 0);
    stack.setCurrentIndex(3);
    QCOMPARE(side.bar->currentIndex(), 3);
    QCOMPARE(numbersOf(changed), (Numbers {0, 3}));

    QScopedPointer<QWidget> removed(stack.widget(3));
    stack.removeWidget(removed.data());
    side.bar->removePage(3);
    QCOMPARE(side.bar->currentIndex(), 4);
    QCOMPARE(stack.currentIndex(), 4);
}

void VemoSideBarTest::leavesTheStack()
{
    const SideBarWindow side;
    QStackedWidget stack;
    QStackedWidget other;
    fill(&stack, side.bar);
    fill(&other, side.bar);
    side.bar->setStack(&stack);
    side.bar->setStack(&other);
    side.bar->setCurrentIndex(2);
    QCOMPARE(stack.currentIndex(), 0);
    QCOMPARE(other.currentIndex(), 2);
    stack.setCurrentIndex(1);
    QCOMPARE(side.bar->currentIndex(), 2);
    side.bar->setStack(nullptr);
    side.bar->setCurrentIndex(1);
    QCOMPARE(other.currentIndex(), 2);
}

void VemoSideBarTest::survivesTheStack()
{
    const SideBarWindow side;
    auto *stack = new QStackedWidget;
    fill(stack, side.bar);
    side.bar->setStack(stack);
    delete stack;
    QCOMPARE(side.bar->stack(), nullptr);
    side.bar->setCurrentIndex(1);
    QCOMPARE(side.bar->currentIndex(), 1);
}

void VemoSideBarTest::mayDieWhenItReports_data()
{
    const QPair<const char *, Cause> causes[] = {
        {"press",
            [](const SideBarWindow &side) {
                QTest::mousePress(side.list->viewport(), Qt::LeftButton, {}, side.page(1).center());
            }},
        {"double click",
            [](const SideBarWindow &side) {
                QTest::mouseDClick(
                    side.list->viewport(), Qt::LeftButton, {}, side.page(1).center());
            }},
        {"key", [](const SideBarWindow &side) { QTest::keyClick(side.list, Qt::Key_Down); }},
        {"letter", [](const SideBarWindow &side) { QTest::keyClick(side.list, Qt::Key_N); }},
        {"Return", [](const SideBarWindow &side) { QTest::keyClick(side.list, Qt::Key_Return); }},
        {"setter", [](const SideBarWindow &side) { side.bar->setCurrentIndex(1); }},
        {"collapsing", [](const SideBarWindow &side) { side.bar->setCollapsed(true); }},
        {"stack", [](const SideBarWindow &side) { side.bar->stack()->setCurrentIndex(1); }},
        {"removed page", [](const SideBarWindow &side) { side.bar->removePage(0); }},
        {"no pages", [](const SideBarWindow &side) { side.bar->clear(); }},
        {"first page",
            [](const SideBarWindow &side) {
                {
                    const QSignalBlocker blocker(side.bar);
                    side.bar->clear();
                }
                side.bar->addPage("First");
            }},
        {"assistive tool",
            [](const SideBarWindow &side) {
                side.entry(1)->actionInterface()->doAction(
                    QAccessibleActionInterface::pressAction());
            }},
    };
    QTest::addColumn<Cause>("cause");
    QTest::addColumn<QString>("victim");
    for (const auto &cause : causes) {
        for (const char *victim : {"bar", "window"})
            addRow(QByteArray(cause.first) + ", " + victim, cause.second, QString(victim));
    }
    addRow("key, page", causes[2].second, QString("page"));
    addRow("key, stack", causes[2].second, QString("stack"));
}

void VemoSideBarTest::mayDieWhenItReports()
{
    QFETCH(Cause, cause);
    QFETCH(QString, victim);
    const SideBarWindow side;
    QPointer<QStackedWidget> stack = new QStackedWidget(side.window);
    fill(stack, side.bar);
    side.bar->setStack(stack);
    bool isKilled = false;
    const auto kill = [&] {
        if (isKilled)
            return;
        isKilled = true;
        if (victim == "bar")
            delete side.bar;
        else if (victim == "window")
            delete side.window;
        else if (victim == "stack")
            delete stack;
        else
            delete stack->widget(1);
    };
    connect(side.bar, &VemoSideBar::currentChanged, this, kill);
    connect(side.bar, &VemoSideBar::activated, this, kill);
    connect(side.bar, &VemoSideBar::collapsedChanged, this, kill);
    cause(side);
    QVERIFY(isKilled);
    QCoreApplication::processEvents();
}

VEMO_TEST_MAIN(VemoSideBarTest)
#include "tst_vemosidebar.moc"
