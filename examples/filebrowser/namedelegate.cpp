// SPDX-License-Identifier: MIT
#include "namedelegate.h"

#include "texts.h"

#include <QLineEdit>

#include <algorithm>

void NameDelegate::setModelData(
    QWidget *editor, QAbstractItemModel * /*model*/, const QModelIndex &index) const
{
    const auto *field = qobject_cast<QLineEdit *>(editor);
    const QString from = index.data(Qt::EditRole).toString();
    if (field && field->text() != from)
        Q_EMIT const_cast<NameDelegate *>(this)->nameEntered(from, field->text());
}

bool NameDelegate::canEdit(const QString &name)
{
    const QString refused("\\/:*?\"<>|");
    const auto isRefused = [&](QChar c) { return refused.contains(c); };
    return !name.startsWith('.') && displayName(name) == name
        && std::none_of(name.begin(), name.end(), isRefused);
}
