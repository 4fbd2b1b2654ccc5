// SPDX-License-Identifier: MIT
#include <vemo/vemocalanderview.h>

#include "controls/fittingfont_p.h"
#include "core/qtcompat_p.h"
#include "core/scaling_p.h"
#include "core/stringof_p.h"
#include "datetime/calendaraccess_p.h"
#include "datetime/daycalendar_p.h"

#include <vemo/imagemanager.h>
#include <vemo/mousebuttonfilter.h>
#include <vemo/stylemanager.h>
#include <vemo/vemobutton.h>

#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QSpinBox>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <QTableWidget>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

// In design pixels.
constexpr int kTodayHeight = 24;
constexpr int kTodayFrame = 2; // that of the focus
constexpr int kWeekdayHeight = 30;

constexpr int kColumnWidth = 30; // Screen pixels: deliberately not scaled.
constexpr int kDaysOfWeek = 7;
// Deliberate: not Qt's red, in every theme that names no other.
constexpr Qt::GlobalColor kWeekendInk = Qt::black;
constexpr int kShortMonth = 3; // Characters, in every language.

constexpr auto kPrevious = "qt_calendar_prevmonth";
constexpr auto kNext = "qt_calendar_nextmonth";
constexpr auto kMonth = "qt_calendar_monthbutton";
constexpr auto kYear = "qt_calendar_yearbutton";
constexpr auto kYearEdit = "qt_calendar_yearedit";
constexpr auto kBar = "qt_calendar_navigationbar";
constexpr auto kGrid = "qt_calendar_calendarview";
constexpr auto kWeekdays = "qt_calendar_weekdayview";
constexpr auto kToday = "qt_calendar_today_button";

constexpr const char *kMonthKeys[] = {"month_jan", "month_feb", "month_mar", "month_apr",
    "month_may", "month_jun", "month_jul", "month_aug", "month_sep", "month_oct", "month_nov",
    "month_dec"};
constexpr const char *kWeekdayKeys[] = {
    "sunday", "monday", "tuesday", "wednesday", "thursday", "friday", "saturday"};

template <typename Part> Part *part(const QObject *owner, const char *name)
{
    return owner->findChild<Part *>(QLatin1String(name));
}

bool movesOrPicks(int key)
{
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return true;
    default:
        return false;
    }
}

/// Gives access to the protected initStyleOption().
struct ButtonState : QToolButton
{
    using QToolButton::initStyleOption;
};

/// Paints an arrow of the calendar with a focus frame, which Qt does not draw, and mirrors it in
/// right-to-left layouts without changing its icon.
class ArrowPainter : public QObject
{
public:
    explicit ArrowPainter(QToolButton *arrow) : QObject(arrow), m_arrow(arrow)
    {
        arrow->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() != QEvent::Paint)
            return false;
        QStyleOptionToolButton state;
        (m_arrow->*(&ButtonState::initStyleOption))(&state);
        if (m_arrow->isRightToLeft())
            state.icon = mirrored(state.icon, state.iconSize);
        QStylePainter(m_arrow).drawComplexControl(QStyle::CC_ToolButton, state);
        return true;
    }

private:
    QIcon mirrored(const QIcon &icon, const QSize &size) const
    {
        QIcon result;
        for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled}) {
            const QImage picture = iconPixmap(icon, size, m_arrow, mode).toImage();
            result.addPixmap(QPixmap::fromImage(picture.mirrored(true, false)), mode);
        }
        return result;
    }

    QToolButton *m_arrow;
};

void setPicture(QToolButton *button, const char *name)
{
    const QString key = QLatin1String(name);
    ImageManager &images = ImageManager::getInstance();
    const QPixmap picture = images.getImage(key, ImageManager::NORMAL);
    QIcon icon(picture);
    // Without one, Qt makes it of the normal picture.
    if (images.hasImage(key, ImageManager::DISABLE))
        icon.addPixmap(images.getImage(key, ImageManager::DISABLE), QIcon::Disabled);
    button->setIcon(icon);
    button->setIconSize(picture.size() / DPIinfo::getInstance().getDPR());
}

} // namespace

VemoCalanderView::VemoCalanderView(QWidget *parent) : QAbstractItemView(parent)
{
    makeCalendarsAccessible();
    auto *layout = new QVBoxLayout(this);
    auto *today = new VemoButton(taken("today"), VemoButton::CANCEL);
    today->setFixedHeight(scaled(kTodayHeight));
    FittingFont::keep(today, scaled(kTodayHeight) - 2 * scaled(kTodayFrame));
    m_calendar = new DayCalendar(this);
    today->setObjectName(QLatin1String(kToday));
    layout->addWidget(m_calendar);
    layout->addWidget(today, 0, Qt::AlignHCenter);

    setSelectionMode(NoSelection);
    setUpCalendar();
    setAccessibleName(taken("accessible_calendar"));
    handleNavigationBar();
    handleWeekdayHeader();
    handleTabOrder();
    nameParts();
    connectParts();
    static_cast<DayCalendar *>(m_calendar)->fitHeading(m_month_names);
}

