// SPDX-License-Identifier: MIT
#include "browserstage.h"

#include "examples/filebrowser/files/nativename.h"
#include "examples/filebrowser/files/paths.h"
#include "examples/filebrowser/ui/kinds.h"
#include "examples/filebrowser/ui/languages.h"
#include "examples/filebrowser/ui/options.h"
#include "examples/filebrowser/ui/texts.h"
#include "support/vemotest.h"

#include <QLocale>
#include <QTextDocument>

class FileTextsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { const BrowserStage startsTheLook; }
    void showsNamesOnOneLine_data();
    void showsNamesOnOneLine();
    void understandsNoNameAsMarkup_data();
    void understandsNoNameAsMarkup();
    void breaksAndShortensLongNames();
    void hasATextForEachKind();
    void writesSizes_data();
    void writesSizes();
    void keepsValuesTogetherFromRightToLeft();
    void writesDatesAsTheDateFieldsDo_data();
    void writesDatesAsTheDateFieldsDo();
    void carriesEachPathThroughUrls_data();
    void carriesEachPathThroughUrls();
    void splitsPaths_data();
    void splitsPaths();
    void readsTheCommandLine_data();
    void readsTheCommandLine();
    void takesTheSystemsSeparators();
    void refusesAWrongCommandLine_data();
    void refusesAWrongCommandLine();
    void knowsALocaleForEachLanguage();
};

void FileTextsTest::showsNamesOnOneLine_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");
    const QChar replacement(QChar::ReplacementCharacter);
    const QString faces = QString::fromUtf8("😀");
    addRow("plain", "a b.txt", "a b.txt");
    addRow("line break", "a\nb", QString::fromUtf8("a↵b"));
    addRow("carriage return", "a\rb", QString::fromUtf8("a↵b"));
    addRow("line separator", QString("a%1b").arg(QChar(0x2028)), QString::fromUtf8("a↵b"));
    addRow("tab", "a\tb", QString::fromUtf8("a⇥b"));
    addRow("escape", "a\x1b", QString("a") + replacement);
    addRow("control", QString("a%1").arg(QChar(0x85)), QString("a") + replacement);
    addRow("turned writing", QString("%1gpj.exe").arg(QChar(0x202E)),
        QString(replacement) + "gpj.exe");
    addRow("no letter", fromNativeName("a\xff"), QString("a") + replacement);
    addRow("beyond 16 bits", faces, faces);
    addRow("half a pair", QString(faces.at(0)), QString(replacement));
}

void FileTextsTest::showsNamesOnOneLine()
{
    QFETCH(const QString, name);
    QFETCH(const QString, shown);
    QCOMPARE(displayName(name), shown);
}

void FileTextsTest::understandsNoNameAsMarkup_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"<b>bold</b>", "&amp;", "%1", "%2 %1", "\"quoted\"", "</qt>", "12px"})
        QTest::newRow(name) << name;
}

void FileTextsTest::understandsNoNameAsMarkup()
{
    QFETCH(const QString, name);
    QTextDocument document;
    document.setHtml(richText("cannot_rename_to", {name, "x"}));
    QCOMPARE(document.toPlainText(), name + " could not be renamed to x.");
}

void FileTextsTest::breaksAndShortensLongNames()
{
    const QString shown = richText("vanished", {QString(255, 'x')});
    QVERIFY(shown.contains(QChar(0x2026)));
    QVERIFY(!shown.contains(QString(25, 'x')));
    QVERIFY(shown.contains(QString(24, 'x') + QChar(0x200B)));
    QVERIFY(!richText("vanished", {QString("short words ").repeated(5)}).contains(QChar(0x200B)));
}

