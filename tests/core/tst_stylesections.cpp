// SPDX-License-Identifier: MIT
#include "core/stylefile_p.h"
#include "core/styleoracles.h"
#include "support/vemotest.h"

using Sections = std::map<QString, QString>;

class StyleSectionsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void aMillionRandomTextsAreCutAsTheRulesSay_data();
    void aMillionRandomTextsAreCutAsTheRulesSay();
};

void StyleSectionsTest::aMillionRandomTextsAreCutAsTheRulesSay_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 10; ++seed)
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

VEMO_TEST_MAIN(StyleSectionsTest)
#include "tst_stylesections.moc"