VemoCalanderView::~VemoCalanderView() = default;

void VemoCalanderView::setCurrentPage(int year, int month)
{
    m_calendar->setCurrentPage(year, month);
}

void VemoCalanderView::setMinimumDate(const QDate &date)
{
    m_calendar->setMinimumDate(date);
}

QDate VemoCalanderView::minimumDate() const
{
    return m_calendar->minimumDate();
}

void VemoCalanderView::setMaximumDate(const QDate &date)
{
    m_calendar->setMaximumDate(date);
}

QDate VemoCalanderView::maximumDate() const
{
    return m_calendar->maximumDate();
}

void VemoCalanderView::setDateRange(const QDate &first, const QDate &last)
{
    m_calendar->setDateRange(first, last);
}

void VemoCalanderView::setFirstDayOfWeek(Qt::DayOfWeek day)
{
    m_calendar->setFirstDayOfWeek(day);
    showWeekdays();
}

Qt::DayOfWeek VemoCalanderView::firstDayOfWeek() const
{
    return m_calendar->firstDayOfWeek();
}

void VemoCalanderView::setSelectedDate(const QDate &date)
{
    m_calendar->setSelectedDate(date);
}

QDate VemoCalanderView::selectedDate() const
{
    return m_calendar->selectedDate();
}

QSize VemoCalanderView::sizeHint() const
{
    return QAbstractItemView::sizeHint().expandedTo(minimumSizeHint());
}

QSize VemoCalanderView::minimumSizeHint() const
{
    const QMargins margins = contentsMargins() + layout()->contentsMargins();
    const int heading = static_cast<const DayCalendar *>(m_calendar)->headingWidth()
        + margins.left() + margins.right();
    // QCalendarWidget does not account for our row of weekdays.
    const QSize minimum = layout()->totalMinimumSize() + QSize(0, m_weekday_header->height());
    return minimum.expandedTo({heading, 0});
}

bool VemoCalanderView::eventFilter(QObject * /*watched*/, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key == Qt::Key_Tab)
        focusNextChild();
    else if (key == Qt::Key_Backtab)
        focusPreviousChild();
    else
        return false;

    auto *grid = part<QTableView>(this, kGrid);
    const QModelIndex day = grid->currentIndex();
    if (grid->hasFocus() && day.isValid()) {
        // Forces a repaint, which moves the focus frame to the day.
        grid->setCurrentIndex({});
        grid->setCurrentIndex(day);
    }
    return true;
}

QRect VemoCalanderView::visualRect(const QModelIndex & /*index*/) const
{
    return {0, 0, 0, 0};
}

void VemoCalanderView::scrollTo(const QModelIndex & /*index*/, ScrollHint /*hint*/) { }

QModelIndex VemoCalanderView::indexAt(const QPoint & /*point*/) const
{
    return {};
}

void VemoCalanderView::selectToday()
{
    m_calendar->setSelectedDate(QDate::currentDate());
    Q_EMIT sigDateSelect(QDate::currentDate());
}

QModelIndex VemoCalanderView::moveCursor(
    CursorAction /*cursorAction*/, Qt::KeyboardModifiers /*modifiers*/)
{
    return {};
}

int VemoCalanderView::horizontalOffset() const
{
    return 0;
}

int VemoCalanderView::verticalOffset() const
{
    return 0;
}

bool VemoCalanderView::isIndexHidden(const QModelIndex & /*index*/) const
{
    return true;
}

void VemoCalanderView::setSelection(
    const QRect & /*rect*/, QItemSelectionModel::SelectionFlags /*command*/)
{
}

QRegion VemoCalanderView::visualRegionForSelection(const QItemSelection & /*selection*/) const
{
    return {};
}

void VemoCalanderView::keyPressEvent(QKeyEvent *event)
{
    // Only if the view itself has the focus: Return on an arrow must not select a day.
    if (!hasFocus() || !movesOrPicks(event->key())) {
        QAbstractItemView::keyPressEvent(event);
        return;
    }
    // Not sendEvent(): the grid ignores keys that it has handled, so the event would return here.
    part<QObject>(this, kGrid)->event(event);
    event->accept();
}

