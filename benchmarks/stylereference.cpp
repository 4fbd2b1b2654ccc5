// SPDX-License-Identifier: MIT
#include "benchmarks/stylereference.h"

#include <vemo/imagemanager.h>

#include <QFile>
#include <QRegularExpression>
#include <QTextStream>

QString bench::scaledByRegex(const QString &sheet, double factor)
{
    static const QRegularExpression length(QStringLiteral("(\\d+\\.?\\d*)(px)"));
    const QStringList pieces = sheet.split(length);
    QString result;
    int piece = 0;
    QRegularExpressionMatch match = length.match(sheet);
    while (match.hasMatch()) {
        if (piece < pieces.size())
            result.append(pieces[piece]);
        result.append(QStringLiteral("%1px").arg(int(match.captured(1).toDouble() * factor)));
        ++piece;
        match = length.match(sheet, match.capturedStart() + 3, QRegularExpression::NormalMatch,
            QRegularExpression::DontCheckSubjectStringMatchOption);
    }
    if (piece < pieces.size())
        result.append(pieces[piece]);
    return result;
}

void bench::sectionsByRegex(const QStringList &paths, std::map<QString, QString> &sections)
{
    constexpr auto options = QRegularExpression::InvertedGreedinessOption;
    static const QRegularExpression block(QStringLiteral("/\\*.*\\*/"), options);
    static const QRegularExpression line(QStringLiteral("//.*\n"), options);
    static const QRegularExpression frame(QStringLiteral("[= ]"));
    QString text = textOfFiles(paths);
    text.replace(QLatin1String("TMPIMG_LOC"), ImageManager::getInstance().getTempImageFolder());
    text.replace(QLatin1String("IMG_LOC"), ImageManager::getInstance().getImageFolder());
    text.remove(block).remove(line);

    QString key;
    QString section;
    QTextStream stream(&text, QIODevice::ReadOnly);
    while (!stream.atEnd()) {
        QString row = stream.readLine();
        if (!row.startsWith(QLatin1String("==")) || !row.endsWith(QLatin1String("=="))) {
            section.append(QLatin1Char('\n')).append(row);
            continue;
        }
        if (!key.isEmpty()) {
            sections[key] = section;
            section.clear();
        }
        key = row.remove(frame);
    }
    if (!key.isEmpty())
        sections[key] = section;
}

QString bench::textOfFiles(const QStringList &paths)
{
    QString text;
    for (const QString &path : paths) {
        QFile file(path);
        if (!file.exists())
            continue;
        if (file.open(QIODevice::ReadOnly | QIODevice::Text)) {
            const QByteArray bytes = file.readAll();
            text.append(QString::fromUtf8(bytes.constData(), bytes.size()));
        }
        text.append(QLatin1Char('\n'));
    }
    return text;
}
