// SPDX-License-Identifier: MIT
#include "support/vemotest.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>
#endif

namespace {

/// A language code, what its texts can be written in, and what at least one letter of each is of.
struct Language
{
    const char *code;
    const char *codePage;
    const char *script;
};

constexpr auto kLatin = R"(\p{Latin})";
constexpr auto kKana = R"([\p{Han}\p{Hiragana}\p{Katakana}])";

constexpr Language kLanguages[] = {
    {"enu", "windows-1252", kLatin},
    {"jpn", "Shift_JIS", kKana},
    {"deu", "windows-1252", kLatin},
    {"krn", "EUC-KR", R"(\p{Hangul})"},
    {"fra", "windows-1252", kLatin},
    {"ita", "windows-1252", kLatin},
    {"esn", "windows-1252", kLatin},
    {"rus", "windows-1251", R"(\p{Cyrillic})"},
    {"dan", "windows-1252", kLatin},
    {"nor", "windows-1252", kLatin},
    {"sve", "windows-1252", kLatin},
    {"nld", "windows-1252", kLatin},
    {"plk", "windows-1250", kLatin},
    {"hun", "windows-1250", kLatin},
    {"trk", "windows-1254", kLatin},
    {"csy", "windows-1250", kLatin},
    {"ptb", "windows-1252", kLatin},
    {"ptg", "windows-1252", kLatin},
    {"cht", "Big5", R"(\p{Han})"},
    {"chs", "GB2312", R"(\p{Han})"},
    {"ara", "windows-1256", R"(\p{Arabic})"},
    {"heb", "windows-1255", R"(\p{Hebrew})"},
};

/// Where tables of texts lie, each with one file for each language.
constexpr const char *kFolders[] = {
    "theme/strings", "gallery/strings", "examples/filebrowser/strings"};

/// English texts that are right as they are in some languages.
const QHash<QString, QString> &sharedWithEnglish()
{
    static const QHash<QString, QString> table {
        {"%1 items", "nld"},
        {"Animation", "dan deu fra"},
        {"April", "deu"},
        {"Archive", "fra"},
        {"Archives", "fra"},
        {"Audio", "deu esn fra ita nld"},
        {"August", "deu"},
        {"Computer", "dan deu ita nld"},
        {"Database", "dan ita nld nor"},
        {"Document", "fra nld"},
        {"Documents", "fra"},
        {"Editable", "esn"},
        {"Filter: %1", "dan deu nld nor sve"},
        {"Folder", "plk"},
        {"Help", "nld"},
        {"Illustration", "dan deu fra sve"},
        {"Items: %1", "nld"},
        {"Link: %1", "dan"},
        {"Minutes", "fra"},
        {"Name", "deu"},
        {"November", "deu"},
        {"OK", "jpn deu fra ita dan nor sve nld plk hun csy ptb ptg"},
        {"Presentation", "sve"},
        {"Program", "csy dan hun nor plk sve trk"},
        {"September", "deu"},
        {"Store", "deu"},
        {"Team", "dan deu nld"},
        {"Text", "csy deu sve"},
        {"Type", "dan fra nor"},
        {"Video", "csy dan deu ita nld nor sve trk"},
    };
    return table;
}

/// Whether text consists of more than its placeholders.
bool hasWords(QString text)
{
    return text.remove(QRegularExpression("%L?\\d+"))
        .contains(QRegularExpression("\\p{L}", QRegularExpression::UseUnicodePropertiesOption));
}

bool isSharedWithEnglish(const QString &english, const QString &code)
{
    return code == "enu" || !hasWords(english)
        || sharedWithEnglish().value(english).split(' ').contains(code);
}

QString pathOf(const QString &folder, const QString &code)
{
    return QStringLiteral(VEMO_SOURCE_DIR "/%1/%2.json").arg(folder, code);
}

QByteArray bytesOf(const QString &folder, const QString &code)
{
    QFile file(pathOf(folder, code));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QMap<QString, QString> tableIn(const QByteArray &bytes)
{
    QMap<QString, QString> table;
    const QJsonObject object = QJsonDocument::fromJson(bytes).object();
    for (auto entry = object.begin(); entry != object.end(); ++entry)
        table.insert(entry.key(), entry.value().toString());
    return table;
}

QMap<QString, QString> tableOf(const QString &folder, const char *code)
{
    return tableIn(bytesOf(folder, code));
}

/// All that pattern finds in text, sorted.
QStringList found(const QString &text, const QString &pattern)
{
    QStringList matches;
    auto match = QRegularExpression(pattern).globalMatch(text);
    while (match.hasNext())
        matches += match.next().captured();
    matches.sort();
    return matches;
}

/// Each number in text, without what a language puts between its thousands.
QStringList numbersIn(QString text)
{
    return found(text.remove(QRegularExpression("(?<=\\d)[.,\u00A0](?=\\d{3}\\b)")), "\\d+");
}

bool holds(const QString &text, const QString &pattern)
{
    return QRegularExpression(pattern).match(text).hasMatch();
}

} // namespace

/// The tables of texts: complete, and each in its own language.
class StringsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyFolderHasItsLanguages();
    void aTableIsWellFormed_data() { addTables(); }
    void aTableIsWellFormed();
    void aTableHasNoKeyThatTheEnglishOneLacks_data() { addTables(); }
    void aTableHasNoKeyThatTheEnglishOneLacks();
    void noTextLosesAPlaceholderOrANumber_data() { addTables(); }
    void noTextLosesAPlaceholderOrANumber();
    void noTextIsLeftInEnglish_data() { addTables(); }
    void noTextIsLeftInEnglish();
    void everyTextListedAsSharedWithEnglishIsShared();
    void everyTextIsOfItsLanguagesLetters_data() { addTables(); }
    void everyTextIsOfItsLanguagesLetters();
    void bothChineseTablesDiffer();
    void theGalleryShowsTheTextsOfItsTableAndNoOthers();
    void noShortenedMonthIsTakenForAnother_data() { addLanguages(); }
    void noShortenedMonthIsTakenForAnother();
    void theFirstLettersOfTheWeekdaysTellThemApart_data() { addLanguages(); }
    void theFirstLettersOfTheWeekdaysTellThemApart();

private:
    static void addTables();
    static void addLanguages();
};

