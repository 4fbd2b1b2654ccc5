// SPDX-License-Identifier: MIT
#include "core/stylefile_p.h"

#include "core/styleoracles.h"
#include "support/sanitizers.h"
#include "support/vemotest.h"

using Sections = QMap<QString, QString>;
Q_DECLARE_METATYPE(Sections)

namespace {

Sections sectionsOf(const QString &text)
{
    std::map<QString, QString> sections;
    storeSections(text, sections);
    return Sections(sections);
}

void addText(const char *name, const QString &text, const QString &plain)
{
    QTest::newRow(name) << text << plain;
}

void addSections(const char *name, const QString &text, const Sections &sections)
{
    QTest::newRow(name) << text << sections;
}

} // namespace

class StyleFileTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void commentsAreRemoved_data();
    void commentsAreRemoved();
    void whatIsNoCommentStays_data();
    void whatIsNoCommentStays();
    void sectionsAreStoredUnderTheirKeys_data();
    void sectionsAreStoredUnderTheirKeys();
    void textWithoutAKeyIsCarriedIntoTheNextSection_data();
    void textWithoutAKeyIsCarriedIntoTheNextSection();
    void lineBreaksAreThoseOfATextStream_data();
    void lineBreaksAreThoseOfATextStream();
    void aStoredSectionIsOverwritten();
    void randomTextsAreCutAsTheRulesSay_data();
    void randomTextsAreCutAsTheRulesSay();
    void placeholdersGiveWayAsByReplace_data();
    void placeholdersGiveWayAsByReplace();
};

void StyleFileTest::commentsAreRemoved_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("plain");
    addText("on one line, each on its own", "a /* x */ b /* y */ c\n", "a  b  c\n");
    addText("a slash inside does not end it", "a /*/ b */ c\n", "a  c\n");
    addText("two without anything between", "/* a *//* b */", "");
    addText("empty", "a/**/b", "ab");
    addText("stars", "a/***/b/****/c", "abc");
    addText("opened twice, closed once", "a/* /* */b */", "ab */");
    addText("over a carriage return", "a/*\r*/b", "ab");
    addText("over a line separator", QString("a/*") + QChar(0x2028) + "*/b", "ab");
    addText("over a NUL", QString("a/*") + QChar(0) + "*/b", "ab");
    addText("to the end of the line, with its break", "a // x\nb\n", "a b\n");
    addText("a line of its own", "a\n// x\nb\n", "a\nb\n");
    addText("an empty one", "a//\nb\n", "ab\n");
    addText("three slashes", "a///\nb\n", "ab\n");
    addText("two lines", "a// x\n// y\nb\n", "ab\n");
    addText("in a value", "url(http://x/y.png);\nb\n", "url(http:b\n");
    addText("a block comment inside it goes first", "a // /* x */ y\nb\n", "a b\n");
    addText("it does not hide a block comment", "a // /* x\nb */ c\n", "a b */ c\n");
    addText("slashes inside a block comment", "a /* x // y */ b\nc\n", "a  b\nc\n");
    addText("a slash in front of a block comment", "a //* x */ b\nc\n", "a / b\nc\n");
    addText("slashes that a block comment kept apart", "a //* x *// b\nc\n", "a c\n");
    addText("one that opens with the first's slash", "a /*/ b\nc\n", "a /*/ b\nc\n");
}

void StyleFileTest::commentsAreRemoved()
{
    QFETCH(QString, text);
    QFETCH(QString, plain);
    QCOMPARE(withoutComments(text), plain);
    QCOMPARE(withoutCommentsByRules(text), plain);
}

void StyleFileTest::whatIsNoCommentStays_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("plain");
    const auto addUnchanged = [](const char *name, const QString &text) {
        addText(name, text, text);
    };
    addUnchanged("nothing", "");
    addUnchanged("no comment", "QMenu { margin: 3px; }\n");
    addUnchanged("over several lines", "a /* x\ny */ b\n");
    addUnchanged("never closed", "a /* x\n");
    addUnchanged("closed, never opened", "a */ b\n");
    addUnchanged("one slash", "a / b\n");
    addUnchanged("a slash at the end", "a/");
    addUnchanged("two slashes without a line break", "a // x");
    addUnchanged("full-width slashes", QString::fromUtf8("a ／／ x\n"));
    addUnchanged("beside a lone surrogate", QString("a /* x */") + QChar(0xdc00) + " // y\n");
}

void StyleFileTest::whatIsNoCommentStays()
{
    commentsAreRemoved();
}

void StyleFileTest::sectionsAreStoredUnderTheirKeys_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Sections>("sections");
    addSections("empty text", "", {});
    addSections("no header", "a\nb\n", {});
    addSections("a section begins with a line break", "==a==\nx\ny\n", {{"a", "\nx\ny"}});
    addSections("blanks around the key", "== a ==\nx\n", {{"a", "\nx"}});
    addSections("blanks and equals in the key", "==a b=c==\nx\n", {{"abc", "\nx"}});
    addSections("two sections", "==b==\nx\n==a==\ny\n", {{"a", "\ny"}, {"b", "\nx"}});
    addSections("empty lines count", "==a==\n\nx\n\n", {{"a", "\n\nx\n"}});
    addSections("a header alone", "==a==\n", {{"a", ""}});
    addSections("two headers in a row", "==a==\n==b==\nx\n", {{"a", ""}, {"b", "\nx"}});
    addSections("the later of one key", "==a==\nx\n==a==\ny\n", {{"a", "\ny"}});
    addSections("a later one that is empty", "==a==\nx\n==a==\n", {{"a", ""}});
    addSections("no line break at the end", "==a==\nx", {{"a", "\nx"}});
    addSections("a header at the end", "==a==\nx\n==b==", {{"a", "\nx"}, {"b", ""}});
    addSections("trailing blank", "==a==\nx\n==b== \ny\n", {{"a", "\nx\n==b== \ny"}});
    addSections("a blank in front", "==a==\n ==b==\ny\n", {{"a", "\n ==b==\ny"}});
    addSections("a single equals sign", "==a==\n=b=\n==b=\n=b==\n", {{"a", "\n=b=\n==b=\n=b=="}});
    addSections("a tab is not a blank", "==\ta==\nx\n", {{"\ta", "\nx"}});
    addSections("keys differ by case", "==A==\nx\n==a==\ny\n", {{"A", "\nx"}, {"a", "\ny"}});
    const QString key = QString::fromUtf8("ключ😀") + QChar(0) + QChar(0x2028);
    addSections("any Unicode", "==" + key + "==\nx\n", {{key, "\nx"}});
}

