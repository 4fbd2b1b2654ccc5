// SPDX-License-Identifier: MIT
#include "help/picturefolder_p.h"

#include <QDateTime>
#include <QDir>
#include <QRegularExpression>

#include <algorithm>
#include <filesystem>
#include <type_traits>

namespace {

constexpr bool kIsWindows = std::is_same_v<std::filesystem::path::value_type, wchar_t>;

bool isDeviceName(const QString &name)
{
    // Windows only considers the name before the first dot and ignores trailing blanks.
    static const QRegularExpression device(
        QStringLiteral(
            "^(CON|PRN|AUX|NUL|CONIN\\$|CONOUT\\$|(COM|LPT)[0-9\u00B9\u00B2\u00B3]) *(\\.|$)"),
        QRegularExpression::CaseInsensitiveOption);
    return device.match(name).hasMatch();
}

bool hasMeaning(QChar c)
{
    return c.unicode() < 0x20 || c.unicode() == 0x7F || c == QLatin1Char('\\')
        || c == QLatin1Char(':');
}

} // namespace

QString pictureFolder()
{
    return QDir::tempPath() + QLatin1String("/kestrava_help/image");
}

bool isSafeWindowsName(const QString &name)
{
    return std::none_of(name.begin(), name.end(), hasMeaning) && !isDeviceName(name);
}

bool isSafePictureName(const QString &name)
{
    if (name.isEmpty() || name == QLatin1String(".") || name == QLatin1String(".."))
        return false;
    if (name.contains(QLatin1Char('/')) || name.contains(QChar(0)))
        return false;
    return !kIsWindows || isSafeWindowsName(name);
}

void trimPictureFolder(qint64 maxBytes, const QDateTime &inUseSince)
{
    const QDir folder(pictureFolder());
    const QFileInfoList files = folder.entryInfoList(
        QDir::Files | QDir::Hidden | QDir::System | QDir::NoSymLinks, QDir::Time);
    qint64 total = 0;
    for (const QFileInfo &file : files) {
        total += file.size();
        if (total > maxBytes && file.lastModified() < inUseSince)
            QFile::remove(file.filePath());
    }
}

bool preparePictureFolder()
{
    static QString trimmed;
    if (!makePictureFolder())
        return false;
    if (trimmed != pictureFolder()) {
        trimmed = pictureFolder();
        trimPictureFolder(kMaxPictureFolderBytes, QDateTime::currentDateTime().addDays(-1));
    }
    return true;
}
