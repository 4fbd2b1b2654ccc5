// SPDX-License-Identifier: MIT
#include <vemo/vemodateselector.h>

#include "controls/accessiblecombobox_p.h"
#include "controls/growntofont_p.h"
#include "controls/popuppainting_p.h"
#include "controls/spokentooltip_p.h"
#include "controls/textoverhang_p.h"
#include "core/scaling_p.h"
#include "datetime/dateclearing_p.h"
#include "datetime/datetyping_p.h"
#include "datetime/enterkey_p.h"

#include <vemo/mousebuttonfilter.h>
#include <vemo/stylemanager.h>
#include <vemo/vemocalanderview.h>

#include <QEvent>
#include <QLocale>
#include <QScreen>
#include <QStyleOptionComboBox>
#include <QStylePainter>

#include <utility>

namespace {

// In design pixels.
constexpr int kCalendarWidth = 280;
constexpr int kCalendarHeight = 260;
constexpr int kFieldHeight = 32;

/// Leaves Return to the calendar if its view has the focus.
class EnterFilter : public QObject
{
public:
    explicit EnterFilter(QWidget *view) : QObject(view), m_view(view)
    {
        view->installEventFilter(this);
    }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        return isEnter(event) && m_view->hasFocus() && keepEnter(event);
    }

private:
    QWidget *m_view;
};

/// In right-to-left layouts, aligns the calendar with the right edge of the field; Qt aligns it
/// with the left edge. Never moves it beyond the left edge of the screen.
class MirroredPlace : public QObject
{
public:
    MirroredPlace(const QWidget &field, QWidget *popup)
        : QObject(popup), m_field(field), m_popup(popup)
    {
        popup->installEventFilter(this);
    }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Show && m_field.isRightToLeft()) {
            const QPoint corner = m_field.mapToGlobal(QPoint(m_field.width(), 0));
            const int edge = m_field.screen()->availableGeometry().left();
            m_popup->move(qMax(edge, corner.x() - m_popup->width()), m_popup->y());
        }
        return false;
    }

private:
    const QWidget &m_field; // The parent of the pop-up.
    QWidget *m_popup;
};

void ignoreMouse(QObject *filter, QWidget *widget)
{
    filter->setParent(widget);
    widget->installEventFilter(filter);
}

} // namespace

VemoDateSelector::VemoDateSelector(QString placeholder, QWidget *parent)
    : QComboBox(parent), m_calendar_view(new VemoCalanderView(nullptr)),
      m_placeholder(std::move(placeholder))
{
    announceByGivenName<VemoDateSelector>();
    speakToolTip(this);
    setView(m_calendar_view);
    paintPopupOnce(this);
    // A release in the calendar would be treated as one on a row of the list and close it. So would
    // a press that the calendar ignores, such as one on a day out of range.
    ignoreMouse(new MouseReleaseFilter, view());
    ignoreMouse(new MouseReleaseFilter, view()->viewport());
    ignoreMouse(new MouseButtonFilter, view());
    new EnterFilter(view());
    new MirroredPlace(*this, view()->parentWidget());
    showPlaceholder();
    connect(m_calendar_view, SIGNAL(sigDateSelect(QDate)), this, SLOT(dateSelect(QDate)));
    setUpSizes();
    setUpStyle();
}

VemoDateSelector::VemoDateSelector(QWidget *parent) : VemoDateSelector(QString(), parent) { }

VemoDateSelector::~VemoDateSelector() = default;

QDate VemoDateSelector::date() const
{
    return itemData(0).toDate();
}

void VemoDateSelector::setDate(const QDate &date)
{
    dateSelect(date);
}

QDate VemoDateSelector::minimumDate() const
{
    return m_calendar_view->minimumDate();
}

void VemoDateSelector::setMinimumDate(const QDate &date)
{
    m_calendar_view->setMinimumDate(date);
}

QDate VemoDateSelector::maximumDate() const
{
    return m_calendar_view->maximumDate();
}

