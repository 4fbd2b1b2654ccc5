// SPDX-License-Identifier: MIT
#include <vemo/vemodateselector.h>

#include "core/scaling_p.h"
#include "datetime/calendar.h"
#include "support/activewindow.h"
#include "support/eventcounter.h"
#include "support/testhost.h"

#include <vemo/mousebuttonfilter.h>
#include <vemo/stylemanager.h>

#include <QAccessible>
#include <QLineEdit>
#include <QListView>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

const QString kPlaceholder = QStringLiteral("Any date");

/// A selector between two fields, in an active window.
struct Form
{
    explicit Form(int width = 200)
    {
        window.resize(scaled(420), scaled(160));
        window.move(100, 60);
        selector->setFixedWidth(scaled(width));
        selector->move(scaled(10), scaled(10));
        before.move(0, scaled(60));
        after.move(0, scaled(110));
        isActive = showActive(&window);
    }
    QWidget *popup() const { return selector->view()->parentWidget(); }
    bool isOpen() const { return popup()->isVisible(); }
    void press(Qt::Key key) const { QTest::keyClick(QApplication::focusWidget(), key); }
    /// Opens the calendar by a click, and shows a month in it.
    void open(int year = 2024, int month = 3) const
    {
        QTest::mouseClick(selector, Qt::LeftButton);
        QVERIFY(QTest::qWaitForWindowExposed(popup()));
        QVERIFY(isOpen());
        selector->getCalendarView()->setCurrentPage(year, month);
    }

    QWidget window;
    QLineEdit before {&window};
    VemoDateSelector *selector = new VemoDateSelector(kPlaceholder, &window);
    QLineEdit after {&window};
    Parts parts {selector->view()};
    bool isActive = false;
};

bool ignoresReleases(const QWidget *widget)
{
    const QObjectList children = widget->children();
    return std::any_of(children.begin(), children.end(),
        [](QObject *child) { return dynamic_cast<MouseReleaseFilter *>(child); });
}

bool showsNoDate(const VemoDateSelector &selector)
{
    const QVariant data = selector.currentData();
    return selector.count() == 1 && selector.currentText() == kPlaceholder
        && data.userType() == QMetaType::QDate && data.toDate().isNull();
}

bool shows(const VemoDateSelector &selector, const QDate &date)
{
    return selector.count() == 1 && selector.currentIndex() == 0
        && selector.currentText() == date.toString(Qt::ISODate)
        && selector.currentData() == QVariant(date);
}

} // namespace

class VemoDateSelectorTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void startsWithItsPlaceholder();
    void isAnnouncedByTheNameThatItIsGiven();
    void takesACalendarForItsList();
    void joinsTwoStyles();
    void opensTheWholeCalendar_data();
    void opensTheWholeCalendar();
    void paintsEveryPartOnceEachTimeItOpens();
    void showsADate_data();
    void showsADate();
    void showsThePlaceholderForNoDate();
    void leavesAnOpenCalendarOpenForNoDate();
    void clearsItsDate();
    void closesThroughTheVirtual();
    void picksADayByMouse();
    void picksADayByReturn();
    void picksTodayByItsButton_data();
    void picksTodayByItsButton();
    void staysOpenWhileItIsPaged();
    void staysOpenOnClicksOnNothing();
    void closesWithoutADate_data();
    void closesWithoutADate();
    void keepsItsDateAgainstWheelAndKeys_data();
    void keepsItsDateAgainstWheelAndKeys();
    void walksTheRingInItsPopup_data();
    void walksTheRingInItsPopup();
    void survivesItsDeletionWhileOpen_data();
    void survivesItsDeletionWhileOpen();
};

void VemoDateSelectorTest::startsWithItsPlaceholder()
{
    QWidget parent;
    VemoDateSelector selector(kPlaceholder, &parent);
    QCOMPARE(selector.metaObject()->className(), "VemoDateSelector");
    QCOMPARE(selector.parentWidget(), &parent);
    QVERIFY(!selector.isEditable());
    QVERIFY(showsNoDate(selector));
    QCOMPARE(selector.currentIndex(), 0);
    QVERIFY(selector.itemIcon(0).isNull());
    QCOMPARE(VemoDateSelector(QString(), nullptr).currentText(), QString());
}

