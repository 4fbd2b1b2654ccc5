// SPDX-License-Identifier: MIT
#include "views/pagingextras_p.h"

#include "controls/fittingfont_p.h"
#include "core/scaling_p.h"
#include "core/stringof_p.h"

#include <vemo/stylemanager.h>
#include <vemo/vemocombobox.h>
#include <vemo/vemopagingmodel.h>

#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>

#include <limits>

namespace {

// In design pixels.
constexpr int kHeight = 24;
constexpr int kFrame = 2; // that of the focus
constexpr int kGap = 8;
constexpr int kJumpWidth = 64;

/// Shown as tool tip too: the parts have no captions.
void name(QWidget *part, const QString &name)
{
    part->setAccessibleName(name);
    part->setToolTip(name);
}

} // namespace

/// Later: a slot of the part may have asked for it.
template <typename Part> void PagingExtras::remove(Part *&part)
{
    part->hide();
    m_layout->removeWidget(part);
    part->deleteLater();
    part = nullptr;
}

PagingExtras::PagingExtras() : m_layout(new QHBoxLayout(this))
{
    m_layout->setContentsMargins(scaled(kGap), 0, 0, 0);
    m_layout->setSpacing(scaled(kGap));
}

void PagingExtras::setRangeVisible(bool visible)
{
    if (visible)
        addRange();
    else
        remove(m_range);
}

void PagingExtras::setRowLimits(const QVector<int> &limits)
{
    if (m_limit_box)
        m_limit_box->clear();
    for (const int limit : limits) {
        if (limit < 1)
            continue;
        if (!m_limit_box)
            addLimitBox();
        m_limit_box->addItem(locale().toString(limit), limit);
    }
    if (m_limit_box && m_limit_box->count() == 0)
        remove(m_limit_box);
    showAll();
}

QVector<int> PagingExtras::rowLimits() const
{
    QVector<int> limits;
    for (int row = 0; m_limit_box && row < m_limit_box->count(); ++row)
        limits << m_limit_box->itemData(row).toInt();
    return limits;
}

void PagingExtras::setJumpFieldVisible(bool visible)
{
    if (visible)
        addJumpField();
    else
        remove(m_jump_field);
}

void PagingExtras::showPosition(const VemoPagingModel &model)
{
    m_row_limit = model.rowLimit();
    m_item_count = model.itemCount();
    m_page = model.nowPage();
    showAll();
}

void PagingExtras::addRange()
{
    m_range = new QLabel;
    m_range->setStyleSheet(getStyleSheet("component.paging_bar_label"));
    FittingFont::keep(m_range, scaled(kHeight)); // it has no frame
    add(0, m_range);
    showAll();
}

void PagingExtras::addLimitBox()
{
    m_limit_box = new VemoComboBox;
    name(m_limit_box, stringOf("rows_per_page"));
    connect(m_limit_box, qOverload<int>(&QComboBox::activated), this,
        [this](int row) { Q_EMIT rowLimitChosen(m_limit_box->itemData(row).toInt()); });
    add(m_range ? 1 : 0, m_limit_box);
}

void PagingExtras::addJumpField()
{
    m_jump_field = new QLineEdit;
    m_jump_field->setStyleSheet(getStyleSheet("component.lineedit"));
    m_jump_field->setFixedWidth(scaled(kJumpWidth));
    m_jump_field->setValidator(new QIntValidator(1, std::numeric_limits<int>::max(), m_jump_field));
    name(m_jump_field, stringOf("go_to_page"));
    connect(m_jump_field, &QLineEdit::returnPressed, this, [this] {
        const int page = locale().toInt(m_jump_field->text());
        m_jump_field->clear();
        Q_EMIT pageChosen(page);
    });
    add(m_layout->count(), m_jump_field);
}

void PagingExtras::add(int position, QWidget *part)
{
    part->setFixedHeight(scaled(kHeight));
    FittingFont::keep(part, scaled(kHeight) - 2 * scaled(kFrame));
    m_layout->insertWidget(position, part, 0, Qt::AlignVCenter);
}

void PagingExtras::showAll()
{
    if (m_limit_box)
        m_limit_box->setCurrentIndex(m_limit_box->findData(m_row_limit));
    if (!m_range)
        return;
    const qint64 first = (qint64(m_page) - 1) * m_row_limit;
    const qint64 last = qMin(first + m_row_limit, qint64(m_item_count));
    const bool hasItems = first >= 0 && first < last;
    m_range->setText(hasItems ? stringOf("items_range")
                                    .arg(locale().toString(first + 1), locale().toString(last),
                                        locale().toString(m_item_count))
                              : QString());
}
