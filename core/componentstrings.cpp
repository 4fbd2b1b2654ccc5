// SPDX-License-Identifier: MIT
#include <vemo/componentstrings.h>

#include "core/logging_p.h"

#include <QCoreApplication>
#include <QEvent>

ComponentStrings &ComponentStrings::getInstance()
{
    static ComponentStrings instance;
    return instance;
}

void ComponentStrings::installStrings(const QMap<QString, QString> &strings)
{
    m_strings = strings;
}

void ComponentStrings::changeStrings(const QMap<QString, QString> &strings)
{
    installStrings(strings);
    QEvent event(QEvent::LanguageChange);
    QCoreApplication::sendEvent(QCoreApplication::instance(), &event);
}

QString ComponentStrings::getString(const QString &key) const
{
    const auto found = m_strings.constFind(key);
    if (found != m_strings.constEnd())
        return *found;
    qCWarning(vemoLog) << "Cannot find key in ComponentStrings" << key;
    return key;
}
