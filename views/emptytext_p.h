// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QLabel>
#include <QPointer>

class QAbstractItemModel;
class QAbstractItemView;

/// A text in the middle of a view, shown while the view's model has no rows.
class EmptyText : public QLabel
{
public:
    explicit EmptyText(QAbstractItemView *view);

    void setEmptyText(const QString &text);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showOrHide();

    // Not the view: both tell of changes while it is destroyed.
    QPointer<QWidget> m_viewport;
    QPointer<QAbstractItemModel> m_model;
};
