// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <vemo/componentstrings.h>

#include <QLatin1String>
#include <QObject>
#include <QString>
#include <QVariant>

#include <initializer_list>
#include <utility>

/// The text of a key; the key, with a warning, if it is missing.
inline QString stringOf(const char *key)
{
    return ComponentStrings::getInstance().getString(QLatin1String(key));
}

/// For another language: sets text in the properties of object that show the library's text, which
/// was shown. A property with another text has one of the host's own, and keeps it. object may be
/// null.
inline void followLanguage(QObject *object, std::initializer_list<const char *> properties,
    QString *shown, const QString &text)
{
    const QString before = std::exchange(*shown, text);
    for (const char *property : properties) {
        if (object && object->property(property).toString() == before)
            object->setProperty(property, text);
    }
}