void VemoDateSelectorTest::isAnnouncedByTheNameThatItIsGiven()
{
    VemoDateSelector selector("Any day");
    selector.setAccessibleName("From");
    selector.setToolTip("<b>First</b> day");
    const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&selector);
    QCOMPARE(accessible->role(), QAccessible::ComboBox);
    QCOMPARE(accessible->text(QAccessible::Name), QString("From"));
    QCOMPARE(accessible->text(QAccessible::Value), QString("Any day"));
    QCOMPARE(accessible->text(QAccessible::Description), QString("First day"));
}

void VemoDateSelectorTest::takesACalendarForItsList()
{
    VemoDateSelector selector(kPlaceholder, nullptr);
    QCOMPARE(selector.view(), selector.getCalendarView());
    QCOMPARE(selector.view()->minimumSize(), QSize(scaled(280), scaled(260)));
    QCOMPARE(selector.view()->maximumSize(), QSize(scaled(280), scaled(260)));
    QCOMPARE(selector.minimumHeight(), scaled(32));
    QCOMPARE(selector.maximumHeight(), scaled(32));
    const QPointer<VemoCalanderView> view(selector.getCalendarView());
    selector.setView(new QListView);
    QVERIFY(!view);
}

void VemoDateSelectorTest::joinsTwoStyles()
{
    const VemoDateSelector selector(kPlaceholder, nullptr);
    QCOMPARE(selector.styleSheet(),
        getStyleSheet("component.date_selector") + getStyleSheet("component.menu"));
}

void VemoDateSelectorTest::opensTheWholeCalendar_data()
{
    QTest::addColumn<int>("width");
    QTest::newRow("narrow field") << 120;
    QTest::newRow("wide field") << 400;
}

void VemoDateSelectorTest::opensTheWholeCalendar()
{
    QFETCH(int, width);
    const Form form(width);
    QVERIFY(form.isActive);
    form.open();
    QCOMPARE(form.popup()->size(), form.selector->view()->size());
    QCOMPARE(form.popup()->size(), QSize(scaled(280), scaled(260)));
    const QRect view = form.selector->view()->rect();
    for (const QWidget *part : {static_cast<QWidget *>(form.parts.previous),
             static_cast<QWidget *>(form.parts.next), static_cast<QWidget *>(form.parts.month),
             static_cast<QWidget *>(form.parts.year), static_cast<QWidget *>(form.parts.weekdays),
             static_cast<QWidget *>(form.parts.grid), static_cast<QWidget *>(form.parts.today)}) {
        const QRect place(part->mapTo(form.selector->view(), QPoint(0, 0)), part->size());
        QVERIFY2(view.contains(place), qPrintable(part->objectName()));
        QVERIFY2(part->height() >= part->minimumSizeHint().height()
                || part->minimumHeight() == part->maximumHeight(),
            qPrintable(part->objectName()));
    }
    const QAbstractItemModel *days = form.parts.grid->model();
    const QRect last =
        form.parts.grid->visualRect(days->index(days->rowCount() - 1, days->columnCount() - 1));
    QVERIFY(form.parts.grid->viewport()->rect().contains(last));
    QVERIFY(!last.isEmpty());
    QVERIFY(form.parts.cell(1).height() >= form.parts.grid->fontMetrics().height());
    form.selector->hidePopup();
}

