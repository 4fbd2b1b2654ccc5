// SPDX-License-Identifier: MIT
#include "views/emptytext_p.h"

#include <vemo/stylemanager.h>

#include <QAbstractItemView>
#include <QEvent>

EmptyText::EmptyText(QAbstractItemView *view) : QLabel(view), m_view(view)
{
    setStyleSheet(getStyleSheet("component.table_empty_text"));
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignCenter);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    view->viewport()->installEventFilter(this);
    const QAbstractItemModel *model = view->model();
    connect(model, &QAbstractItemModel::rowsInserted, this, [this] { showOrHide(); });
    connect(model, &QAbstractItemModel::rowsRemoved, this, [this] { showOrHide(); });
    connect(model, &QAbstractItemModel::modelReset, this, [this] { showOrHide(); });
}

void EmptyText::setEmptyText(const QString &text)
{
    setText(text);
    showOrHide();
}

bool EmptyText::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && m_view)
        setGeometry(m_view->viewport()->geometry());
    return QLabel::eventFilter(watched, event);
}

void EmptyText::showOrHide()
{
    // The view's model is reset once more while the view is destroyed.
    if (!m_view)
        return;
    setGeometry(m_view->viewport()->geometry());
    setVisible(!text().isEmpty() && m_view->model()->rowCount() == 0);
}
