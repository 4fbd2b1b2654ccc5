// SPDX-License-Identifier: MIT
#include "namedelegate.h"

#include "texts.h"

#include <vemo/defaulttheme.h>
#include <vemo/dpiinfo.h>

#include <QLineEdit>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int kIndent = 5; // design pixels
constexpr int kRingWidth = 2; // design pixels, as in the style sheet of the other cells

/// Qt's delegate begins 3 pixels into a cell, whatever the style sheet's padding: this brings the
/// content in line with the header above it.
QStyleOptionViewItem indented(QStyleOptionViewItem cell)
{
    const int indent = DPIinfo::scaled(kIndent);
    if (cell.direction == Qt::RightToLeft)
        cell.rect.adjust(0, 0, -indent, 0);
    else
        cell.rect.adjust(indent, 0, 0, 0);
    return cell;
}

void drawRing(QPainter *painter, const QRect &cell)
{
    // At a fractional pixel ratio Qt would round each side by itself: the pen counts device pixels.
    const qreal ratio = painter->deviceTransform().m11();
    const int width = std::max(1, int(DPIinfo::scaled(kRingWidth) * ratio));
    QPen pen(defaultThemeColor("accent"), width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
    pen.setCosmetic(true);
    const qreal half = width / ratio / 2;
    painter->save();
    painter->setPen(pen);
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(QRectF(cell).adjusted(half, half, -half, -half));
    painter->restore();
}

} // namespace

void NameDelegate::paint(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    drawBackground(painter, option, index);
    ItemDelegate::paint(painter, indented(option), index);
    // Qt does not apply the style sheet's ring to this kind of delegate.
    if (option.state & QStyle::State_HasFocus)
        drawRing(painter, option.rect);
}

void NameDelegate::updateEditorGeometry(
    QWidget *editor, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    ItemDelegate::updateEditorGeometry(editor, indented(option), index);
}

void NameDelegate::setModelData(
    QWidget *editor, QAbstractItemModel * /*model*/, const QModelIndex &index) const
{
    const auto *field = qobject_cast<QLineEdit *>(editor);
    const QString from = index.data(Qt::EditRole).toString();
    if (field && field->text() != from)
        Q_EMIT nameEntered(from, field->text());
}

bool NameDelegate::canEdit(const QString &name)
{
    const QString refused("\\/:*?\"<>|");
    const auto isRefused = [&](QChar c) { return refused.contains(c); };
    return !name.startsWith('.') && displayName(name) == name
        && std::none_of(name.begin(), name.end(), isRefused);
}
