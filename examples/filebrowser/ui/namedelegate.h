// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/itemdelegate.h>

/// Renames in place, but leaves it to the host to do so: the cell keeps the old name until the disk
/// has the new one.
class NameDelegate : public ItemDelegate
{
    Q_OBJECT

public:
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    void setModelData(
        QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

    /// Whether its editor could take the name as it is.
    static bool canEdit(const QString &name);

Q_SIGNALS:
    /// Another name than before was entered. Const, as is the function of Qt's that it comes from.
    void nameEntered(const QString &from, const QString &to) const;
};