void StringsTest::addTables()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<int>("index");
    for (const char *folder : kFolders) {
        int index = -1;
        for (const Language &language : kLanguages)
            QTest::addRow("%s %s", folder, language.code) << QString(folder) << ++index;
    }
}

void StringsTest::addLanguages()
{
    QTest::addColumn<QString>("code");
    for (const Language &language : kLanguages)
        QTest::newRow(language.code) << QString(language.code);
}

void StringsTest::everyFolderHasItsLanguages()
{
    QStringList expected;
    for (const Language &language : kLanguages)
        expected += QString("%1.json").arg(language.code);
    expected.sort();
    for (const char *folder : kFolders) {
        QCOMPARE(QDir(QStringLiteral(VEMO_SOURCE_DIR "/%1").arg(folder)).entryList(QDir::Files),
            expected);
    }
}

void StringsTest::aTableIsWellFormed()
{
    QFETCH(QString, folder);
    QFETCH(int, index);
    const QByteArray bytes = bytesOf(folder, kLanguages[index].code);
    const QString text = QString::fromUtf8(bytes);
    QVERIFY(!text.contains(QChar::ReplacementCharacter));
    QCOMPARE(text.normalized(QString::NormalizationForm_C), text);
    QJsonParseError error {};
    const QJsonObject object = QJsonDocument::fromJson(bytes, &error).object();
    QCOMPARE(error.error, QJsonParseError::NoError);
    // If a key occurs twice, one of its texts would be ignored.
    QCOMPARE(found(text, "(?m)^  \"").size(), object.size());
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        QVERIFY2(entry.value().isString(), qPrintable(entry.key()));
        const QString value = entry.value().toString();
        QVERIFY2(!value.isEmpty() && value == value.trimmed(), qPrintable(entry.key()));
        QVERIFY2(!value.contains("  "), qPrintable(entry.key()));
    }
}

// English is shown for a text that a language lacks; scripts/untranslated lists these.
void StringsTest::aTableHasNoKeyThatTheEnglishOneLacks()
{
    QFETCH(QString, folder);
    QFETCH(int, index);
    const QStringList english = tableOf(folder, "enu").keys();
    QVERIFY(!english.isEmpty());
    for (const QString &key : tableOf(folder, kLanguages[index].code).keys())
        QVERIFY2(english.contains(key), qPrintable(key));
}

void StringsTest::noTextLosesAPlaceholderOrANumber()
{
    QFETCH(QString, folder);
    QFETCH(int, index);
    const QMap<QString, QString> english = tableOf(folder, "enu");
    const QMap<QString, QString> table = tableOf(folder, kLanguages[index].code);
    for (auto entry = table.begin(); entry != table.end(); ++entry) {
        const QString original = english[entry.key()];
        for (const char *pattern : {"%L?\\d+", "%n", "<[^>]*>", "\n", "&\\w+;"})
            QCOMPARE(found(*entry, pattern), found(original, pattern));
        // A language may write more in figures than English does.
        const QStringList numbers = numbersIn(*entry);
        for (const QString &number : numbersIn(original))
            QVERIFY2(numbers.contains(number), qPrintable(entry.key()));
    }
}

