// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QItemDelegate>

/// Rows of 28 design pixels that are renamed in place, with an editor for valid file names.
///
/// A view does not own its delegate: give it a parent. Requires: style files, before the first
/// renaming; without the section "component.tree_item" the editor looks plain, with a warning.
///
///     tree->setItemDelegate(new ItemDelegate(tree));
///
/// \image html tree-renaming-and-check-boxes.png
class VEMO_EXPORT ItemDelegate : public QItemDelegate
{
    Q_OBJECT

public:
    /// Creates a delegate without a parent.
    ItemDelegate();
    /// Creates a delegate that belongs to parent.
    explicit ItemDelegate(QObject *parent);

    bool eventFilter(QObject *object, QEvent *event) override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    /// Styles a line edit, which then rejects names that begin with a full stop or contain one of
    /// \ / : * ? " < > |. Other editors only receive the data.
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;

Q_SIGNALS:
    /// Emitted when the user presses Escape in the editor, but for no other key. The editor closes
    /// after the slots. The event is only valid during the signal.
    void sigKeyPressed(QKeyEvent *);

protected:
    void drawCheck(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
        Qt::CheckState state) const override;

    /// In a VemoTreeWidget the focus frame ends where the row's highlight ends.
    void drawFocus(
        QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect) const override;

    /// A text in a font that is too large for the row gets smaller.
    void drawDisplay(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
        const QString &text) const override;
};
