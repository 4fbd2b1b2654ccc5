// SPDX-License-Identifier: MIT
#include "core/stylefile_p.h"
#include "core/styleoracles.h"
#include "support/sanitizers.h"
#include "support/vemotest.h"

using Sections = std::map<QString, QString>;

class StyleSectionsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void aMillionRandomTextsAreCutAsTheRulesSay_data();
    void aMillionRandomTextsAreCutAsTheRulesSay();
    void placeholdersGiveWayAsByReplace_data();
    void placeholdersGiveWayAsByReplace();
};

void StyleSectionsTest::aMillionRandomTextsAreCutAsTheRulesSay_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= (underSanitizers() ? kFewSeeds : kSeeds); ++seed)
        QTest::addRow("100,000 texts from seed %u", seed) << seed;
}

void StyleSectionsTest::aMillionRandomTextsAreCutAsTheRulesSay()
{
    QFETCH(quint32, seed);
    RandomTexts texts(seed, sectionPieces());
    for (int i = 0; i < 100000; ++i) {
        const QString text = texts.next();
        const QString plain = withoutComments(text);
        if (plain != withoutCommentsByRules(text))
            QCOMPARE(plain, withoutCommentsByRules(text));
        Sections sections;
        storeSections(plain, sections);
        Sections expected;
        storeSectionsByRules(plain, expected);
        if (sections != expected)
            QFAIL(QTest::toString(plain));
    }
}

void StyleSectionsTest::placeholdersGiveWayAsByReplace_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("plain") << "/usr/share/host/images";
    QTest::newRow("none") << "";
    QTest::newRow("a placeholder itself") << "/tmp/IMG_LOC";
    QTest::newRow("completes a broken one") << "C:/host";
    QTest::newRow("begins one") << "/IMG_LO";
}

void StyleSectionsTest::placeholdersGiveWayAsByReplace()
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

VEMO_TEST_MAIN(StyleSectionsTest)
#include "tst_stylesections.moc"
