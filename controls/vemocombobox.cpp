// SPDX-License-Identifier: MIT
#include <vemo/vemocombobox.h>

#include <vemo/dpiinfo.h>
#include <vemo/stylemanager.h>

#include <QAbstractItemView>
#include <QStyledItemDelegate>

namespace {

constexpr double kSidePadding = 6.0; // Design pixels.
constexpr int kListGap = 2; // Screen pixels: deliberately not scaled.

QString paddingRules()
{
    // Deliberate: written with its fraction, not truncated; 7.5px at 120 dpi.
    const QString width = QString::number(DPIinfo::getInstance().getDPI() * kSidePadding, 'g', 6);
    return QStringLiteral("padding-left: %1px; \npadding-right: %1px;").arg(width);
}

QString comboBoxStyle()
{
    const QString box = getStyleSheet("component.combobox")
                            .arg(paddingRules())
                            .arg(QLatin1String("border: 1px solid #C8D2DC;"));
    return box + getStyleSheet("component.scrollbar");
}

} // namespace

VemoComboBox::VemoComboBox(QWidget *parent) : QComboBox(parent)
{
    setStyleSheet(comboBoxStyle());
    // The rows of Qt's own delegate don't follow the style sheet. The view doesn't own it.
    auto *delegate = new QStyledItemDelegate;
    view()->setItemDelegate(delegate);
    delegate->setParent(this);
}

void VemoComboBox::showPopup()
{
    clearFocus();
    QComboBox::showPopup();
    auto *popup = findChild<QFrame *>();
    if (popup)
        popup->move(mapToGlobal(QPoint(0, 0)) + QPoint(0, height() + kListGap));
}
