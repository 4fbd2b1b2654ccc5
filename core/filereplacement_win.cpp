// SPDX-License-Identifier: MIT
#include "core/filereplacement_p.h"

#include <QDir>

#include <windows.h>

namespace {

/// Absolute, with backslashes, and without "." and "..".
QString fullPath(const QString &path)
{
    const std::wstring given = QDir::toNativeSeparators(path).toStdWString();
    std::wstring full(GetFullPathNameW(given.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(given.c_str(), DWORD(full.size()), full.data(), nullptr));
    return QString::fromStdWString(full);
}

} // namespace

std::filesystem::path nativePath(const QString &path)
{
    const QString full = fullPath(path);
    const QLatin1String share("\\\\");
    const QLatin1String device("\\\\.\\");
    const QLatin1String literal("\\\\?\\"); // Without it, paths have less than 260 characters.
    if (full.startsWith(device) || full.startsWith(literal))
        return full.toStdWString();
    if (full.startsWith(share))
        return (literal + QLatin1String("UNC\\") + full.mid(share.size())).toStdWString();
    return (literal + full).toStdWString();
}
