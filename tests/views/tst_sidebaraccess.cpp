// SPDX-License-Identifier: MIT
// What assistive tools read of a VemoSideBar and do with it.
#include "views/sidebarwindow.h"

#include "support/testhost.h"
#include "support/vemotest.h"

#include <QLabel>
#include <QSignalSpy>

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

class SideBarAccessTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void isAnnounced();
    void isAnnouncedInItsLocale();
    void announcesTheFocusedPage_data();
    void announcesTheFocusedPage();
    void assistiveToolsChooseAPage();
    void pagesAreFoundByTheirPlace();
    void entriesFollowThePages();
    void labelNamesTheList();
};

namespace {

QStringList announced;

void record(QAccessibleEvent *event)
{
    const QAccessibleInterface *part = event->accessibleInterface();
    if (event->type() == QAccessible::Focus && part)
        announced += part->text(QAccessible::Name);
}

} // namespace

void SideBarAccessTest::initTestCase()
{
    startDefaultTheme();
    // As if a screen reader were running.
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
    QAccessible::installUpdateHandler(record);
}

void SideBarAccessTest::isAnnounced()
{
    const SideBarWindow side;
    QAccessibleInterface *list = QAccessible::queryAccessibleInterface(side.list);
    QCOMPARE(list->role(), QAccessible::List);
    QCOMPARE(list->text(QAccessible::Name), QString("Pages"));
    QCOMPARE(list->childCount(), 6); // no headings
    QCOMPARE(side.entry(1)->role(), QAccessible::ListItem);
    QCOMPARE(side.entry(1)->text(QAccessible::Name), QString("Accounts"));
    QCOMPARE(side.entry(1)->text(QAccessible::Description), QString());
    side.bar->setPageBadge(1, 3);
    QCOMPARE(side.entry(1)->text(QAccessible::Name), QString("Accounts, 3"));
    for (const int page : {3, 4, 5})
        QCOMPARE(side.entry(page)->text(QAccessible::Description), QString("Advanced"));
    QVERIFY(side.entry(4)->state().disabled);
    QVERIFY(!side.entry(3)->state().disabled);
    QVERIFY(side.entry(0)->state().selected);
    side.bar->setCurrentIndex(1);
    QVERIFY(!side.entry(0)->state().selected);
    QVERIFY(side.entry(1)->state().selected);
    QVERIFY(side.entry(1)->state().selectable);
}

void SideBarAccessTest::isAnnouncedInItsLocale()
{
    const SideBarWindow side;
    const QLocale egypt(QLocale::Arabic, QLocale::Egypt);
    side.bar->setPageBadge(1, 3);
    side.bar->setLocale(egypt);
    QCOMPARE(side.entry(1)->text(QAccessible::Name), QString("Accounts, ") + egypt.toString(3));
}

void SideBarAccessTest::announcesTheFocusedPage_data()
{
    QTest::addColumn<bool>("collapsed");
    addRow("with texts", false);
    addRow("collapsed", true);
}

void SideBarAccessTest::announcesTheFocusedPage()
{
    QFETCH(bool, collapsed);
    const SideBarWindow side;
    QVERIFY(side.activate());
    side.bar->setCollapsed(collapsed);
    side.bar->setCurrentIndex(2);
    announced.clear();
    QTest::keyClick(side.list, Qt::Key_Down);
    QCOMPARE(announced, QStringList("Network"));
}

void SideBarAccessTest::assistiveToolsChooseAPage()
{
    const SideBarWindow side;
    QSignalSpy changed(side.bar, &VemoSideBar::currentChanged);
    const auto press = [&side](int page) {
        side.entry(page)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    };
    press(3);
    QVERIFY(side.hasItsSelection());
    press(4); // disabled
    QCOMPARE(side.bar->currentIndex(), 3);
    side.bar->setEnabled(false);
    press(0);
    QCOMPARE(changed, (QList<QVariantList> {{3}}));
}

void SideBarAccessTest::pagesAreFoundByTheirPlace()
{
    const SideBarWindow side;
    QVERIFY(side.activate());
    QAccessibleInterface *list = QAccessible::queryAccessibleInterface(side.list);
    const auto at = [&](const QPoint &point) {
        const QPoint global = side.list->viewport()->mapToGlobal(point);
        return list->childAt(global.x(), global.y());
    };
    QCOMPARE(at(side.page(3).center()), side.entry(3));
    QCOMPARE(at(side.row(3).topLeft() + QPoint(9, 9)), nullptr); // the heading
    QCOMPARE(list->indexOfChild(side.entry(3)), 3);
    QCOMPARE(side.entry(3)->rect().size(), side.page(3).size());
    QCOMPARE(side.entry(3)->parent(), list);
    QCOMPARE(list->focusChild(), side.entry(0));
}

void SideBarAccessTest::entriesFollowThePages()
{
    const SideBarWindow side;
    QAccessibleInterface *last = side.entry(5);
    side.bar->removePage(0);
    QCOMPARE(side.entry(0)->text(QAccessible::Name), QString("Accounts"));
    QVERIFY(!last->isValid());
    QCOMPARE(last->text(QAccessible::Name), QString());
    side.bar->addPage("New");
    QCOMPARE(last->text(QAccessible::Name), QString("New"));
}

void SideBarAccessTest::labelNamesTheList()
{
    const SideBarWindow side;
    side.bar->setAccessibleName({});
    QLabel caption("&Settings", side.window);
    caption.setBuddy(side.bar);
    QCOMPARE(QAccessible::queryAccessibleInterface(side.list)->text(QAccessible::Name),
        QString("Settings"));
}

VEMO_TEST_MAIN(SideBarAccessTest)
#include "tst_sidebaraccess.moc"
