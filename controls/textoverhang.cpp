// SPDX-License-Identifier: MIT
#include "controls/textoverhang_p.h"

#include <QComboBox>
#include <QStyleOptionComboBox>
#include <QStylePainter>

namespace {

/// The area before the field, at the side where texts begin.
QRect areaBefore(const QRect &field, const QStyleOptionComboBox &option)
{
    QRect area = field;
    if (option.direction == Qt::RightToLeft)
        area.setCoords(field.right() + 1, field.top(), option.rect.right(), field.bottom());
    else
        area.setCoords(option.rect.left(), field.top(), field.left() - 1, field.bottom());
    return area;
}

/// Whether a letter is drawn before the place where the text begins.
bool hasOverhang(const QString &text, const QFontMetrics &metrics, Qt::LayoutDirection direction)
{
    const QRect ink = metrics.boundingRect(text);
    return direction == Qt::RightToLeft ? ink.right() >= metrics.horizontalAdvance(text)
                                        : ink.left() < 0;
}

} // namespace

void paintOverhang(QStylePainter *painter, const QStyleOptionComboBox &option, const QComboBox &box)
{
    // Beside an icon there is room for it.
    const bool hasPlainText =
        !box.isEditable() && option.currentIcon.isNull() && !option.currentText.isEmpty();
    if (!hasPlainText || box.styleSheet().isEmpty()
        || !hasOverhang(option.currentText, painter->fontMetrics(), option.direction))
        return;
    const QRect field = box.style()->subControlRect(
        QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
    const Qt::Alignment alignment =
        QStyle::visualAlignment(option.direction, Qt::AlignLeft | Qt::AlignVCenter);
    painter->setClipRect(areaBefore(field, option));
    painter->drawItemText(field, int(alignment) | Qt::TextDontClip, option.palette,
        option.state & QStyle::State_Enabled, option.currentText, QPalette::Text);
}