void VemoDateSelectorTest::paintsEveryPartOnceEachTimeItOpens()
{
    const Form form;
    QVERIFY(form.isActive);
    std::vector<std::unique_ptr<EventCounter>> counters;
    for (QWidget *part : {form.popup(), form.selector->view()->viewport(), form.parts.bar,
             static_cast<QWidget *>(form.parts.month), form.parts.weekdays->viewport(),
             form.parts.grid->viewport(), static_cast<QWidget *>(form.parts.today)})
        counters.push_back(std::make_unique<EventCounter>(part, QEvent::Paint));
    for (int opening = 1; opening <= 3; ++opening) {
        form.selector->dateSelect({2024, opening, 7});
        form.selector->showPopup();
        QVERIFY(QTest::qWaitForWindowExposed(form.popup()));
        for (const auto &counter : counters)
            QTRY_COMPARE(counter->count(), opening);
        form.selector->hidePopup();
        QCoreApplication::processEvents();
    }
}

void VemoDateSelectorTest::showsADate_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("text");
    QTest::newRow("noughts in front") << QDate(2024, 3, 7) << "2024-03-07";
    QTest::newRow("leap day") << QDate(2024, 2, 29) << "2024-02-29";
    QTest::newRow("first year") << QDate(1, 1, 1) << "0001-01-01";
    QTest::newRow("last of four digits") << QDate(9999, 12, 31) << "9999-12-31";
}

void VemoDateSelectorTest::showsADate()
{
    QFETCH(QDate, date);
    VemoDateSelector selector(kPlaceholder, nullptr);
    QSignalSpy changes(&selector, SIGNAL(currentIndexChanged(int)));
    selector.dateSelect(date);
    QTEST(selector.currentText(), "text");
    QVERIFY(selector.count() == 1 && selector.currentData() == QVariant(date));
    const Parts parts(selector.view());
    QCOMPARE(parts.calendar->yearShown(), date.year());
    QCOMPARE(parts.calendar->monthShown(), date.month());
    QCOMPARE(changes.size(), 2);
    QCOMPARE(changes[0][0].toInt(), -1);
    QCOMPARE(changes[1][0].toInt(), 0);
}

void VemoDateSelectorTest::showsThePlaceholderForNoDate()
{
    for (const QDate &none : {QDate(), QDate(2023, 2, 29)}) {
        VemoDateSelector selector(kPlaceholder, nullptr);
        selector.dateSelect({2024, 3, 7});
        selector.dateSelect(none);
        QVERIFY(showsNoDate(selector));
        QCOMPARE(Parts(selector.view()).calendar->monthShown(), 3);
        QCOMPARE(Parts(selector.view()).calendar->yearShown(), 2024);
    }
}

void VemoDateSelectorTest::leavesAnOpenCalendarOpenForNoDate()
{
    const Form form;
    QVERIFY(form.isActive);
    form.open();
    form.selector->dateSelect(QDate());
    QVERIFY(form.isOpen());
    form.selector->clearDate();
    QVERIFY(form.isOpen());
    form.selector->dateSelect({2024, 3, 7});
    QVERIFY(!form.isOpen());
}

void VemoDateSelectorTest::clearsItsDate()
{
    VemoDateSelector selector(kPlaceholder, nullptr);
    selector.dateSelect({2001, 1, 7});
    selector.clearDate();
    QVERIFY(showsNoDate(selector));
    QCOMPARE(selector.currentIndex(), 0);
    const QDate today = QDate::currentDate();
    QCOMPARE(Parts(selector.view()).calendar->yearShown(), today.year());
    QCOMPARE(Parts(selector.view()).calendar->monthShown(), today.month());
}

void VemoDateSelectorTest::closesThroughTheVirtual()
{
    struct Counting : VemoDateSelector
    {
        using VemoDateSelector::VemoDateSelector;
        void hidePopup() override { ++closed; }
        int closed = 0;
    };
    Counting selector(kPlaceholder, nullptr);
    selector.dateSelect(QDate());
    selector.clearDate();
    QCOMPARE(selector.closed, 0);
    selector.dateSelect({2024, 3, 7});
    QCOMPARE(selector.closed, 1);
}

