// SPDX-License-Identifier: MIT
#pragma once

#include <QCollator>

#include <memory>

/// A name's place in a collator's order, for many comparisons. On Windows, QCollatorSortKey
/// compares the bytes of its keys in a wrong order, and others than the key's.
class NameKey
{
public:
    NameKey(const QCollator &collator, const QString &name);

    int compare(const NameKey &other) const;

private:
    struct Private;
    std::shared_ptr<const Private> d;
};
