// SPDX-License-Identifier: MIT
#include "help/picturefolder_p.h"

#include "core/filereplacement_p.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryFile>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <type_traits>

namespace {

constexpr bool kIsWindows = std::is_same_v<std::filesystem::path::value_type, wchar_t>;
constexpr QFile::Permissions kPrivate = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

QString outerFolder()
{
    return QDir::tempPath() + QLatin1String("/kestrava_help");
}

/// The user's id, as the system notes it on a file that the user makes; none where that fails.
std::optional<uint> userId()
{
    static std::optional<uint> id;
    QTemporaryFile own;
    if (!id && own.open())
        id = QFileInfo(own.fileName()).ownerId();
    return id;
}

bool isOwnFolder(const QString &path)
{
    const QFileInfo info(path);
    return !info.isSymLink() && info.isDir() && userId() == info.ownerId();
}

bool makePrivate(const QString &path)
{
    return isOwnFolder(path) && QFile::setPermissions(path, kPrivate);
}

bool isDeviceName(const QString &name)
{
    // Windows looks at the name before the first dot only, whatever blanks end it.
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
    return outerFolder() + QLatin1String("/image");
}

bool preparePictureFolder()
{
    QDir().mkpath(pictureFolder());
    return makePrivate(outerFolder()) && makePrivate(pictureFolder());
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

void writePicture(const QString &path, const QByteArray &bytes)
{
    const QFileInfo target(path);
    if (!isSafePictureName(target.fileName()) || !isOwnFolder(outerFolder())
        || !isOwnFolder(pictureFolder()))
        return;
    if (target.exists() && !target.isWritable())
        return;
    QTemporaryFile part(pictureFolder() + QLatin1String("/.part-XXXXXX"));
    if (!part.open() || part.write(bytes) != bytes.size() || !part.flush())
        return;
    part.close();
    if (renameOver(part.fileName(), path))
        part.setAutoRemove(false);
}
