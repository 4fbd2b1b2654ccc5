// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QLabel>
#include <QPointer>
#include <QProgressBar>

class QAbstractItemModel;
class QAbstractItemView;

/// What is shown over the rows of a view: a text in the middle while there are none, and a moving
/// bar at the top while the host is busy.
class TableNotice : public QObject
{
public:
    explicit TableNotice(QAbstractItemView *view);

    /// Called again whenever the view gets another model, which may be null.
    void setModel(QAbstractItemModel *model);

    QString emptyText() const { return m_empty_text; }
    void setEmptyText(const QString &text);
    /// Shown instead of the empty text while busy, and read out as the name of the bar.
    QString busyText() const { return m_busy_text; }
    void setBusyText(const QString &text);
    bool isBusy() const { return m_is_busy; }
    void setBusy(bool busy);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void update();
    void place();
    QLabel *newLabel();
    QProgressBar *newBar();

    QAbstractItemView *m_view; // the parent
    // The view emits changes of these while it is destroyed.
    QPointer<QWidget> m_viewport;
    QPointer<QAbstractItemModel> m_model;
    QPointer<QLabel> m_label; ///< null until there is a text
    QPointer<QProgressBar> m_bar; ///< null until busy
    QString m_empty_text;
    QString m_busy_text;
    bool m_is_busy = false;
};