void VemoDateSelector::setMaximumDate(const QDate &date)
{
    m_calendar_view->setMaximumDate(date);
}

void VemoDateSelector::setDateRange(const QDate &first, const QDate &last)
{
    m_calendar_view->setDateRange(first, last);
}

void VemoDateSelector::setFirstDayOfWeek(Qt::DayOfWeek day)
{
    m_calendar_view->setFirstDayOfWeek(day);
}

Qt::DayOfWeek VemoDateSelector::firstDayOfWeek() const
{
    return m_calendar_view->firstDayOfWeek();
}

void VemoDateSelector::setDisplayFormat(const QString &format)
{
    m_display_format = format;
    if (date().isValid())
        setItemText(0, textOf(date()));
    if (m_typing)
        m_typing->showDate();
}

void VemoDateSelector::setClearable(bool clearable)
{
    if (clearable == isClearable())
        return;
    delete m_clearing;
    m_clearing = clearable ? new DateClearing(this) : nullptr;
    setUpStyle();
}

bool VemoDateSelector::isClearable() const
{
    return m_clearing;
}

void VemoDateSelector::setTypingEnabled(bool enabled)
{
    if (enabled == isTypingEnabled())
        return;
    delete m_typing;
    m_typing = nullptr;
    if (enabled)
        m_typing = new DateTyping(this);
    else
        setEditable(false);
}

bool VemoDateSelector::isTypingEnabled() const
{
    return m_typing;
}

void VemoDateSelector::setPlaceholder(const QString &placeholder)
{
    m_placeholder = placeholder;
    if (!date().isValid())
        setItemText(0, placeholder);
    if (m_typing)
        m_typing->showDate();
}

void VemoDateSelector::clearDate()
{
    const QDate today = QDate::currentDate();
    clear();
    showPlaceholder();
    setCurrentIndex(0);
    m_calendar_view->setCurrentPage(today.year(), today.month());
    if (m_typing)
        m_typing->showDate(); // setCurrentIndex() has shown the item's text
}

VemoCalanderView *VemoDateSelector::getCalendarView() const
{
    return m_calendar_view;
}

void VemoDateSelector::dateSelect(const QDate &date)
{
    clear();
    if (!date.isValid()) {
        showPlaceholder();
        return;
    }
    addItem(textOf(date), date);
    setCurrentIndex(0);
    m_calendar_view->setCurrentPage(date.year(), date.month());
    update();
    hidePopup();
}

/// The field has a fixed height, so a text in a larger font gets smaller.
void VemoDateSelector::paintEvent(QPaintEvent *event)
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const int room =
        style()
            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this)
            .height();
    const bool isFitting = isEditable() || fontMetrics().height() <= room;
    if (isFitting)
        QComboBox::paintEvent(event);
    QStylePainter painter(this);
    if (!isFitting) {
        painter.setFont(fontForHeight(font(), room));
        painter.setPen(palette().color(QPalette::Text));
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    }
    paintOverhang(&painter, option, *this);
}

void VemoDateSelector::showPlaceholder()
{
    addItem(m_placeholder, QDate());
}

void VemoDateSelector::setUpSizes()
{
    view()->setFixedWidth(scaled(kCalendarWidth));
    view()->setFixedHeight(scaled(kCalendarHeight));
    setFixedHeight(scaled(kFieldHeight));
    // Otherwise the list of a wide field would be as wide, with empty space next to the calendar.
    view()->parentWidget()->setMaximumWidth(view()->width());
}

void VemoDateSelector::setUpStyle()
{
    setStyleSheet(getStyleSheet("component.date_selector") + getStyleSheet("component.menu")
        + (m_clearing ? m_clearing->roomForButton() : QString()));
}

QString VemoDateSelector::textOf(const QDate &date) const
{
    // QDate::toString() would use the digits of the system's locale.
    return m_display_format.isEmpty() ? QLocale::c().toString(date, QStringLiteral("yyyy-MM-dd"))
                                      : locale().toString(date, m_display_format);
}
