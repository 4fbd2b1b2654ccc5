// SPDX-License-Identifier: MIT
// The look of a calendar does not depend on changes of its window.
#include "core/scaling_p.h"
#include "datetime/calendar.h"
#include "support/testhost.h"

#include <vemo/dpiinfo.h>
#include <vemo/imagemanager.h>
#include <vemo/vemodateselector.h>

#include <QAction>
#include <QScreen>
#include <QStyleFactory>
#include <QTextCharFormat>
#include <QTranslator>

#include <functional>
#include <memory>

namespace {

/// A calendar in a window that shows March 2024.
struct Form
{
    explicit Form(const std::function<void(QWidget &)> &prepare = {})
    {
        if (prepare)
            prepare(window);
        view = new VemoCalanderView(&window);
        view->setCurrentPage(2024, 3);
        view->resize(scaled(280), scaled(260));
        window.resize(view->size());
        parts = Parts(view);
        window.show();
        isExposed = QTest::qWaitForWindowExposed(&window);
    }

    QWidget window;
    VemoCalanderView *view = nullptr;
    Parts parts {&window};
    bool isExposed = false;
};

QString lettersOf(const QTableWidget *weekdays)
{
    QString letters;
    for (int column = 0; column < weekdays->columnCount(); ++column)
        letters += weekdays->item(0, column)->text();
    return letters;
}

/// The column of a day of March 2024, as a weekday: 0 is Sunday.
int columnOf(const Parts &parts, int day)
{
    const int x = parts.cell(day).center().x();
    return parts.weekdays->columnAt(x);
}

QStringList entriesOf(const Parts &parts)
{
    QStringList entries;
    for (const QAction *entry : parts.month->menu()->actions())
        entries += entry->text();
    return entries;
}

QStringList shortMonths()
{
    QStringList months;
    for (const QString &month : englishMonths())
        months += month.left(3);
    return months;
}

bool showsPicture(const QToolButton *arrow, const char *name)
{
    const QPixmap picture = getGlobalImage(name);
    return arrow->iconSize() == picture.size() / DPIinfo::getInstance().getDPR()
        && arrow->icon().pixmap(arrow->iconSize()).toImage() == picture.toImage();
}

using Change = std::function<void(Form &)>;

const QLocale kGerman(QLocale::German, QLocale::Germany);

void translate(Form &form)
{
    QTranslator none;
    QCoreApplication::installTranslator(&none);
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(form.parts.calendar, &change);
}

void changeLocales(Form &form)
{
    for (const char *name : {"de_DE", "ar_EG", "fa_IR", "zh_CN", "pt_PT"})
        form.window.setLocale(QLocale(name));
}

void changeStyles(Form &form)
{
    const std::unique_ptr<QStyle> style(QStyleFactory::create("windows"));
    form.parts.calendar->setStyle(style.get());
    form.window.setStyleSheet("QToolButton { font-size: 11px; }");
    form.parts.calendar->setStyle(nullptr);
}

/// Every event that notifies a widget of a change.
void sendAllChanges(Form &form)
{
    using Type = QEvent::Type;
    for (const Type type : {Type::ActivationChange, Type::ApplicationFontChange,
             Type::ApplicationLayoutDirectionChange, Type::ApplicationPaletteChange,
             Type::EnabledChange, Type::FontChange, Type::LanguageChange,
             Type::LayoutDirectionChange, Type::LocaleChange, Type::PaletteChange,
             Type::ParentChange, Type::ReadOnlyChange, Type::StyleChange, Type::ThemeChange,
             Type::ToolBarChange, Type::WindowStateChange, Type::ScreenChangeInternal}) {
        for (QWidget *part : form.window.findChildren<QWidget *>()) {
            QEvent change(type);
            QCoreApplication::sendEvent(part, &change);
        }
    }
}

/// Verifies that the calendar is as it was constructed.
#define VERIFY_FACE(form)                                                                          \
    do {                                                                                           \
        const Parts &parts = (form).parts;                                                         \
        QCOMPARE(parts.calendar->firstDayOfWeek(), Qt::Sunday);                                    \
        QCOMPARE(lettersOf(parts.weekdays), QString("SMTWTFS"));                                   \
        for (int day = 1; day <= 31; ++day)                                                        \
            QCOMPARE(columnOf(parts, day), QDate(2024, 3, day).dayOfWeek() % 7);                   \
        QCOMPARE(parts.month->text(), QString("March"));                                           \
        QCOMPARE(entriesOf(parts), shortMonths());                                                 \
        QVERIFY(showsPicture(parts.previous, "bt_pagebar_backend"));                               \
        QVERIFY(showsPicture(parts.next, "bt_pagebar_nextend"));                                   \
        for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})                                 \
            QCOMPARE(parts.calendar->weekdayTextFormat(day).foreground(), QBrush(Qt::black));      \
        QVERIFY(!parts.bar->autoFillBackground());                                                 \
        QCOMPARE(parts.calendar->focusPolicy(), Qt::NoFocus);                                      \
        QCOMPARE(parts.weekdays->minimumHeight(), scaled(30));                                     \
        QCOMPARE(parts.weekdays->maximumHeight(), scaled(30));                                     \
    } while (false)

} // namespace

