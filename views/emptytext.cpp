// SPDX-License-Identifier: MIT
#include "views/emptytext_p.h"

#include <vemo/stylemanager.h>

#include <QAbstractItemView>
#include <QEvent>

EmptyText::EmptyText(QAbstractItemView *view)
    : QLabel(view), m_viewport(view->viewport()), m_model(view->model())
{
    setStyleSheet(getStyleSheet("component.table_empty_text"));
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignCenter);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    m_viewport->installEventFilter(this);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, [this] { showOrHide(); });
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, [this] { showOrHide(); });
    connect(m_model, &QAbstractItemModel::modelReset, this, [this] { showOrHide(); });
}

void EmptyText::setEmptyText(const QString &text)
{
    setText(text);
    showOrHide();
}

bool EmptyText::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && m_viewport)
        setGeometry(m_viewport->geometry());
    return QLabel::eventFilter(watched, event);
}

void EmptyText::showOrHide()
{
    if (!m_viewport || !m_model)
        return;
    setGeometry(m_viewport->geometry());
    setVisible(!text().isEmpty() && m_model->rowCount() == 0);
}
