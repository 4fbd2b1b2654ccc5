// SPDX-License-Identifier: MIT
#include "theme/stockstyle_p.h"

#include "core/scaling_p.h"
#include "theme/mirroredparts_p.h"
#include "theme/rangepainter_p.h"

#include <vemo/defaulttheme.h>
#include <vemo/imagemanager.h>

#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDial>
#include <QEvent>
#include <QHeaderView>
#include <QListWidget>
#include <QPainter>
#include <QSplitter>
#include <QStyleOption>
#include <QStyledItemDelegate>
#include <QTabBar>
#include <QTableWidget>
#include <QTextCharFormat>
#include <QTextLayout>
#include <QTreeWidget>
#include <QWizard>

namespace {

// In design pixels.
constexpr int kHandle = 16;
constexpr int kIcon = 16;
constexpr int kLineArea = 7;
constexpr int kLineMargin = 8;
constexpr int kRow = 28;

// Screen pixels: Qt reserves five for ticks on either side at every factor.
constexpr int kTickShift = 2;

/// Whether the class of object is one of Classes, not a subclass.
template <typename... Classes> bool isExactly(const QObject *object)
{
    return object && ((object->metaObject() == &Classes::staticMetaObject) || ...);
}

/// Whether widget is inside one of our widgets, which styles its children itself.
bool isPartOfOurs(const QWidget *widget)
{
    for (const QWidget *at = widget; at; at = at->parentWidget()) {
        if (qstrncmp(at->metaObject()->className(), "Vemo", 4) == 0)
            return true;
    }
    return false;
}

/// Whether widget, which the application's style draws, is yet to be shown.
bool isUnpolished(const QWidget *widget)
{
    return !widget->testAttribute(Qt::WA_WState_Polished)
        && widget->style() == QApplication::style();
}

/// Whether widget is a list of Qt's file dialog.
bool isFileList(const QWidget *widget)
{
    const QByteArray name = widget ? widget->metaObject()->className() : "";
    return name == "QFileDialogListView" || name == "QSidebar";
}

/// Updates rows that were laid out before the view was polished: they keep their old height
/// otherwise.
void updateRowLayout(QAbstractItemView *view)
{
    QMetaObject::invokeMethod(
        view, [view] { view->doItemsLayout(); }, Qt::QueuedConnection);
}

/// Draws the rows of a combo box with the style sheet, unlike Qt's own delegate.
class BoxRows : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override
    {
        if (!isSeparator(index)) {
            QStyledItemDelegate::paint(painter, option, index);
            return;
        }
        QRect line = option.rect.adjusted(scaled(kLineMargin), 0, -scaled(kLineMargin), 0);
        line.moveTop(line.center().y());
        line.setHeight(qMax(1, scaled(1)));
        painter->fillRect(line, defaultThemeColor(QStringLiteral("line")));
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return isSeparator(index) ? QSize(1, scaled(kLineArea))
                                  : QStyledItemDelegate::sizeHint(option, index);
    }

private:
    static bool isSeparator(const QModelIndex &index)
    {
        return index.data(Qt::AccessibleDescriptionRole).toString() == QLatin1String("separator");
    }
};

/// Keeps a delegate set by the host.
void styleList(QAbstractItemView *list)
{
    list->ensurePolished();
    const QAbstractItemDelegate *delegate = list->itemDelegate();
    if (delegate && qstrcmp(delegate->metaObject()->className(), "QComboBoxDelegate") == 0)
        list->setItemDelegate(new BoxRows(list));
    list->doItemsLayout();
}

/// Unless the host has set heights, that is, if all rows still have the style's height.
void setRowHeight(QHeaderView *rows, int styleHeight)
{
    const bool isUnchanged =
        rows->defaultSectionSize() == styleHeight && rows->length() == rows->count() * styleHeight;
    if (isUnchanged)
        rows->setDefaultSectionSize(scaled(kRow));
}

/// Removes Qt's red from weekends, which has too little contrast. Keeps a format set by the host.
void removeWeekendRed(QCalendarWidget *calendar)
{
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) {
        if (calendar->weekdayTextFormat(day).foreground().color() == Qt::red)
            calendar->setWeekdayTextFormat(day, {});
    }
}