Q_DECLARE_METATYPE(Change)

class CalendarChangesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void looksTheSameAfterAChange_data();
    void looksTheSameAfterAChange();
    void looksTheSameInAWindowChangedBefore_data();
    void looksTheSameInAWindowChangedBefore();
    void looksTheSameInAnotherWindow();
    void picksTheDayUnderItsLetter();
    void namesLaterMonthsInItsOwnLanguage();
    void mirrorsItsArrowsFromRightToLeft();
    void aFieldOpensAtTheSideWhereItsTextBegins_data();
    void aFieldOpensAtTheSideWhereItsTextBegins();
};

void CalendarChangesTest::looksTheSameAfterAChange_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("none") << Change([](Form &) {});
    QTest::newRow("locale of the window")
        << Change([](Form &form) { form.window.setLocale(kGerman); });
    QTest::newRow("locale of the view")
        << Change([](Form &form) { form.view->setLocale(kGerman); });
    QTest::newRow("locale of Qt's calendar")
        << Change([](Form &form) { form.parts.calendar->setLocale(kGerman); });
    QTest::newRow("several locales") << Change(changeLocales);
    QTest::newRow("there and back") << Change([](Form &form) {
        form.window.setLayoutDirection(Qt::RightToLeft);
        form.window.setLayoutDirection(Qt::LeftToRight);
    });
    QTest::newRow("right to left")
        << Change([](Form &form) { form.window.setLayoutDirection(Qt::RightToLeft); });
    QTest::newRow("Qt's calendar right to left")
        << Change([](Form &form) { form.parts.calendar->setLayoutDirection(Qt::RightToLeft); });
    QTest::newRow("style") << Change(changeStyles);
    QTest::newRow("font") << Change([](Form &form) {
        QFont small = form.window.font();
        small.setPointSize(7);
        form.window.setFont(small);
    });
    QTest::newRow("palette") << Change([](Form &form) { form.window.setPalette(Qt::darkGray); });
    QTest::newRow("disabled") << Change([](Form &form) { form.window.setEnabled(false); });
    QTest::newRow("translator") << Change(translate);
    QTest::newRow("each event of a change") << Change(sendAllChanges);
}

void CalendarChangesTest::looksTheSameAfterAChange()
{
    QFETCH(Change, change);
    Form form;
    QVERIFY(form.isExposed);
    change(form);
    QCoreApplication::processEvents();
    VERIFY_FACE(form);
}

void CalendarChangesTest::looksTheSameInAWindowChangedBefore_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("German") << "de_DE" << Qt::LeftToRight;
    QTest::newRow("Egyptian") << "ar_EG" << Qt::RightToLeft;
    QTest::newRow("English from right to left") << "en_US" << Qt::RightToLeft;
}

void CalendarChangesTest::looksTheSameInAWindowChangedBefore()
{
    QFETCH(QString, locale);
    QFETCH(Qt::LayoutDirection, direction);
    const Form form([=](QWidget &window) {
        window.setLocale(QLocale(locale));
        window.setLayoutDirection(direction);
    });
    QVERIFY(form.isExposed);
    VERIFY_FACE(form);
}

