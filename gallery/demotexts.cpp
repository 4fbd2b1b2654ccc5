// SPDX-License-Identifier: MIT
#include "gallery/demotexts.h"

#include <QFile>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

namespace {

QJsonObject tableOf(const QString &code)
{
    QFile file(QString(":/gallery/strings/%1.json").arg(code));
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object()
                                          : QJsonObject();
}

QJsonObject &table()
{
    static QJsonObject current = tableOf("enu");
    return current;
}

} // namespace

QString demo(const char *key)
{
    return table().value(QLatin1String(key)).toString(key);
}

QString demoSize(double amount, const char *unit)
{
    const QString size = QLocale().toString(amount) + ' ' + unit;
    return QGuiApplication::isRightToLeft() ? QChar(0x2066) + size + QChar(0x2069) : size;
}

void setDemoLanguage(const QString &code)
{
    table() = tableOf("enu"); // for texts that have not been translated
    const QJsonObject translated = tableOf(code);
    for (auto entry = translated.begin(); entry != translated.end(); ++entry)
        table().insert(entry.key(), entry.value());
}
