// SPDX-License-Identifier: MIT
#include "views/sidebardelegate_p.h"

#include "core/scaling_p.h"
#include "views/owndirection_p.h"
#include "views/sidebarlist_p.h"

#include <vemo/stylemanager.h>
#include <vemo/tooltiptext.h>
#include <vemo/vemobadge.h>

#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QPainter>
#include <QTextBoundaryFinder>
#include <QToolTip>

namespace {

// Design pixels.
constexpr int kRowHeight = 28;
constexpr int kBadgeGap = 8; // between a badge, the text and the end of the row
constexpr int kPictureGap = 6; // between a picture and the text

QStyle *styleOf(const QStyleOptionViewItem &option)
{
    return option.widget ? option.widget->style() : QApplication::style();
}

/// Qt's styles leave it free at both ends of the text.
int textMargin(const QStyleOptionViewItem &option)
{
    return styleOf(option)->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, option.widget) + 1;
}

/// What Qt's styles, which do not scale their margins, lack of the gap after a picture.
int missingGap(const QStyleOptionViewItem &option)
{
    return qMax(0, scaled(kPictureGap) - 2 * textMargin(option));
}

QIcon::Mode iconMode(const QStyleOptionViewItem &row)
{
    if (!(row.state & QStyle::State_Enabled))
        return QIcon::Disabled;
    return row.state & QStyle::State_MouseOver ? QIcon::Active : QIcon::Normal;
}

/// The picture at its own size in the middle of where Qt's styles would draw it.
QRect iconRect(const QStyleOptionViewItem &row, bool isCollapsed)
{
    if (isCollapsed)
        return QStyle::alignedRect(row.direction, Qt::AlignCenter, row.decorationSize, row.rect);
    const QRect room =
        styleOf(row)->subElementRect(QStyle::SE_ItemViewItemDecoration, &row, row.widget);
    const QSize size(room.width() - missingGap(row), room.height());
    return QStyle::alignedRect(row.direction, Qt::AlignLeft | Qt::AlignVCenter, size, room);
}

QString firstLetter(const QString &text)
{
    return text.left(QTextBoundaryFinder(QTextBoundaryFinder::Grapheme, text).toNextBoundary());
}

/// Draws a widget that is not shown at rect.
void drawAt(QPainter *painter, QWidget *widget, const QRect &rect)
{
    widget->resize(rect.size());
    painter->save();
    painter->translate(rect.topLeft());
    widget->render(painter, QPoint(), QRegion(), QWidget::DrawChildren);
    painter->restore();
}

} // namespace

SideBarDelegate::SideBarDelegate(SideBarList *list) : QStyledItemDelegate(list), m_list(list)
{
    // A badge shows itself when it has a count.
    auto *hidden = new QWidget(list);
    hidden->hide();
    m_heading = new QLabel(hidden);
    m_heading->setTextFormat(Qt::PlainText);
    m_heading->setStyleSheet(getStyleSheet("component.side_bar_heading"));
    m_badge = new VemoBadge(hidden);
    m_badge->setKind(VemoBadge::Neutral);
}

void SideBarDelegate::setFont(const QFont &font)
{
    m_heading->setFont(font);
    m_badge->setFont(font);
}

QRect SideBarDelegate::pageRect(const QModelIndex &index, const QRect &row) const
{
    return row.adjusted(0, headingSize(index).height(), 0, 0);
}

int SideBarDelegate::rowWidth(const QModelIndex &index) const
{
    QStyleOptionViewItem page;
    page.initFrom(m_list);
    page.widget = m_list;
    page.decorationSize = m_list->iconSize();
    const int badge = badgeRect(page, index).width();
    const int text = QStyledItemDelegate::sizeHint(page, index).width()
        + (badge > 0 ? badge + 2 * scaled(kBadgeGap) : 0);
    return qMax(text, headingSize(index).width());
}

QSize SideBarDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const int height = QStyledItemDelegate::sizeHint(option, index).height();
    return {0, qMax(height, scaled(kRowHeight)) + headingSize(index).height()};
}

void SideBarDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->features & QStyleOptionViewItem::HasDecoration && !m_list->isCollapsed())
        option->decorationSize.rwidth() += missingGap(*option);
}

void SideBarDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    paintHeading(painter, option.rect, index);
    QStyleOptionViewItem page = pageOption(option, index);
    if (m_list->isPressed(index))
        page.state |= QStyle::State_Sunken;
    // Even if the current page is disabled, which Qt does not select.
    if (index == m_list->currentIndex())
        page.state |= QStyle::State_Selected;
    paintPage(painter, page, index);
    paintBadge(painter, page, index);
}

bool SideBarDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
    const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const QModelIndex row = m_list->rowAt(event->pos());
    if (event->type() != QEvent::ToolTip || !row.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QString cut;
    if (index.isValid() && isCut(pageOption(option, index), index))
        cut = index.data().toString();
    else if (!index.isValid() && headingSize(row).width() > view->viewport()->width())
        cut = row.data(HeadingRole).toString();
    if (cut.isEmpty()) {
        QToolTip::hideText();
        event->ignore();
        return false;
    }
    QToolTip::showText(event->globalPos(), getHtmlEscapedStringForToolTip(cut), view->viewport(),
        index.isValid() ? option.rect : view->visualRect(row));
    return true;
}

