// SPDX-License-Identifier: MIT
#include <vemo/filetypemap.h>

#include "support/vemotest.h"

#include <utility>

static_assert(std::is_copy_assignable_v<FileTypeMap> && std::is_move_assignable_v<FileTypeMap>);
static_assert(!std::is_default_constructible_v<FileTypeMap>);

class FileTypeMapTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyBuiltInExtensionHasItsIcon_data();
    void everyBuiltInExtensionHasItsIcon();
    void anythingElseHasTheGenericIcon_data();
    void anythingElseHasTheGenericIcon();
    void anExtensionListedTwiceBelongsToTheLaterType();
    void caseDoesNotMatter_data();
    void caseDoesNotMatter();
    void extensionsCanBeRegistered();
    void anExtensionRegisteredAgainMoves();
    void aDoubleBlankRegistersTheEmptyExtension();
    void aCopySharesTheTable();
    void theOrderOfKeysIgnoresCase();
};

void FileTypeMapTest::everyBuiltInExtensionHasItsIcon_data()
{
    QTest::addColumn<QString>("extensions");
    const auto addType = [](const char *type, const char *extensions) {
        QTest::newRow(type) << extensions;
    };
    addType("acc",
        "acc ade adp adn accdr accdb accdt mdb mda mdn mdt mdw mdf mde accde mam maq mar mat maf");
    addType("ai", "ai");
    addType("audio", "mp3 aac flac m4a m4b aif ogg pcm wav cda mid mp2 mka mpc ape ra dts wma");
    addType("bkpi", "bkpi");
    addType("doc", "doc docx wri rtf");
    addType("exe", "exe");
    addType("fla", "fla");
    addType("htm", "htm html");
    addType("idn", "idn");
    addType("image",
        "bmp ico tif tiff ufo raw arw srf sr2 dcr k25 kdc cr2 crw nef mrw ptx pef raf 3fr erf mef "
        "mos orf rw2 dng x3f jpg jpe jpeg png gif");
    addType("iso", "iso bin img mds nrg daa");
    addType("code",
        "js css actproj ad akp applescript as asax asc ascx asm asmx asp aspx asr c cc php jsx "
        "xml xhtml mhtml cpp cs cxx");
    addType("pdf", "pdf");
    addType("ppt", "ppt pptx pps ppsx");
    addType("psd", "psd");
    addType("swf", "swf flv f4v");
    addType("ttf", "ttf ttc otf");
    addType("txt", "txt");
    addType("video",
        "avi 3gp 3g2 asf dat divx dvr-ms m2t m2ts m4v mkv mp4 mts mov qt tp trp ts vob wmv xvid "
        "ac3 amr rm rmvb ifo mpeg mpg mpe m1v m2v mpeg1 mpeg2 mpeg4 ogv webm");
    addType("xls", "xls xla xlb xlc xld xlk xll xlm xlt xlv xlw xlsx xlsm xlsb xltm xlam");
    addType("zip", "zip tar 7z bz2 gz zip tgz tbz rar");
}

void FileTypeMapTest::everyBuiltInExtensionHasItsIcon()
{
    QFETCH(QString, extensions);
    const QString type = QTest::currentDataTag();
    const FileTypeMap &map = FileTypeMap::getInstance();
    const QStringList pieces = extensions.split(' ');
    for (const QString &extension : pieces) {
        QCOMPARE(map.getFiletypeMapping(extension, false), type + ".png");
        QCOMPARE(map.getFiletypeMapping(extension, true), type + "_removed.png");
    }
}

void FileTypeMapTest::anythingElseHasTheGenericIcon_data()
{
    QTest::addColumn<QString>("extension");
    QTest::newRow("none") << "";
    QTest::newRow("null") << QString();
    QTest::newRow("unknown") << "abc";
    QTest::newRow("two suffixes") << "tar.gz";
    QTest::newRow("with its dot") << ".doc";
    QTest::newRow("with a blank") << "doc ";
    QTest::newRow("a type that is not an extension") << "video";
    QTest::newRow("full-width letters") << QString::fromUtf8("ｄｏｃ");
    QTest::newRow("a lone surrogate") << QString(QChar(0xd801));
    QTest::newRow("followed by a NUL") << QString("doc") + QChar(0);
}

