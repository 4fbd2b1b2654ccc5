// SPDX-License-Identifier: MIT
#include "startup.h"

#include <vemo/ComponentStrings>
#include <vemo/ImageManager>
#include <vemo/StyleManager>
#include <vemo/UIPathManager>

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

/// The library takes any table, from any source. This host uses one JSON file per language.
QMap<QString, QString> stringsIn(const QString &path)
{
    QFile file(path);
    QMap<QString, QString> strings;
    if (!file.open(QIODevice::ReadOnly))
        return strings;
    const QJsonObject table = QJsonDocument::fromJson(file.readAll()).object();
    for (auto entry = table.begin(); entry != table.end(); ++entry)
        strings.insert(entry.key(), entry.value().toString());
    return strings;
}

} // namespace

bool startUp(const QString &resources, const QString &cache, const QString &languageCode)
{
    QMap<QString, QString> strings = stringsIn(resources + "/strings/" + languageCode + ".json");
    if (strings.isEmpty())
        strings = stringsIn(resources + "/strings/enu.json");
    if (strings.isEmpty())
        return false;

    // Each step requires those before it.
    UIPathManager::getInstance().setPath("resource_path", resources);
    UIPathManager::getInstance().setPath("user_data_path", cache);
    ComponentStrings::getInstance().installStrings(strings);
    ImageManager::getInstance().initialize(ImageManager::LAZY_LOAD);
    StyleManager::getInstance().initialize({resources + "/style/tea.qss"});
    return true;
}
