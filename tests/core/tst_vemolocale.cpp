// SPDX-License-Identifier: MIT
#include <vemo/vemolocale.h>

#include "support/vemotest.h"

#include <cstdio>

static_assert(std::is_copy_constructible_v<VemoLocale> && std::is_copy_assignable_v<VemoLocale>);
static_assert(!std::is_default_constructible_v<VemoLocale>);

namespace {

/// Writes the code of the system's locale to the standard error for the parent process.
int printDefaultLanguage(const QString &scenario)
{
    if (scenario == QLatin1String("registered"))
        VemoLocale::getInstance().setLanguageMap("th", "tha");
    std::fputs(qPrintable("<" + VemoLocale::getInstance().getDefaultLanguage() + ">"), stderr);
    return 0;
}

} // namespace

class VemoLocaleTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void thereIsOneInstance();
    void localesHaveTheirCode_data();
    void localesHaveTheirCode();
    void theSystemLocaleDecidesTheDefault_data();
    void theSystemLocaleDecidesTheDefault();
    void aRegisteredLanguageHoldsForTheSystemLocale();
    void aLanguageCanBeRegisteredAndOverwritten();
    void aRegisteredRuleLanguageHasNoEffect_data();
    void aRegisteredRuleLanguageHasNoEffect();
};

void VemoLocaleTest::thereIsOneInstance()
{
    QCOMPARE(&VemoLocale::getInstance(), &VemoLocale::getInstance());
}

void VemoLocaleTest::localesHaveTheirCode_data()
{
    QTest::addColumn<QString>("code");
    const auto addLocale = [](const char *locale, const char *code) {
        QTest::newRow(locale) << code;
    };
    const std::pair<const char *, const char *> languages[] = {{"en", "enu"}, {"ja", "jpn"},
        {"de", "deu"}, {"ko", "krn"}, {"fr", "fra"}, {"it", "ita"}, {"es", "esn"}, {"ru", "rus"},
        {"da", "dan"}, {"no", "nor"}, {"nb", "nor"}, {"nn", "nor"}, {"sv", "sve"}, {"nl", "nld"},
        {"pl", "plk"}, {"hu", "hun"}, {"tr", "trk"}, {"cs", "csy"}};
    for (const auto &[language, code] : languages) {
        addLocale(language, code);
        QTest::addRow("%s_xx", language) << code;
    }
    addLocale("pt", "ptg");
    addLocale("pt_pt", "ptg");
    addLocale("pt_br", "ptb");
    addLocale("pt_ao", "ptb");
    addLocale(
        "pt_PT", "ptb"); // Case-sensitive: only the system's locale is converted to lower case.
    addLocale("pt_", "ptb");
    addLocale("pt_pt_x", "ptb");
    addLocale("zh", "chs");
    addLocale("zh_cn", "chs");
    addLocale("zh_sg", "chs");
    addLocale("zh_tw", "cht");
    addLocale("zh_hk", "cht");
    addLocale("zh_mo", "cht");
    addLocale("zh_TW", "chs");
    addLocale("zh_hant", "chs");
    addLocale("th_th", "enu");
    addLocale("DE", "enu");
    addLocale("de-at", "enu");
    addLocale("c", "enu");
    addLocale("", "enu");
    addLocale("_de", "enu");
}

void VemoLocaleTest::localesHaveTheirCode()
{
    QFETCH(QString, code);
    QCOMPARE(VemoLocale::getInstance().getLanguageByLocale(QTest::currentDataTag()), code);
}

void VemoLocaleTest::theSystemLocaleDecidesTheDefault_data()
{
    QTest::addColumn<QString>("code");
    const std::pair<const char *, const char *> locales[] = {{"en_US", "enu"}, {"nb_NO", "nor"},
        {"nn_NO", "nor"}, {"no_NO", "nor"}, {"de_AT", "deu"}, {"pt_BR", "ptb"}, {"pt_PT", "ptg"},
        {"pt_AO", "ptb"}, {"zh_CN", "chs"}, {"zh_SG", "chs"}, {"zh_TW", "cht"}, {"zh_HK", "cht"},
        {"zh_MO", "cht"}, {"ja_JP", "jpn"}, {"th_TH", "enu"}, {"C", "enu"}};
    for (const auto &[locale, code] : locales)
        QTest::newRow(locale) << code;
}

void VemoLocaleTest::theSystemLocaleDecidesTheDefault()
{
    QFETCH(QString, code);
    const QString locale = QTest::currentDataTag();
    const ChildResult child = runChild("print", {"LC_ALL=" + locale, "LANGUAGE"});
    QVERIFY2(child.errorOutput.contains("<" + code + ">"), qPrintable(child.errorOutput));
}

void VemoLocaleTest::aRegisteredLanguageHoldsForTheSystemLocale()
{
    const ChildResult child = runChild("registered", {"LC_ALL=th_TH", "LANGUAGE"});
    QVERIFY2(child.errorOutput.contains("<tha>"), qPrintable(child.errorOutput));
}

void VemoLocaleTest::aLanguageCanBeRegisteredAndOverwritten()
{
    VemoLocale locale = VemoLocale::getInstance();
    locale.setLanguageMap("th", "tha");
    QCOMPARE(locale.getLanguageByLocale("th_th"), QString("tha"));
    locale.setLanguageMap("th", "thi");
    QCOMPARE(locale.getLanguageByLocale("th"), QString("thi"));
    locale.setLanguageMap("en", "eng");
    QCOMPARE(locale.getLanguageByLocale("en_gb"), QString("eng"));
    // The default is a fixed code, not the one mapped to English.
    QCOMPARE(locale.getLanguageByLocale("fi_fi"), QString("enu"));
}

void VemoLocaleTest::aRegisteredRuleLanguageHasNoEffect_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("code");
    addRow("Portuguese", "pt", "ptg");
    addRow("Chinese", "zh", "chs");
}

void VemoLocaleTest::aRegisteredRuleLanguageHasNoEffect()
{
    QFETCH(QString, language);
    QFETCH(QString, code);
    VemoLocale locale = VemoLocale::getInstance();
    locale.setLanguageMap(language, "own");
    QCOMPARE(locale.getLanguageByLocale(language), code);
}

VEMO_TEST_MAIN_WITH_CHILD(VemoLocaleTest, printDefaultLanguage)
#include "tst_vemolocale.moc"
