// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QItemDelegate>

/// Rows of 28 design pixels, renamed in place by names that a file can have.
///
/// A view doesn't own its delegate: give it a parent. Load the style files before the first
/// renaming; the editor's look is "component.tree_item", and plain with a warning without it.
///
///     tree->setItemDelegate(new ItemDelegate(tree));
///
/// \image html tree-renaming-and-check-boxes.png
class VEMO_EXPORT ItemDelegate : public QItemDelegate
{
    Q_OBJECT

public:
    /// Without a parent.
    ItemDelegate();
    /// Deleted with parent.
    explicit ItemDelegate(QObject *parent);

    bool eventFilter(QObject *object, QEvent *event) override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    /// A line edit gets the look and takes no name that begins with a full stop or holds one of
    /// \ / : * ? " < > |. Any other editor is filled in as it is.
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;

Q_SIGNALS:
    /// The user pressed Escape, and no other key, in the editor, which closes after the slots. The
    /// event is not to be kept.
    void sigKeyPressed(QKeyEvent *);

protected:
    void drawCheck(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
        Qt::CheckState state) const override;
};