void VemoCalanderView::pageChanged(int, int month)
{
    showMonthName(month);
}

// Not connected: Qt's own menu changes the page, and the button then shows the name.
void VemoCalanderView::slotMonthTriggered(QAction *action)
{
    showMonthName(action->data().toInt());
}

void VemoCalanderView::setUpCalendar()
{
    m_calendar->setFirstDayOfWeek(Qt::Sunday);
    m_calendar->setHorizontalHeaderFormat(QCalendarWidget::NoHorizontalHeader);
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    setWeekendInk();
}

void VemoCalanderView::setWeekendInk()
{
    m_weekend_ink =
        StyleManager::getInstance().getColor(QStringLiteral("weekend-ink"), kWeekendInk);
    QTextCharFormat weekend = m_calendar->weekdayTextFormat(Qt::Saturday);
    weekend.setForeground(QBrush(m_weekend_ink, Qt::SolidPattern));
    m_calendar->setWeekdayTextFormat(Qt::Saturday, weekend);
    m_calendar->setWeekdayTextFormat(Qt::Sunday, weekend);
}

/// The text under key; remembered, to tell it from one of the host's own.
QString VemoCalanderView::taken(const char *key)
{
    return m_texts[QLatin1String(key)] = stringOf(key);
}

void VemoCalanderView::translate()
{
    const auto changeName = [this](const char *key, const QList<QWidget *> &widgets) {
        const QString before = m_texts.value(QLatin1String(key));
        const QString now = taken(key);
        for (QWidget *widget : widgets) {
            if (widget->accessibleName() == before)
                widget->setAccessibleName(now);
        }
    };
    changeName(
        "accessible_calendar", {this, part<QWidget>(this, kGrid), part<QWidget>(this, kYearEdit)});
    changeName("accessible_calendar_prev_month", {part<QWidget>(this, kPrevious)});
    changeName("accessible_calendar_next_month", {part<QWidget>(this, kNext)});
    auto *today = part<VemoButton>(this, kToday);
    const bool isTodayOurs = today->text() == m_texts.value(QStringLiteral("today"));
    const QString todayText = taken("today");
    if (isTodayOurs)
        today->setText(todayText);
    showMonthNames();
    showMonthName(m_calendar->monthShown());
    showWeekdays();
}

void VemoCalanderView::changeEvent(QEvent *event)
{
    QAbstractItemView::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translate();
}

void VemoCalanderView::customEvent(QEvent *event)
{
    if (event->type() == StyleManager::reloadEvent()) {
        setPicture(part<QToolButton>(this, kPrevious), "bt_pagebar_backend");
        setPicture(part<QToolButton>(this, kNext), "bt_pagebar_nextend");
        const QTextCharFormat weekend = m_calendar->weekdayTextFormat(Qt::Saturday);
        // A format of the host's own stays.
        if (weekend.foreground().color() == m_weekend_ink)
            setWeekendInk();
    }
    QAbstractItemView::customEvent(event);
}

void VemoCalanderView::handleNavigationBar()
{
    auto *previous = part<QToolButton>(this, kPrevious);
    auto *next = part<QToolButton>(this, kNext);
    for (QToolButton *button :
        {previous, next, part<QToolButton>(this, kMonth), part<QToolButton>(this, kYear)})
        button->setFocusPolicy(Qt::StrongFocus);
    previous->setAccessibleName(taken("accessible_calendar_prev_month"));
    next->setAccessibleName(taken("accessible_calendar_next_month"));
    setPicture(previous, "bt_pagebar_backend");
    setPicture(next, "bt_pagebar_nextend");
    for (QToolButton *button : {previous, next})
        new ArrowPainter(button);
    part<QSpinBox>(this, kYearEdit)->setAttribute(Qt::WA_MacShowFocusRect, false);

    auto *bar = part<QWidget>(this, kBar);
    bar->setAutoFillBackground(false);
    auto *filter = new MouseButtonFilter;
    filter->setParent(this);
    bar->installEventFilter(filter);
    handleMonthMenu();
}

void VemoCalanderView::handleMonthMenu()
{
    showMonthNames();
    showMonthName(QDate::currentDate().month());
}

void VemoCalanderView::showMonthNames()
{
    m_month_names.clear();
    for (const char *key : kMonthKeys)
        m_month_names += stringOf(key);
    const QList<QAction *> entries = part<QToolButton>(this, kMonth)->menu()->actions();
    for (QAction *action : entries)
        action->setText(m_month_names.value(action->data().toInt() - 1).left(kShortMonth));
}

