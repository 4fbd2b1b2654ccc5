// SPDX-License-Identifier: MIT
#include "views/tablenotice_p.h"

#include "core/scaling_p.h"

#include <vemo/stylemanager.h>

#include <QAbstractItemView>
#include <QEvent>

namespace {

constexpr int kBarHeight = 3; // in design pixels

} // namespace

TableNotice::TableNotice(QAbstractItemView *view)
    : QObject(view), m_view(view), m_viewport(view->viewport())
{
    m_viewport->installEventFilter(this);
    setModel(view->model());
}

void TableNotice::setModel(QAbstractItemModel *model)
{
    if (m_model)
        disconnect(m_model, nullptr, this, nullptr);
    m_model = model;
    if (m_model) {
        connect(m_model, &QAbstractItemModel::rowsInserted, this, [this] { update(); });
        connect(m_model, &QAbstractItemModel::rowsRemoved, this, [this] { update(); });
        connect(m_model, &QAbstractItemModel::modelReset, this, [this] { update(); });
    }
    update();
}

void TableNotice::setEmptyText(const QString &text)
{
    m_empty_text = text;
    update();
}

void TableNotice::setBusyText(const QString &text)
{
    m_busy_text = text;
    if (m_bar)
        m_bar->setAccessibleName(text);
    update();
}

void TableNotice::setBusy(bool busy)
{
    m_is_busy = busy;
    if (busy && !m_bar)
        m_bar = newBar();
    if (m_bar)
        m_bar->setVisible(busy);
    update();
}

bool TableNotice::eventFilter(QObject * /*watched*/, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        place();
    return false;
}

void TableNotice::update()
{
    if (!m_viewport)
        return;
    const QString text = m_is_busy ? m_busy_text : m_empty_text;
    if (!m_label && !text.isEmpty())
        m_label = newLabel();
    if (!m_label)
        return;
    const bool hasRows = m_model && m_model->rowCount() > 0;
    m_label->setText(text);
    m_label->setVisible(!text.isEmpty() && !hasRows);
    place();
}

void TableNotice::place()
{
    if (!m_viewport)
        return;
    const QRect rows = m_viewport->geometry();
    if (m_label)
        m_label->setGeometry(rows);
    if (m_bar)
        m_bar->setGeometry(rows.left(), rows.top(), rows.width(), scaled(kBarHeight));
}

QLabel *TableNotice::newLabel()
{
    auto *label = new QLabel(m_view);
    label->setStyleSheet(getStyleSheet("component.table_empty_text"));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignCenter);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    return label;
}

QProgressBar *TableNotice::newBar()
{
    auto *bar = new QProgressBar(m_view);
    bar->setStyleSheet(getStyleSheet("component.table_busy"));
    bar->setRange(0, 0);
    bar->setTextVisible(false);
    bar->setAccessibleName(m_busy_text);
    bar->setAttribute(Qt::WA_TransparentForMouseEvents);
    return bar;
}