void FileTextsTest::hasATextForEachKind()
{
    FileEntry file;
    file.name = "a.PNG";
    QCOMPARE(kindText(kindOf(file)), QString("Picture"));
    file.name = "none";
    QCOMPARE(kindText(kindOf(file)), QString("Other file"));
    file.isFolder = true;
    QCOMPARE(kindText(kindOf(file)), QString("Folder"));
    // A missing text would be a warning, which fails the test.
    for (const QString &kind : offeredKinds())
        QVERIFY(!kindText(kind).isEmpty());
    for (const char *kind : {"acc", "ai", "bkpi", "fla", "idn", "psd", "swf"})
        QVERIFY(!kindText(kind).isEmpty());
}

void FileTextsTest::writesSizes_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<QString>("written");
    QTest::newRow("empty") << "en_US" << qint64(0) << "0 B";
    QTest::newRow("one byte") << "en_US" << qint64(1) << "1 B";
    QTest::newRow("many bytes") << "en_US" << qint64(1023) << "1,023 B";
    QTest::newRow("a kilobyte") << "en_US" << qint64(1024) << "1.0 kB";
    QTest::newRow("German") << "de_DE" << qint64(1) << "1 B";
    QTest::newRow("French") << "fr_FR" << qint64(1) << "1 o";
    QTest::newRow("Russian") << "ru_RU" << qint64(5) << QString::fromUtf8("5 Б");
    QTest::newRow("Chinese") << "zh_CN" << qint64(5) << "5 B";
    QTest::newRow("French, thousands")
        << "fr_FR" << qint64(1048575) << QString::fromUtf8("1\u202F024,0 ko");
    QTest::newRow("Arabic, bytes") << "ar_EG" << qint64(5) << QString::fromUtf8("٥ B");
    QTest::newRow("Arabic, kilobytes") << "ar_EG" << qint64(3000) << QString::fromUtf8("٢٫٩ kB");
    QTest::newRow("Arabic, megabytes") << "ar_EG" << qint64(5000000) << QString::fromUtf8("٤٫٨ MB");
    QTest::newRow("Hebrew, bytes") << "he_IL" << qint64(5) << "5 B";
}

void FileTextsTest::writesSizes()
{
    QFETCH(const QString, locale);
    QFETCH(const qint64, bytes);
    const QLocale before;
    QLocale::setDefault(QLocale(locale));
    const QString written = sizeText(bytes);
    QLocale::setDefault(before);
    QTEST(written, "written");
}

void FileTextsTest::keepsValuesTogetherFromRightToLeft()
{
    QCOMPARE(lineText("a.txt"), QString("a.txt"));
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    const QString size = sizeText(1);
    const QString date = dateText(QDateTime(QDate(2026, 3, 7), QTime(9, 5)));
    const QString nothing = dateText({});
    const QString line = lineText("a.txt");
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    // The isolate with the direction of its first letter, and its end.
    const auto isolated = [](const char *text) {
        return QChar(0x2068) + QString(text) + QChar(0x2069);
    };
    QCOMPARE(size, isolated("1 B"));
    QCOMPARE(date, isolated("2026-03-07 09:05"));
    QCOMPARE(nothing, QString());
    QCOMPARE(line, QChar(0x200F) + isolated("a.txt"));
    QVERIFY(line.isRightToLeft());
}

void FileTextsTest::writesDatesAsTheDateFieldsDo_data()
{
    QTest::addColumn<QDateTime>("moment");
    QTest::addColumn<QString>("written");
    QTest::newRow("a day") << QDateTime(QDate(2026, 3, 7), QTime(9, 5)) << "2026-03-07 09:05";
    QTest::newRow("none") << QDateTime() << QString();
}

void FileTextsTest::writesDatesAsTheDateFieldsDo()
{
    QFETCH(const QDateTime, moment);
    QTEST(dateText(moment), "written");
}

void FileTextsTest::carriesEachPathThroughUrls_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::newRow("plain") << QByteArray("/tmp/a.txt");
    QTest::newRow("special") << QByteArray("/tmp/a b#c?d%41&;\n\"<>|\\");
    QTest::newRow("letters") << QByteArray("/tmp/Ä年");
    QTest::newRow("no letters") << QByteArray("/tmp/\xff\xfe");
}

