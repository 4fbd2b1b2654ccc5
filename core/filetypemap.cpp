// SPDX-License-Identifier: MIT
#include <vemo/filetypemap.h>

#include <QStringList>

namespace {

struct BuiltInType
{
    const char *name;
    const char *extensions;
};

// Later rows override earlier ones: "ac3" is video.
constexpr BuiltInType kBuiltInTypes[] = {
    {"acc",
        "acc ade adp adn accdr accdb accdt mdb mda mdn mdt mdw mdf mde accde mam "
        "maq mar mat maf"},
    {"ai", "ai"},
    {"audio",
        "mp3 aac flac m4a m4b aif ogg pcm wav cda mid mp2 mka mpc ape ra ac3 dts "
        "wma"},
    {"bkpi", "bkpi"},
    {"doc", "doc docx wri rtf"},
    {"exe", "exe"},
    {"fla", "fla"},
    {"htm", "htm html"},
    {"idn", "idn"},
    {"image",
        "bmp ico tif tiff ufo raw arw srf sr2 dcr k25 kdc cr2 crw nef mrw ptx "
        "pef raf 3fr erf mef mos orf rw2 dng x3f jpg jpe jpeg png gif"},
    {"iso", "iso bin img mds nrg daa"},
    {"code",
        "js css actproj ad akp applescript as asax asc ascx asm asmx asp aspx "
        "asr c cc php jsx xml xhtml mhtml cpp cs cxx"},
    {"pdf", "pdf"},
    {"ppt", "ppt pptx pps ppsx"},
    {"psd", "psd"},
    {"swf", "swf flv f4v"},
    {"ttf", "ttf ttc otf"},
    {"txt", "txt"},
    {"video",
        "avi 3gp 3g2 asf dat divx dvr-ms m2t m2ts m4v mkv mp4 mts mov qt tp trp "
        "ts vob wmv xvid ac3 amr rm rmvb ifo mpeg mpg mpe m1v m2v mpeg1 mpeg2 "
        "mpeg4 ogv webm"},
    {"xls", "xls xla xlb xlc xld xlk xll xlm xlt xlv xlw xlsx xlsm xlsb xltm xlam"},
    {"zip", "zip tar 7z bz2 gz zip tgz tbz rar"},
};

QString unknownType()
{
    return QStringLiteral("xxx");
}

} // namespace

std::map<QString, QString, FileTypeMap::CaseLessCompare>
    FileTypeMap::m_file_type_map; // clazy:exclude=non-pod-global-static
QHash<QString, FileTypeMap::IconNames>
    FileTypeMap::m_icon_names; // clazy:exclude=non-pod-global-static

bool FileTypeMap::CaseLessCompare::operator()(const QString &a, const QString &b) const
{
    return QString::compare(a, b, Qt::CaseInsensitive) < 0;
}

FileTypeMap &FileTypeMap::getInstance()
{
    static FileTypeMap instance;
    return instance;
}

FileTypeMap::FileTypeMap()
{
    addIconNames(unknownType());
    for (const BuiltInType &type : kBuiltInTypes)
        mappingFile(QString::fromLatin1(type.name), QString::fromLatin1(type.extensions));
}

QString FileTypeMap::getFiletypeMapping(const QString &extension, bool removed) const
{
    const auto found = m_file_type_map.find(extension);
    const QString type = found != m_file_type_map.end() ? found->second : unknownType();
    const auto names = m_icon_names.constFind(type);
    return removed ? names->removed : names->present;
}

void FileTypeMap::mappingFile(const QString &type, const QString &extensions)
{
    addIconNames(type);
    const QStringList pieces = extensions.split(QLatin1Char(' '));
    for (const QString &extension : pieces)
        m_file_type_map[extension] = type;
}

void FileTypeMap::addIconNames(const QString &type)
{
    m_icon_names.insert(type, {type + QLatin1String(".png"), type + QLatin1String("_removed.png")});
}