void StyleFileTest::sectionsAreStoredUnderTheirKeys()
{
    QFETCH(QString, text);
    QFETCH(Sections, sections);
    QCOMPARE(sectionsOf(text), sections);
    std::map<QString, QString> byRules;
    storeSectionsByRules(text, byRules);
    QCOMPARE(Sections(byRules), sections);
}

void StyleFileTest::textWithoutAKeyIsCarriedIntoTheNextSection_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Sections>("sections");
    addSections("before the first header", "x\n==a==\ny\n", {{"a", "\nx\ny"}});
    for (const char *header : {"==", "===", "==========", "== ==", "==   =="}) {
        const QString text = QString("==a==\nx\n%1\ny\n==b==\nz\n").arg(header);
        addSections(header, text, {{"a", "\nx"}, {"b", "\ny\nz"}});
    }
    addSections("twice", "x\n== ==\ny\n==a==\nz\n", {{"a", "\nx\ny\nz"}});
    addSections("into nothing", "==a==\nx\n== ==\ny\n", {{"a", "\nx"}});
    addSections("only once", "x\n==a==\n==b==\ny\n", {{"a", "\nx"}, {"b", "\ny"}});
}

void StyleFileTest::textWithoutAKeyIsCarriedIntoTheNextSection()
{
    sectionsAreStoredUnderTheirKeys();
}

void StyleFileTest::lineBreaksAreThoseOfATextStream_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Sections>("sections");
    addSections("carriage returns in front of it", "==a==\r\nx\r\n", {{"a", "\nx"}});
    addSections("two of them", "==a==\nx\r\r\n", {{"a", "\nx\r"}});
    addSections("one inside a line", "==a==\nx\ry\n", {{"a", "\nx\ry"}});
    addSections("one at the end", "==a==\nx\r", {{"a", "\nx"}});
    addSections("one as the last line", "==a==\nx\n\r", {{"a", "\nx\n"}});
    addSections("a header that ends with one", "==a==\r", {{"a", ""}});
    addSections("a line separator is none", QString("==a==\nx") + QChar(0x2028) + "==b==\n",
        {{"a", QString("\nx") + QChar(0x2028) + "==b=="}});
}

void StyleFileTest::lineBreaksAreThoseOfATextStream()
{
    sectionsAreStoredUnderTheirKeys();
}

void StyleFileTest::aStoredSectionIsOverwritten()
{
    std::map<QString, QString> sections {{"a", "old"}, {"b", "kept"}};
    storeSections("==a==\nnew\n", sections);
    QCOMPARE(Sections(sections), (Sections {{"a", "\nnew"}, {"b", "kept"}}));
}

void StyleFileTest::randomTextsAreCutAsTheRulesSay_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= (underSanitizers() ? kFewSeeds : kSeeds); ++seed)
        QTest::addRow("100,000 texts from seed %u", seed) << seed;
}

void StyleFileTest::randomTextsAreCutAsTheRulesSay()
{
    QFETCH(quint32, seed);
    RandomTexts texts(seed, sectionPieces());
    for (int i = 0; i < 100000; ++i) {
        const QString text = texts.next();
        const QString plain = withoutComments(text);
        if (plain != withoutCommentsByRules(text))
            QCOMPARE(plain, withoutCommentsByRules(text));
        std::map<QString, QString> sections;
        storeSections(plain, sections);
        std::map<QString, QString> expected;
        storeSectionsByRules(plain, expected);
        if (sections != expected)
            QFAIL(QTest::toString(plain));
    }
}

void StyleFileTest::placeholdersGiveWayAsByReplace_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("plain") << "/usr/share/host/images";
    QTest::newRow("none") << "";
    QTest::newRow("a placeholder itself") << "/tmp/IMG_LOC";
    QTest::newRow("completes a broken one") << "C:/host";
    QTest::newRow("begins one") << "/IMG_LO";
}

void StyleFileTest::placeholdersGiveWayAsByReplace()
{
    QFETCH(QString, folder);
    const QLatin1String temp("TMPIMG_LOC");
    const QLatin1String plain("IMG_LOC");
    RandomTexts texts(1, {temp, plain, "TMP", "IMG_LO", "C", "G", "GIMG", "/", "\n"});
    for (int i = 0; i < 10000; ++i) {
        const QString text = texts.next();
        const QString expected = QString(text).replace(temp, folder).replace(plain, folder);
        if (withFolder(withFolder(text, temp, folder), plain, folder) != expected)
            QCOMPARE(withFolder(withFolder(text, temp, folder), plain, folder), expected);
    }
}

VEMO_TEST_MAIN(StyleFileTest)
#include "tst_stylefile.moc"