void FileTypeMapTest::anythingElseHasTheGenericIcon()
{
    QFETCH(QString, extension);
    const FileTypeMap &map = FileTypeMap::getInstance();
    QCOMPARE(map.getFiletypeMapping(extension, false), QString("xxx.png"));
    QCOMPARE(map.getFiletypeMapping(extension, true), QString("xxx_removed.png"));
}

void FileTypeMapTest::anExtensionListedTwiceBelongsToTheLaterType()
{
    QCOMPARE(FileTypeMap::getInstance().getFiletypeMapping("ac3", false), QString("video.png"));
}

void FileTypeMapTest::caseDoesNotMatter_data()
{
    QTest::addColumn<QString>("extension");
    for (const char *extension : {"docx", "DOCX", "Docx", "dOcX"})
        QTest::newRow(extension) << extension;
}

void FileTypeMapTest::caseDoesNotMatter()
{
    QFETCH(QString, extension);
    const FileTypeMap &map = FileTypeMap::getInstance();
    QCOMPARE(map.getFiletypeMapping(extension, false), QString("doc.png"));
    QCOMPARE(map.getFiletypeMapping(extension, true), QString("doc_removed.png"));
}

void FileTypeMapTest::extensionsCanBeRegistered()
{
    FileTypeMap &map = FileTypeMap::getInstance();
    map.mappingFile("txt", "log md");
    QCOMPARE(map.getFiletypeMapping("LOG", false), QString("txt.png"));
    QCOMPARE(map.getFiletypeMapping("md", true), QString("txt_removed.png"));
    map.mappingFile("music", "mscz");
    QCOMPARE(map.getFiletypeMapping("mscz", false), QString("music.png"));
    QCOMPARE(map.getFiletypeMapping("mscz", true), QString("music_removed.png"));
}

void FileTypeMapTest::anExtensionRegisteredAgainMoves()
{
    FileTypeMap &map = FileTypeMap::getInstance();
    map.mappingFile("paper", "PDF");
    QCOMPARE(map.getFiletypeMapping("pdf", false), QString("paper.png"));
    map.mappingFile("pdf", "pdf");
    QCOMPARE(map.getFiletypeMapping("PDF", false), QString("pdf.png"));
}

void FileTypeMapTest::aDoubleBlankRegistersTheEmptyExtension()
{
    FileTypeMap &map = FileTypeMap::getInstance();
    map.mappingFile("bare", "one  two");
    QCOMPARE(map.getFiletypeMapping("", false), QString("bare.png"));
    QCOMPARE(map.getFiletypeMapping("two", false), QString("bare.png"));
    map.mappingFile("xxx", "");
    QCOMPARE(map.getFiletypeMapping("", false), QString("xxx.png"));
}

void FileTypeMapTest::aCopySharesTheTable()
{
    FileTypeMap &map = FileTypeMap::getInstance();
    const FileTypeMap copy = map;
    map.mappingFile("later", "ltr");
    QCOMPARE(copy.getFiletypeMapping("ltr", false), QString("later.png"));
    const FileTypeMap moved = std::move(map);
    QCOMPARE(moved.getFiletypeMapping("ltr", false), QString("later.png"));
    QCOMPARE(
        FileTypeMap::getInstance().getFiletypeMapping("ltr", true), QString("later_removed.png"));
}

void FileTypeMapTest::theOrderOfKeysIgnoresCase()
{
    const FileTypeMap::CaseLessCompare isBefore;
    QVERIFY(isBefore("a", "B"));
    QVERIFY(isBefore("A", "b"));
    QVERIFY(!isBefore("B", "a"));
    QVERIFY(!isBefore("a", "A"));
    QVERIFY(!isBefore("A", "a"));
}

VEMO_TEST_MAIN(FileTypeMapTest)
#include "tst_filetypemap.moc"
