// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QHash>
#include <QString>

#include <map>

/// Maps file extensions to names of icon files: "doc" and "docx" both map to "doc.png".
///
/// The map does not load pictures; the host's icon set has two for each type, such as "doc.png"
/// and, for deleted files, "doc_removed.png". Unknown extensions map to "xxx.png" and
/// "xxx_removed.png". Requires: nothing.
///
///     const QString icon = FileTypeMap::getInstance().getFiletypeMapping(info.suffix(), false);
///     item->setIcon(QIcon(imageFolder + "/" + icon));
///
/// \image html resources-file-types.png
class VEMO_EXPORT FileTypeMap
{
public:
    /// Compares extensions case-insensitively: "DOC" and "doc" are equal.
    ///
    ///     CaseLessCompare()("a", "B"); // true
    struct VEMO_EXPORT CaseLessCompare
    {
        /// Whether a sorts before b.
        bool operator()(const QString &a, const QString &b) const;
    };

    /// The only instance, created on first use; it exists until the process ends. The first call
    /// fills the map.
    static FileTypeMap &getInstance();

    /// The file name of an extension's icon, without a folder; if removed is true, that of the icon
    /// for deleted files. Pass the extension without its dot, in upper or lower case.
    QString getFiletypeMapping(const QString &extension, bool removed = false) const;

    /// Maps extensions, which are separated by single blanks, to type. Replaces earlier mappings.
    ///
    ///     FileTypeMap::getInstance().mappingFile("disc", "iso img"); // "disc.png" from now on
    void mappingFile(const QString &type, const QString &extensions);

private:
    /// Stored per type, so that look-ups do not create strings.
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
