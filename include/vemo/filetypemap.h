// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QHash>
#include <QString>

#include <map>

/// Icon file names for file extensions: "doc" and "docx" both give "doc.png".
///
/// The map loads no pictures; the host's icon set has them, "xxx.png" for unknown types among them.
///
///     const QString icon = FileTypeMap::getInstance().getFiletypeMapping(info.suffix(), false);
///     item->setIcon(QIcon(imageFolder + "/" + icon));
class VEMO_EXPORT FileTypeMap
{
public:
    struct VEMO_EXPORT CaseLessCompare
    {
        bool operator()(const QString &a, const QString &b) const;
    };

    static FileTypeMap &getInstance();

    /// The icon of an extension, which is given without its dot and in any case; with removed, the
    /// one that shows the file as gone.
    QString getFiletypeMapping(const QString &extension, bool removed) const;

    /// Maps each of the blank-separated extensions to type, whatever they meant before.
    void mappingFile(const QString &type, const QString &extensions);

private:
    /// Kept beside each type, so that a look-up builds no string.
    struct IconNames
    {
        QString present;
        QString removed;
    };

    FileTypeMap();

    static void addIconNames(const QString &type);

    static std::map<QString, QString, CaseLessCompare> m_file_type_map;
    static QHash<QString, IconNames> m_icon_names;
};