void VemoCalanderView::handleWeekdayHeader()
{
    m_weekday_header = new QTableWidget(0, kDaysOfWeek, m_calendar);
    qobject_cast<QVBoxLayout *>(m_calendar->layout())->insertWidget(1, m_weekday_header);
    m_weekday_header->setFocusPolicy(Qt::NoFocus);
    m_weekday_header->setObjectName(QLatin1String(kWeekdays));
    const QString headerStyle = getStyleSheet("component.table_header");
    const QString style = getStyleSheet("component.table");
    m_weekday_header->setFixedHeight(scaled(kWeekdayHeight));
    m_weekday_header->horizontalHeader()->hide();
    m_weekday_header->verticalHeader()->hide();
    m_weekday_header->insertRow(0);
    for (int column = 0; column < kDaysOfWeek; ++column) {
        auto *item = new QTableWidgetItem;
        item->setTextAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
        m_weekday_header->setItem(0, column, item);
    }
    showWeekdays();
    m_weekday_header->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_weekday_header->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    m_weekday_header->setEditTriggers(NoEditTriggers);
    m_weekday_header->setSelectionMode(NoSelection);
    m_weekday_header->setFrameStyle(0);
    m_weekday_header->setShowGrid(false);
    // Seven columns and six rows share the available space at any font size.
    for (QTableView *table :
        {part<QTableView>(this, kGrid), static_cast<QTableView *>(m_weekday_header)}) {
        table->horizontalHeader()->setMinimumSectionSize(1);
        table->horizontalHeader()->setDefaultSectionSize(kColumnWidth);
        table->verticalHeader()->setMinimumSectionSize(1);
    }
    m_weekday_header->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    m_weekday_header->verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    // Last, and the header after the table: once in place, each is styled only once.
    m_weekday_header->setStyleSheet(style);
    m_weekday_header->horizontalHeader()->setStyleSheet(headerStyle);
}

void VemoCalanderView::showWeekdays()
{
    for (int column = 0; column < kDaysOfWeek; ++column) {
        // Sunday, the first key, is the last day of a week for Qt.
        const QString name = stringOf(kWeekdayKeys[(firstDayOfWeek() + column) % kDaysOfWeek]);
        QTableWidgetItem *item = m_weekday_header->item(0, column);
        item->setText(name.mid(0, 1));
        item->setData(Qt::AccessibleTextRole, name);
    }
}

void VemoCalanderView::handleTabOrder()
{
    // With the grid as the calendar's focus proxy, Tab would skip the buttons.
    m_calendar->setFocusProxy(nullptr);
    m_calendar->setFocusPolicy(Qt::NoFocus);
    QWidget *before = this;
    for (const char *name : {kPrevious, kNext, kMonth, kYear, kYearEdit, kGrid, kToday}) {
        auto *after = part<QWidget>(this, name);
        setTabOrder(before, after);
        before = after;
    }
    setTabOrder(before, this);
}

void VemoCalanderView::nameParts()
{
    auto *grid = part<QTableView>(this, kGrid);
    grid->setAccessibleName(accessibleName());
    part<QSpinBox>(this, kYearEdit)->setAccessibleName(accessibleName());
    // Only the number of a day is announced; the description adds the month.
    const auto describeDay = [this, grid] {
        grid->setAccessibleDescription(m_calendar->selectedDate().toString(Qt::ISODate));
    };
    connect(m_calendar, &QCalendarWidget::selectionChanged, grid, describeDay);
    describeDay();
}

void VemoCalanderView::connectParts()
{
    for (const char *name : {kYear, kYearEdit, kGrid, kToday})
        part<QWidget>(this, name)->installEventFilter(this);
    connect(m_calendar, SIGNAL(activated(QDate)), this, SIGNAL(sigDateSelect(QDate)));
    connect(m_calendar, SIGNAL(clicked(QDate)), this, SIGNAL(sigDateSelect(QDate)));
    connect(part<VemoButton>(this, kToday), SIGNAL(clicked()), this, SLOT(selectToday()));
    // clang-format off
    connect(m_calendar, SIGNAL(currentPageChanged(int,int)), this, SLOT(pageChanged(int,int)));
    // clang-format on
}

void VemoCalanderView::showMonthName(int month)
{
    const QString name = m_month_names.value(qMax(month, 0) - 1);
    part<QToolButton>(this, kMonth)->setText(name);
    // Announced after an arrow was pressed.
    const QString page = name + QLatin1Char(' ') + QString::number(m_calendar->yearShown());
    for (const char *arrow : {kPrevious, kNext})
        part<QToolButton>(this, arrow)->setAccessibleDescription(page);
}