void VemoDateSelectorTest::picksADayByMouse()
{
    const Form form;
    QVERIFY(form.isActive);
    const QSignalSpy picks(form.selector->getCalendarView(), SIGNAL(sigDateSelect(QDate)));
    form.open();
    form.parts.clickDay(7);
    QVERIFY(!form.isOpen());
    QVERIFY(shows(*form.selector, {2024, 3, 7}));
    QCOMPARE(picks.size(), 1);
    form.open(2024, 3);
    form.parts.clickDay(8);
    QVERIFY(shows(*form.selector, {2024, 3, 8}));
}

void VemoDateSelectorTest::picksADayByReturn()
{
    const Form form;
    QVERIFY(form.isActive);
    form.open();
    form.parts.calendar->setSelectedDate({2024, 3, 6});
    form.parts.grid->setFocus();
    form.press(Qt::Key_Right);
    QVERIFY(form.isOpen());
    form.press(Qt::Key_Return);
    QVERIFY(!form.isOpen());
    QVERIFY(shows(*form.selector, {2024, 3, 7}));
}

void VemoDateSelectorTest::picksTodayByItsButton_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("mouse") << true;
    QTest::newRow("keyboard") << false;
}

void VemoDateSelectorTest::picksTodayByItsButton()
{
    QFETCH(bool, byMouse);
    const Form form;
    QVERIFY(form.isActive);
    form.open();
    if (byMouse) {
        QTest::mouseClick(form.parts.today, Qt::LeftButton);
    } else {
        form.parts.today->setFocus();
        form.press(Qt::Key_Space);
    }
    QVERIFY(!form.isOpen());
    QVERIFY(shows(*form.selector, QDate::currentDate()));
}

void VemoDateSelectorTest::staysOpenWhileItIsPaged()
{
    const Form form;
    QVERIFY(form.isActive);
    form.open();
    QTest::mouseClick(form.parts.next, Qt::LeftButton);
    QTest::mouseClick(form.parts.previous, Qt::LeftButton);
    form.parts.pickMonth(11);
    QVERIFY(form.isOpen());
    QCOMPARE(form.parts.month->text(), QString("November"));
    QTest::mouseClick(form.parts.year, Qt::LeftButton);
    QVERIFY(form.parts.yearEdit->isVisible());
    for (const char digit : {'1', '9', '9', '9'})
        QTest::keyClick(QApplication::focusWidget(), digit);
    form.press(Qt::Key_Return);
    QVERIFY(form.isOpen());
    QCOMPARE(form.parts.calendar->yearShown(), 1999);
    QVERIFY(showsNoDate(*form.selector));
    form.parts.clickDay(30);
    QVERIFY(shows(*form.selector, {1999, 11, 30}));
}

void VemoDateSelectorTest::staysOpenOnClicksOnNothing()
{
    const Form form;
    QVERIFY(form.isActive);
    // Not by a click, after which a combo box ignores releases during the double click interval.
    form.selector->showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(form.popup()));
    form.selector->getCalendarView()->setCurrentPage(2024, 3);
    const auto *view = form.selector->view();
    QVERIFY(ignoresReleases(view) && ignoresReleases(view->viewport()));
    form.selector->getCalendarView()->setMaximumDate({2024, 3, 20});
    form.parts.clickDay(21);
    for (QWidget *place : {static_cast<QWidget *>(form.selector->view()), view->viewport()}) {
        for (const QPoint &point : {QPoint(0, 0), QPoint(2, place->height() - 3)}) {
            QTest::mouseClick(place, Qt::LeftButton, {}, point);
            QTest::mouseRelease(place, Qt::LeftButton, {}, point);
        }
    }
    QTest::mouseClick(form.parts.bar, Qt::LeftButton, {}, {1, 1});
    QTest::mouseClick(form.parts.weekdays->viewport(), Qt::LeftButton);
    QVERIFY(form.isOpen());
    QVERIFY(showsNoDate(*form.selector));
    form.selector->hidePopup();
}

void VemoDateSelectorTest::closesWithoutADate_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Escape") << int(Qt::Key_Escape);
    QTest::newRow("F4") << int(Qt::Key_F4);
    QTest::newRow("click elsewhere") << 0;
}

