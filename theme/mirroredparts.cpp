// SPDX-License-Identifier: MIT
#include "theme/mirroredparts_p.h"

#include "core/scaling_p.h"

#include <QAbstractButton>
#include <QEvent>
#include <QGroupBox>
#include <QPixmap>
#include <QStyleOption>
#include <QStylePainter>
#include <QToolBox>

namespace {

// Screen pixels, as in QCommonStyle: beside the icon, between it and the text, after the text.
constexpr int kIconMargin = 4;
constexpr int kIconGap = 5;
constexpr int kTabEnd = 38;

constexpr int kTabPadding = 8; // design pixels, as in the style sheet

/// Gives access to the option with which a group box draws itself.
struct OpenGroup : QGroupBox
{
    static QStyleOptionGroupBox optionOf(const QGroupBox *group)
    {
        QStyleOptionGroupBox option;
        (group->*&OpenGroup::initStyleOption)(&option);
        return option;
    }
};

QRect partOf(const QStyleOptionGroupBox &option, QStyle::SubControl part, const QGroupBox *group)
{
    return group->style()->subControlRect(QStyle::CC_GroupBox, &option, part, group);
}

/// Where the style draws the text. It has room for a blank beside the text.
QRect labelOf(const QStyleOptionGroupBox &option, const QGroupBox *group)
{
    QRect label = partOf(option, QStyle::SC_GroupBoxLabel, group);
    const QString text = option.text + QLatin1Char(' ');
    const QSize size = option.fontMetrics.size(Qt::TextShowMnemonic, text);
    label.setSize(label.size().expandedTo(size));
    return label;
}

/// By way of a picture as high as the title, because the style draws the frame, too, and sets its
/// own clipping.
void drawTitle(QStylePainter &painter, QStyleOptionGroupBox option, const QGroupBox *group)
{
    const QRect label = labelOf(option, group);
    option.subControls = QStyle::SC_GroupBoxLabel;
    const QRect drawn = labelOf(option, group);
    const qreal ratio = group->devicePixelRatioF();
    QPixmap title(QSize(drawn.right() + 1, drawn.bottom() + 1) * ratio);
    title.setDevicePixelRatio(ratio);
    title.fill(Qt::transparent);
    QPainter titlePainter(&title);
    titlePainter.setFont(group->font());
    titlePainter.setLayoutDirection(group->layoutDirection());
    group->style()->drawComplexControl(QStyle::CC_GroupBox, &option, &titlePainter, group);
    titlePainter.end();
    const QRect place = QStyle::visualRect(Qt::RightToLeft, option.rect, label);
    painter.drawPixmap(place.left() - drawn.left(), place.center().y() - drawn.center().y(), title);
}

/// Draws it as from left to right, part by part, each at its mirrored place.
void drawGroup(QGroupBox *group)
{
    QStylePainter painter(group);
    QStyleOptionGroupBox option = OpenGroup::optionOf(group);
    option.direction = Qt::LeftToRight;
    option.textAlignment = Qt::AlignLeft;

    QStyleOptionGroupBox frame = option;
    frame.subControls = QStyle::SC_GroupBoxFrame;
    frame.text.clear();
    painter.drawComplexControl(QStyle::CC_GroupBox, frame);
    if (!option.text.isEmpty())
        drawTitle(painter, option, group);
    if (group->isCheckable()) {
        QStyleOptionButton check;
        static_cast<QStyleOption &>(check) = option;
        check.rect = QStyle::visualRect(
            Qt::RightToLeft, option.rect, partOf(option, QStyle::SC_GroupBoxCheckBox, group));
        painter.drawPrimitive(QStyle::PE_IndicatorCheckBox, check);
    }
}

/// The tabs of a tool box are of a class that Qt keeps to itself.
bool isToolBoxTab(const QWidget *widget)
{
    return qstrcmp(widget->metaObject()->className(), "QToolBoxButton") == 0;
}

QStyleOptionToolBox optionOf(const QAbstractButton *tab, const QToolBox *box)
{
    const QList<QAbstractButton *> tabs =
        box->findChildren<QAbstractButton *>(QString(), Qt::FindDirectChildrenOnly);
    int index = 0;
    for (const QAbstractButton *each : tabs) {
        if (isToolBoxTab(each) && each->y() < tab->y())
            ++index;
    }
    QStyleOptionToolBox option;
    option.initFrom(tab);
    option.text = tab->text();
    option.state.setFlag(QStyle::State_Selected, index == box->currentIndex());
    option.state.setFlag(QStyle::State_Sunken, tab->isDown());
    return option;
}

void drawTab(QAbstractButton *tab, const QToolBox *box)
{
    QPainter painter(tab);
    const QStyle *style = tab->style();
    QStyleOptionToolBox option = optionOf(tab, box);
    style->drawControl(QStyle::CE_ToolBoxTabShape, &option, &painter, box);
    const int extent = style->pixelMetric(QStyle::PM_SmallIconSize, nullptr, box);
    const QPixmap icon = tab->icon().pixmap(
        QSize(extent, extent), tab->isEnabled() ? QIcon::Normal : QIcon::Disabled);
    int textMargin = kIconMargin;
    if (!icon.isNull()) {
        const QSize size = icon.size() / icon.devicePixelRatio();
        const int right = tab->width() - 1 - scaled(kTabPadding) - kIconMargin;
        painter.drawPixmap(right - size.width(), (tab->height() - size.height()) / 2, icon);
        textMargin += size.width() + kIconGap;
    }
    option.rect.setRight(option.rect.right() + kTabEnd - textMargin);
    style->drawControl(QStyle::CE_ToolBoxTabLabel, &option, &painter, box);
}

bool drawGroupEvent(QGroupBox *group, QEvent::Type type)
{
    switch (type) {
    case QEvent::Paint:
        drawGroup(group);
        return true;
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
    case QEvent::HoverLeave:
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        group->update(); // Qt updates only the place where it believes the check box to be.
        return false;
    default:
        return false;
    }
}

} // namespace

bool MirroredParts::isFor(const QWidget *widget)
{
    return widget->metaObject() == &QGroupBox::staticMetaObject || isToolBoxTab(widget);
}

bool MirroredParts::eventFilter(QObject *watched, QEvent *event)
{
    auto *widget = static_cast<QWidget *>(watched);
    if (!widget->isRightToLeft())
        return false;
    if (auto *group = qobject_cast<QGroupBox *>(widget))
        return drawGroupEvent(group, event->type());
    const auto *box = qobject_cast<QToolBox *>(widget->parentWidget());
    if (!box || event->type() != QEvent::Paint)
        return false;
    drawTab(static_cast<QAbstractButton *>(widget), box);
    return true;
}
