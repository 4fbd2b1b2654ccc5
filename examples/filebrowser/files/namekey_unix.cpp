// SPDX-License-Identifier: MIT
#include "namekey.h"

struct NameKey::Private
{
    QCollatorSortKey key;
};

NameKey::NameKey(const QCollator &collator, const QString &name)
    : d(std::make_shared<Private>(Private {collator.sortKey(name)}))
{
}

int NameKey::compare(const NameKey &other) const
{
    return d->key.compare(other.d->key);
}