void FileTextsTest::carriesEachPathThroughUrls()
{
    QFETCH(const QByteArray, path);
    const QString name = fromNativeName(path);
    QVERIFY(urlOf(name).isLocalFile());
    QCOMPARE(pathOf(urlOf(name)), name);
    QCOMPARE(pathOf(QUrl("https://www.example.com/a")), QString());
}

void FileTextsTest::splitsPaths_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("name");
    addRow("root", "/", "", "/");
    addRow("below the root", "/a", "/", "a");
    addRow("deeper", "/a/b c", "/a", "b c");
}

void FileTextsTest::splitsPaths()
{
    QFETCH(const QString, path);
    QFETCH(const QString, parent);
    QFETCH(const QString, name);
    QCOMPARE(parentPath(path), parent);
    QCOMPARE(nameOf(path), name);
    if (!parent.isEmpty())
        QCOMPARE(childPath(parent, name), path);
    QCOMPARE(nearestFolder(childPath(path, "no/such folder")), path == "/" ? path : QString("/"));
}

void FileTextsTest::readsTheCommandLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("language");
    addRow("nothing", QStringList(), QDir::homePath(), "enu");
    addRow("folder", QStringList("/tmp/"), "/tmp", "enu");
    addRow("relative", QStringList("a/../b"), "b", "enu");
    addRow("language", QStringList({"--language", "deu", "/"}), "/", "deu");
    addRow("options of Qt",
        QStringList({"-reverse", "-style", "windows", "-platform", "offscreen", "/"}), "/", "enu");
}

void FileTextsTest::readsTheCommandLine()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const QString, folder);
    QFETCH(const QString, language);
    const CommandLine line = readCommandLine(QStringList("filebrowser") + arguments);
    QCOMPARE(line.error, QString());
    QCOMPARE(line.answer, QString());
    QCOMPARE(line.options.folder, pathFromQt(QDir::current().absoluteFilePath(folder)));
    QCOMPARE(line.options.language, language);
    QVERIFY(readCommandLine({"filebrowser", "--help"}).answer.contains("--language <code>"));
}

// Folders are registered as Qt writes them.
void FileTextsTest::takesTheSystemsSeparators()
{
    const CommandLine line =
        readCommandLine({"filebrowser", "--user-folder", QDir::toNativeSeparators("/u/v")});
    QCOMPARE(line.options.userFolder, QString("/u/v"));
}

void FileTextsTest::refusesAWrongCommandLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");
    addRow("two folders", QStringList({"a", "b"}), "Unexpected argument \"b\".");
    addRow("no language", QStringList({"--language", "xyz"}),
        "Unknown language \"xyz\"; there are: ara chs cht");
    addRow("empty", QStringList({"--screenshots", ""}), "Option \"screenshots\" needs a value.");
    addRow("no option", QStringList("--no-such"), "Unknown option 'no-such'.");
}

void FileTextsTest::refusesAWrongCommandLine()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const QString, error);
    const CommandLine line = readCommandLine(QStringList("filebrowser") + arguments);
    QVERIFY2(line.error.startsWith(error), qPrintable(line.error));
}

void FileTextsTest::knowsALocaleForEachLanguage()
{
    QCOMPARE(languageCodes().size(), 22);
    QSet<QString> locales;
    for (const QString &code : languageCodes())
        locales.insert(localeOf(code).name());
    QCOMPARE(locales.size(), 22);
    QCOMPARE(localeOf("deu").language(), QLocale::German);
    QCOMPARE(fontFamilyOf("cht"), QString("Noto Sans CJK TC"));
    QCOMPARE(fontFamilyOf("deu"), QString());
    QCOMPARE(localeOf("no such").name(), QString("en_US"));
}

VEMO_TEST_MAIN(FileTextsTest)
#include "tst_filetexts.moc"