QString pictureName(QStyle::StandardPixmap standard)
{
    switch (standard) {
    case QStyle::SP_MessageBoxInformation:
        return QStringLiteral("icon_information");
    case QStyle::SP_MessageBoxQuestion:
        return QStringLiteral("icon_question");
    case QStyle::SP_MessageBoxWarning:
    case QStyle::SP_MessageBoxCritical:
        return QStringLiteral("icon_warning");
    case QStyle::SP_LineEditClearButton:
    case QStyle::SP_TitleBarCloseButton:
    case QStyle::SP_DockWidgetCloseButton:
        return QStringLiteral("bt_close");
    case QStyle::SP_TitleBarNormalButton:
        return QStringLiteral("bt_float");
    case QStyle::SP_FileDialogToParent:
        return QStringLiteral("bt_up");
    case QStyle::SP_FileDialogNewFolder:
        return QStringLiteral("bt_new_folder");
    case QStyle::SP_FileDialogDetailedView:
        return QStringLiteral("bt_details");
    case QStyle::SP_FileDialogListView:
        return QStringLiteral("bt_tiles");
    case QStyle::SP_FileDialogBack:
    case QStyle::SP_ArrowBack:
    case QStyle::SP_ArrowLeft:
        return QStringLiteral("arrow_left");
    case QStyle::SP_ArrowForward:
    case QStyle::SP_ArrowRight:
        return QStringLiteral("arrow_right");
    default:
        return {};
    }
}

/// The paragraph with a line break at the end of each line, in place of its blanks.
QString withLineBreaks(QString paragraph, const QPainter *painter, int width)
{
    QTextLayout layout(paragraph, painter->font(), painter->device());
    QTextOption option;
    option.setWrapMode(QTextOption::WordWrap);
    option.setTextDirection(Qt::RightToLeft);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine())
        line.setLineWidth(width);
    layout.endLayout();
    // From the end, so that the positions before it stay.
    for (int i = layout.lineCount() - 1; i > 0; --i) {
        const int start = layout.lineAt(i).textStart();
        int end = start;
        while (end > 0 && paragraph.at(end - 1).isSpace())
            --end;
        paragraph.replace(end, start - end, QLatin1Char('\n'));
    }
    return paragraph;
}

/// Whether Qt would draw the lines of a text too far to the left: all but the last by the width of
/// the blank at which the line ends.
bool isMisalignedByQt(int flags, const QString &text)
{
    const bool hasMnemonic = flags & (Qt::TextShowMnemonic | Qt::TextHideMnemonic);
    return (flags & Qt::TextForceRightToLeft) && (flags & Qt::TextWordWrap)
        && !(hasMnemonic && text.contains(QLatin1Char('&')));
}

/// Whether widget is one of Qt's dialogs, or of its widgets that contain one of these pictures.
bool showsOurPictures(const QWidget *widget)
{
    const QByteArray name = widget ? widget->metaObject()->className() : "";
    return name == "QMessageBox" || name == "QErrorMessage" || name == "QFileDialog"
        || name == "QLineEdit" || name == "QDockWidget" || name == "QCalendarWidget";
}

} // namespace

StockStyle::StockStyle()
    : QProxyStyle(QStringLiteral("fusion")), m_mirroredParts(new MirroredParts(this))
{
    setObjectName(QStringLiteral("fusion"));
}

void StockStyle::polish(QApplication *application)
{
    QProxyStyle::polish(application);
    application->installEventFilter(this);
}

void StockStyle::unpolish(QApplication *application)
{
    application->removeEventFilter(this);
    QProxyStyle::unpolish(application);
}

// With an application style sheet Qt reports a new style whenever a widget gets a parent, although
// it is still the application's, and a combo box then creates its list, which takes several times
// as long as the box itself. So boxes that have not been polished are not told, as without a style
// sheet.
bool StockStyle::eventFilter(QObject *watched, QEvent *event)
{
    return event->type() == QEvent::StyleChange && isExactly<QComboBox>(watched)
        && isUnpolished(static_cast<const QComboBox *>(watched));
}

void StockStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    if (isPartOfOurs(widget))
        return;
    if (isExactly<QListView, QListWidget, QTreeView, QTreeWidget>(widget))
        updateRowLayout(static_cast<QAbstractItemView *>(widget));
    else if (isExactly<QTableView, QTableWidget>(widget))
        setRowHeight(static_cast<QTableView *>(widget)->verticalHeader(),
            pixelMetric(PM_HeaderDefaultSectionSizeVertical));
    else if (isExactly<QCalendarWidget>(widget))
        removeWeekendRed(static_cast<QCalendarWidget *>(widget));
    else if (auto *wizard = qobject_cast<QWizard *>(widget))
        wizard->setWizardStyle(wizard->wizardStyle()); // Otherwise Windows' own, once it is shown.
    else if (MirroredParts::isFor(widget))
        widget->installEventFilter(m_mirroredParts);
}

void StockStyle::unpolish(QWidget *widget)
{
    widget->removeEventFilter(m_mirroredParts);
    QProxyStyle::unpolish(widget);
}

int StockStyle::pixelMetric(
    PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    case PM_SliderLength:
    case PM_SliderThickness:
    case PM_SliderControlThickness:
        if (isExactly<QSlider>(widget))
            return scaled(kHandle);
        break;
    case PM_SliderTickmarkOffset:
        if (isExactly<QSlider>(widget))
            return kTickShift;
        break;
    case PM_SplitterWidth:
        if (isExactly<QSplitter>(widget))
            return scaled(kLineArea);
        break;
    case PM_ListViewIconSize:
        if (isExactly<QListView, QListWidget>(widget) || isFileList(widget))
            return scaled(kIcon); // as in trees, so that all rows are of one height
        break;
    case PM_ToolBarIconSize:
        return scaled(kIcon);
    default:
        break;
    }
    return QProxyStyle::pixelMetric(metric, option, widget);
}

void StockStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
    QPainter *painter, const QWidget *widget) const
{
    // The pane already draws a line there.
    if (element == PE_FrameTabBarBase && isExactly<QTabBar>(widget))
        return;
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void StockStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
    const QWidget *widget) const
{
    if (element != CE_Splitter || !isExactly<QSplitter>(widget)) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    const bool isActive = option->state & (State_MouseOver | State_Sunken);
    const int width = qMax(1, scaled(1));
    QRect line = option->rect;
    if (option->state & State_Horizontal)
        // From right to left the gap between the parts begins one pixel after the handle.
        line = QRect(line.center().x() + (widget->isRightToLeft() ? 1 : 0), line.top(), width,
            line.height());
    else
        line = QRect(line.left(), line.center().y(), line.width(), width);
    painter->fillRect(
        line, defaultThemeColor(isActive ? QStringLiteral("accent") : QStringLiteral("line")));
}

void StockStyle::drawItemText(QPainter *painter, const QRect &rect, int flags,
    const QPalette &palette, bool enabled, const QString &text, QPalette::ColorRole role) const
{
    if (!isMisalignedByQt(flags, text)) {
        QProxyStyle::drawItemText(painter, rect, flags, palette, enabled, text, role);
        return;
    }
    QStringList paragraphs = text.split(QLatin1Char('\n'));
    for (QString &paragraph : paragraphs)
        paragraph = withLineBreaks(paragraph, painter, rect.width());
    QProxyStyle::drawItemText(
        painter, rect, flags, palette, enabled, paragraphs.join(QLatin1Char('\n')), role);
}

void StockStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
    QPainter *painter, const QWidget *widget) const
{
    const auto *slider = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (slider && control == CC_Slider && isExactly<QSlider>(widget))
        drawSlider(painter, *slider, subControlRect(CC_Slider, slider, SC_SliderHandle, widget));
    else if (slider && control == CC_Dial && isExactly<QDial>(widget))
        drawDial(painter, *slider);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect StockStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option,
    SubControl part, const QWidget *widget) const
{
    // Queried before the box measures its rows.
    if (part == SC_ComboBoxListBoxPopup && control == CC_ComboBox && isExactly<QComboBox>(widget))
        styleList(static_cast<const QComboBox *>(widget)->view());
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QIcon StockStyle::standardIcon(
    StandardPixmap standardIcon, const QStyleOption *option, const QWidget *widget) const
{
    const QString name = showsOurPictures(widget) ? pictureName(standardIcon) : QString();
    if (name.isEmpty())
        return QProxyStyle::standardIcon(standardIcon, option, widget);
    return getGlobalIcon(name);
}