void VemoDateSelectorTest::closesWithoutADate()
{
    QFETCH(int, key);
    const Form form;
    QVERIFY(form.isActive);
    form.open();
    if (key)
        form.press(Qt::Key(key));
    else
        QTest::mouseClick(form.popup(), Qt::LeftButton, {}, {-30, -30});
    QTRY_VERIFY(!form.isOpen());
    QVERIFY(showsNoDate(*form.selector));
}

void VemoDateSelectorTest::keepsItsDateAgainstWheelAndKeys_data()
{
    QTest::addColumn<bool>("hasDate");
    QTest::newRow("date") << true;
    QTest::newRow("placeholder") << false;
}

void VemoDateSelectorTest::keepsItsDateAgainstWheelAndKeys()
{
    QFETCH(bool, hasDate);
    const Form form;
    QVERIFY(form.isActive);
    if (hasDate)
        form.selector->dateSelect({2024, 3, 7});
    const QSignalSpy changes(form.selector, SIGNAL(currentIndexChanged(int)));
    form.selector->setFocus();
    for (const auto key :
        {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End,
            Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_2, Qt::Key_A, Qt::Key_Delete, Qt::Key_Return})
        QTest::keyClick(form.window.windowHandle(), key);
    for (const int delta : {120, -120, 1200}) {
        const QPoint middle = form.selector->rect().center();
        QWheelEvent wheel(middle, form.selector->mapToGlobal(middle), {}, {0, delta}, Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(form.selector, &wheel);
    }
    QCOMPARE(changes.size(), 0);
    QVERIFY(!form.isOpen());
    QVERIFY(hasDate ? shows(*form.selector, {2024, 3, 7}) : showsNoDate(*form.selector));
}

void VemoDateSelectorTest::walksTheRingInItsPopup_data()
{
    QTest::addColumn<bool>("forwards");
    QTest::newRow("Tab") << true;
    QTest::newRow("Backtab") << false;
}

void VemoDateSelectorTest::walksTheRingInItsPopup()
{
    QFETCH(bool, forwards);
    const Form form;
    QVERIFY(form.isActive);
    form.open();
    QList<QWidget *> ring {form.selector->view(), form.parts.previous, form.parts.next,
        form.parts.month, form.parts.year, form.parts.grid, form.parts.today};
    if (!forwards)
        std::reverse(ring.begin() + 1, ring.end());
    QTRY_COMPARE(QApplication::focusWidget(), ring[0]);
    for (int step = 1; step <= 2 * ring.size(); ++step) {
        form.press(forwards ? Qt::Key_Tab : Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), ring[step % ring.size()]);
    }
    QVERIFY(form.isOpen());
    form.selector->hidePopup();
}

void VemoDateSelectorTest::survivesItsDeletionWhileOpen_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("at once") << 0;
    QTest::newRow("under the month menu") << 1;
    QTest::newRow("when a date is picked") << 2;
    QTest::newRow("while a year is typed") << 3;
}

void VemoDateSelectorTest::survivesItsDeletionWhileOpen()
{
    QFETCH(int, way);
    const Form form;
    QVERIFY(form.isActive);
    const QPointer<VemoDateSelector> guard(form.selector);
    form.open();
    if (way == 0) {
        delete form.selector;
    } else if (way == 1) {
        QTimer::singleShot(0, qApp, [&form] { delete form.selector; });
        QTest::mousePress(form.parts.month, Qt::LeftButton);
    } else if (way == 2) {
        connect(form.selector->getCalendarView(),
            SIGNAL(sigDateSelect(QDate)), form.selector, SLOT(deleteLater()));
        form.parts.clickDay(7);
    } else {
        QTest::mouseClick(form.parts.year, Qt::LeftButton);
        QTest::keyClick(QApplication::focusWidget(), '1');
        delete form.selector;
    }
    QTRY_VERIFY(!guard);
    QVERIFY(!QApplication::activePopupWidget());
}

VEMO_TEST_MAIN(VemoDateSelectorTest)
#include "tst_vemodateselector.moc"
