// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QAccessible>
#include <QLatin1String>

class QComboBox;

/// An accessible interface that returns the accessible name set by the host. On Unix, Qt's own
/// returns the current text even if a name is set.
QAccessibleInterface *newAccessibleComboBox(QComboBox *box);

/// Installs this interface for all boxes of a class and of those derived from it. To be called by
/// their constructor.
template <class Box> void announceByGivenName()
{
    // Installing the factory again is a no-op.
    QAccessible::installFactory([](const QString &className, QObject *object) {
        const bool isBox = className == QLatin1String(Box::staticMetaObject.className());
        return isBox ? newAccessibleComboBox(static_cast<Box *>(object)) : nullptr;
    });
}