/// What is drawn below the heading of a row.
QStyleOptionViewItem SideBarDelegate::pageOption(
    const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyleOptionViewItem page = option;
    page.rect = pageRect(index, option.rect);
    initStyleOption(&page, index);
    return page;
}

/// With a height of 0 if the row has no heading.
QSize SideBarDelegate::headingSize(const QModelIndex &index) const
{
    const QString heading = index.data(HeadingRole).toString();
    if (heading.isEmpty() || m_list->isCollapsed())
        return {0, 0};
    m_heading->setText(heading);
    return m_heading->sizeHint();
}

/// Empty if there is none. In a collapsed row it is a dot at the corner of the picture.
QRect SideBarDelegate::badgeRect(const QStyleOptionViewItem &page, const QModelIndex &index) const
{
    const int count = index.data(BadgeRole).toInt();
    if (count == 0)
        return {};
    m_badge->setDot(m_list->isCollapsed());
    m_badge->setCount(count);
    // A dot is limited by its style section.
    const QSize size = m_badge->sizeHint().boundedTo(m_badge->maximumSize());
    if (m_list->isCollapsed()) {
        QRect dot(QPoint(), size);
        const QRect picture =
            QStyle::alignedRect(page.direction, Qt::AlignCenter, m_list->iconSize(), page.rect);
        dot.moveCenter(page.direction == Qt::RightToLeft ? picture.topLeft() : picture.topRight());
        return dot;
    }
    const int gap = scaled(kBadgeGap);
    return QStyle::alignedRect(page.direction, Qt::AlignRight | Qt::AlignVCenter, size,
        page.rect.adjusted(gap, 0, -gap, 0));
}

/// The room for the text of a page that is not collapsed.
int SideBarDelegate::textRoom(const QStyleOptionViewItem &page, const QModelIndex &index) const
{
    const QRect text =
        styleOf(page)->subElementRect(QStyle::SE_ItemViewItemText, &page, page.widget);
    const QRect badge = badgeRect(page, index);
    int room = text.width();
    if (!badge.isEmpty()) {
        room = page.direction == Qt::RightToLeft ? text.right() - badge.right()
                                                 : badge.left() - text.left();
        room -= scaled(kBadgeGap);
    }
    return room - 2 * textMargin(page);
}

bool SideBarDelegate::isCut(const QStyleOptionViewItem &page, const QModelIndex &index) const
{
    return m_list->isCollapsed()
        || page.fontMetrics.horizontalAdvance(page.text) > textRoom(page, index);
}

void SideBarDelegate::paintHeading(
    QPainter *painter, const QRect &row, const QModelIndex &index) const
{
    const QSize size = headingSize(index);
    if (size.height() == 0)
        return;
    const QString text = m_heading->text();
    const QFontMetrics metrics = m_heading->fontMetrics();
    const int padding = size.width() - metrics.horizontalAdvance(text);
    m_heading->setText(metrics.elidedText(text, Qt::ElideRight, row.width() - padding));
    // QLabel goes by the direction of the text instead.
    const Qt::Alignment side = m_list->isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft;
    m_heading->setAlignment(side | Qt::AlignAbsolute | Qt::AlignVCenter);
    m_heading->setEnabled(m_list->isEnabled());
    drawAt(painter, m_heading, {row.topLeft(), QSize(row.width(), size.height())});
}

void SideBarDelegate::paintPage(
    QPainter *painter, QStyleOptionViewItem page, const QModelIndex &index) const
{
    const QIcon icon = page.icon;
    const bool hasIcon = !icon.isNull();
    const QRect picture = hasIcon ? iconRect(page, m_list->isCollapsed()) : QRect();
    // Qt would tint it in the selected row.
    page.icon = QIcon();
    page.text = inOwnDirection(page.text, page.direction);
    if (m_list->isCollapsed()) {
        page.features &= ~QStyleOptionViewItem::HasDecoration;
        page.displayAlignment = Qt::AlignCenter;
        page.text = hasIcon ? QString() : firstLetter(index.data().toString());
    } else if (index.data(BadgeRole).toInt() > 0) { // Qt elides a text that has the row to itself.
        page.text = page.fontMetrics.elidedText(page.text, Qt::ElideRight, textRoom(page, index));
    }
    styleOf(page)->drawControl(QStyle::CE_ItemViewItem, &page, painter, page.widget);
    if (hasIcon)
        icon.paint(painter, picture, Qt::AlignCenter, iconMode(page));
}

void SideBarDelegate::paintBadge(
    QPainter *painter, const QStyleOptionViewItem &page, const QModelIndex &index) const
{
    const QRect rect = badgeRect(page, index);
    if (rect.isEmpty())
        return;
    m_badge->setEnabled(page.state & QStyle::State_Enabled);
    drawAt(painter, m_badge, rect);
}