void StringsTest::noTextIsLeftInEnglish()
{
    QFETCH(QString, folder);
    QFETCH(int, index);
    const char *code = kLanguages[index].code;
    const QMap<QString, QString> english = tableOf(folder, "enu");
    const QMap<QString, QString> table = tableOf(folder, code);
    for (auto entry = table.begin(); entry != table.end(); ++entry) {
        if (!isSharedWithEnglish(english[entry.key()], code))
            QVERIFY2(*entry != english[entry.key()], qPrintable(entry.key()));
    }
}

void StringsTest::everyTextListedAsSharedWithEnglishIsShared()
{
    for (auto shared = sharedWithEnglish().begin(); shared != sharedWithEnglish().end(); ++shared) {
        for (const QString &code : shared->split(' ')) {
            int uses = 0;
            for (const char *folder : kFolders) {
                const QMap<QString, QString> table = tableOf(folder, qPrintable(code));
                for (const QString &key : tableOf(folder, "enu").keys(shared.key()))
                    uses += table[key] == shared.key() ? 1 : 0;
            }
            QVERIFY2(uses > 0, qPrintable(shared.key() + ' ' + code));
        }
    }
}

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
static bool canEncode(const char *codePage, const QString &text)
{
    const QTextCodec *codec = QTextCodec::codecForName(codePage);
    return codec && codec->canEncode(text);
}
#else
// Qt 6 has no code pages; the tables are the same.
static bool canEncode(const char * /*codePage*/, const QString & /*text*/)
{
    return true;
}
#endif

void StringsTest::everyTextIsOfItsLanguagesLetters()
{
    QFETCH(QString, folder);
    QFETCH(int, index);
    const Language &language = kLanguages[index];
    const QMap<QString, QString> english = tableOf(folder, "enu");
    const QMap<QString, QString> table = tableOf(folder, language.code);
    for (auto entry = table.begin(); entry != table.end(); ++entry) {
        const QString named = entry.key() + ": " + *entry;
        if (!hasWords(*entry))
            continue;
        QVERIFY2(canEncode(language.codePage, *entry), qPrintable(named));
        if (!isSharedWithEnglish(english[entry.key()], language.code))
            QVERIFY2(holds(*entry, language.script), qPrintable(named));
        // A Latin letter in a Cyrillic word looks right, and is found by no search.
        QVERIFY2(
            !holds(*entry, R"(\p{Cyrillic}\p{Latin}|\p{Latin}\p{Cyrillic})"), qPrintable(named));
    }
}

void StringsTest::bothChineseTablesDiffer()
{
    for (const char *folder : kFolders) {
        const QMap<QString, QString> traditional = tableOf(folder, "cht");
        const QMap<QString, QString> simplified = tableOf(folder, "chs");
        int differing = 0;
        for (auto entry = traditional.begin(); entry != traditional.end(); ++entry)
            differing += *entry != simplified[entry.key()] ? 1 : 0;
        QVERIFY2(differing > traditional.size() / 2, folder);
    }
}

void StringsTest::theGalleryShowsTheTextsOfItsTableAndNoOthers()
{
    QString sources;
    for (const char *folder : {"/gallery", "/gallery/pages"}) {
        const QDir files(QString(VEMO_SOURCE_DIR) + folder);
        for (const QString &name : files.entryList({"*.cpp"}, QDir::Files)) {
            QFile file(files.filePath(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            sources += QString::fromUtf8(file.readAll());
        }
    }
    const QMap<QString, QString> table = tableOf("gallery/strings", "enu");
    for (const QString &key : table.keys())
        QVERIFY2(sources.contains('"' + key + '"'), qPrintable(key));
    for (const QString &key : found(sources, "(?<=\\bdemo\\(\")\\w+"))
        QVERIFY2(table.contains(key), qPrintable(key));
}

// The calendar's menu of months shows three characters of each.
void StringsTest::noShortenedMonthIsTakenForAnother()
{
    QFETCH(QString, code);
    const QMap<QString, QString> table = tableOf("theme/strings", qPrintable(code));
    QSet<QString> seen;
    for (auto entry = table.begin(); entry != table.end(); ++entry) {
        if (entry.key().startsWith("month_"))
            seen += entry->left(3);
    }
    // June and July begin alike in French and Czech.
    QCOMPARE(seen.size(), code == "fra" || code == "csy" ? 11 : 12);
}

// The calendar's row of weekdays shows the first character of each.
void StringsTest::theFirstLettersOfTheWeekdaysTellThemApart()
{
    QFETCH(QString, code);
    const QMap<QString, QString> table = tableOf("theme/strings", qPrintable(code));
    QSet<QString> seen;
    for (const char *day :
        {"sunday", "monday", "tuesday", "wednesday", "thursday", "friday", "saturday"}) {
        const QString first = table[day].left(1);
        QCOMPARE(first, first.toUpper());
        seen += first;
    }
    QVERIFY2(seen.size() >= 4, qPrintable(QStringList(seen.values()).join(' ')));
}

VEMO_TEST_MAIN(StringsTest)
#include "tst_strings.moc"