void CalendarChangesTest::looksTheSameInAnotherWindow()
{
    Form form;
    QVERIFY(form.isExposed);
    QWidget other;
    other.setLocale(kGerman);
    other.setLayoutDirection(Qt::RightToLeft);
    form.view->setParent(&other);
    other.resize(form.view->size());
    form.view->show();
    other.show();
    QVERIFY(QTest::qWaitForWindowExposed(&other));
    VERIFY_FACE(form);
    form.view->setParent(&form.window);
    form.view->show();
    QCoreApplication::processEvents();
    VERIFY_FACE(form);
}

// A click below the letter of Thursday must not select a Friday.
void CalendarChangesTest::picksTheDayUnderItsLetter()
{
    Form form;
    QVERIFY(form.isExposed);
    form.window.setLocale(kGerman);
    const QSignalSpy picks(form.view, SIGNAL(sigDateSelect(QDate)));
    const QTableWidget *weekdays = form.parts.weekdays;
    for (int column = 0; column < 7; ++column) {
        const int x = weekdays->visualItemRect(weekdays->item(0, column)).center().x();
        const int y = form.parts.cell(14).center().y();
        QTest::mouseClick(form.parts.grid->viewport(), Qt::LeftButton, {}, {x, y});
        QCOMPARE(picks.size(), column + 1);
        QCOMPARE(picks.last()[0].toDate(), QDate(2024, 3, 10 + column));
    }
}

void CalendarChangesTest::namesLaterMonthsInItsOwnLanguage()
{
    Form form;
    form.window.setLocale(kGerman);
    for (int month = 1; month <= 12; ++month) {
        form.view->setCurrentPage(2025, month);
        QCOMPARE(form.parts.month->text(), englishMonths().at(month - 1));
    }
}

void CalendarChangesTest::mirrorsItsArrowsFromRightToLeft()
{
    Form form;
    QVERIFY(form.isExposed);
    for (QToolButton *arrow : {form.parts.previous, form.parts.next}) {
        form.window.setLayoutDirection(Qt::LeftToRight);
        const QImage before = arrow->grab().toImage();
        QVERIFY(before != before.mirrored(true, false));
        form.window.setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(arrow->grab().toImage(), before.mirrored(true, false));
    }
    QTRY_VERIFY(form.parts.previous->x() > form.parts.next->x());
}

void CalendarChangesTest::aFieldOpensAtTheSideWhereItsTextBegins_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("width");
    QTest::newRow("narrow") << Qt::LeftToRight << 300 << 120;
    QTest::newRow("wide") << Qt::LeftToRight << 20 << 400;
    QTest::newRow("narrow, right to left") << Qt::RightToLeft << 300 << 120;
    QTest::newRow("wide, right to left") << Qt::RightToLeft << 20 << 400;
    QTest::newRow("at the left edge, right to left") << Qt::RightToLeft << 0 << 120;
}

void CalendarChangesTest::aFieldOpensAtTheSideWhereItsTextBegins()
{
    QFETCH(Qt::LayoutDirection, direction);
    QFETCH(int, left);
    QFETCH(int, width);
    QWidget window(nullptr, Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint);
    window.setLayoutDirection(direction);
    window.setGeometry(10, 10, 440, 60);
    VemoDateSelector field("Any date", &window);
    field.setFixedWidth(width);
    field.move(left, 10);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    field.showPopup();
    const QWidget *popup = field.view()->parentWidget();
    const QRect place(field.mapToGlobal(QPoint(0, 0)), field.size());
    const QRect screen = field.screen()->availableGeometry();
    if (direction == Qt::LeftToRight)
        QCOMPARE(popup->x(), qMin(place.left(), screen.right() + 1 - popup->width()));
    else
        QCOMPARE(popup->x(), qMax(screen.left(), place.right() + 1 - popup->width()));
    field.hidePopup();
}

VEMO_TEST_MAIN(CalendarChangesTest)
#include "tst_calendarchanges.moc"
