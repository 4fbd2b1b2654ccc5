// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QHash>
#include <QString>

#include <map>

/// Icon file names for file extensions: "doc" and "docx" both give "doc.png".
///
/// The map loads no pictures; the host's icon set has them: for each type one as "doc.png" and one
/// for a file that is gone, "doc_removed.png". Unknown extensions get "xxx.png" and
/// "xxx_removed.png". Nothing has to be initialised before.
///
///     const QString icon = FileTypeMap::getInstance().getFiletypeMapping(info.suffix(), false);
///     item->setIcon(QIcon(imageFolder + "/" + icon));
///
/// \image html resources-file-types.png
class VEMO_EXPORT FileTypeMap
{
public:
    /// Orders extensions without regard to case: "DOC" and "doc" are one.
    ///
    ///     CaseLessCompare()("a", "B"); // true
    struct VEMO_EXPORT CaseLessCompare
    {
        /// Whether a stands before b.
        bool operator()(const QString &a, const QString &b) const;
    };

    /// The one instance, made on first use; it lives until the process ends. The first call fills
    /// the map.
    static FileTypeMap &getInstance();

    /// The icon of an extension, which is given without its dot and in any case; with removed, the
    /// one that shows the file as gone. A file name, without a folder.
    QString getFiletypeMapping(const QString &extension, bool removed = false) const;

    /// Maps each of the extensions, with a single blank between two, to type, whatever they meant
    /// before.
    ///
    ///     FileTypeMap::getInstance().mappingFile("disc", "iso img"); // "disc.png" from now on
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
