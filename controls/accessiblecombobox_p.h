// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QAccessible>
#include <QLatin1String>

class QComboBox;

/// A combo box for assistive tools that goes by the accessible name that the host gives it. Qt's
/// own goes by its current text on Unix, whatever its name is.
QAccessibleInterface *newAccessibleComboBox(QComboBox *box);

/// Has all boxes of a class, and of those derived from it, announced in this way; call it in their
/// constructor.
template <class Box> void announceByGivenName()
{
    // Installing it again is a no-op.
    QAccessible::installFactory([](const QString &className, QObject *object) {
        const bool isBox = className == QLatin1String(Box::staticMetaObject.className());
        return isBox ? newAccessibleComboBox(static_cast<Box *>(object)) : nullptr;
    });
}
