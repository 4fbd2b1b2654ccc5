// SPDX-License-Identifier: MIT
#include <vemo/vemolocale.h>

#include "core/languagecode_p.h"
#include "support/vemotest.h"

#include <cstdio>

static_assert(std::is_copy_constructible_v<VemoLocale> && std::is_copy_assignable_v<VemoLocale>);
static_assert(!std::is_default_constructible_v<VemoLocale>);

namespace {

/// Registers codes such as "th=tha en=eng", then writes the code of the system's locale to the
/// standard error for the parent process.
int printDefaultLanguage(const QString &codes)
{
    for (const QString &code : codes.split(' ', Qt::SkipEmptyParts))
        VemoLocale::getInstance().setLanguageMap(code.section('=', 0, 0), code.section('=', 1));
    std::fputs(qPrintable("<" + VemoLocale::getInstance().getDefaultLanguage() + ">"), stderr);
    return 0;
}

} // namespace

class VemoLocaleTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void thereIsOneInstance();
    void languagesHaveTheirCode();
    void aLocaleBeginsWithItsLanguage_data();
    void aLocaleBeginsWithItsLanguage();
    void theRegionDecidesTheCode_data();
    void theRegionDecidesTheCode();
    void theSystemLocaleDecidesTheDefault_data();
    void theSystemLocaleDecidesTheDefault();
};

void VemoLocaleTest::thereIsOneInstance()
{
    QCOMPARE(&VemoLocale::getInstance(), &VemoLocale::getInstance());
}

void VemoLocaleTest::languagesHaveTheirCode()
{
    const std::map<QString, QString> expected {{"en", "enu"}, {"ja", "jpn"}, {"de", "deu"},
        {"ko", "krn"}, {"fr", "fra"}, {"it", "ita"}, {"es", "esn"}, {"ru", "rus"}, {"da", "dan"},
        {"no", "nor"}, {"nb", "nor"}, {"nn", "nor"}, {"sv", "sve"}, {"nl", "nld"}, {"pl", "plk"},
        {"hu", "hun"}, {"tr", "trk"}, {"cs", "csy"}};
    QVERIFY(languagecode::languageCodes() == expected);
}

void VemoLocaleTest::aLocaleBeginsWithItsLanguage_data()
{
    QTest::addColumn<QString>("language");
    addRow("de_at", "de");
    addRow("de", "de");
    addRow("de-at", "de-at");
    addRow("DE", "DE"); // Case-sensitive: only the system's locale is converted to lower case.
    addRow("pt_", "pt");
    addRow("pt_pt_x", "pt");
    addRow("_de", "");
    addRow("", "");
}

void VemoLocaleTest::aLocaleBeginsWithItsLanguage()
{
    QTEST(languagecode::languageOf(QTest::currentDataTag()), "language");
}

void VemoLocaleTest::theRegionDecidesTheCode_data()
{
    QTest::addColumn<QString>("code");
    for (const char *locale : {"pt", "pt_pt"})
        addRow(locale, "ptg");
    for (const char *locale : {"pt_br", "pt_ao", "pt_PT", "pt_", "pt_pt_x"})
        addRow(locale, "ptb");
    for (const char *locale : {"zh", "zh_cn", "zh_sg", "zh_TW", "zh_hant"})
        addRow(locale, "chs");
    for (const char *locale : {"zh_tw", "zh_hk", "zh_mo"})
        addRow(locale, "cht");
}

void VemoLocaleTest::theRegionDecidesTheCode()
{
    const QString locale = QTest::currentDataTag();
    QTEST(locale.startsWith("pt") ? languagecode::portugueseCode(locale)
                                  : languagecode::chineseCode(locale),
        "code");
}

void VemoLocaleTest::theSystemLocaleDecidesTheDefault_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("registered");
    QTest::addColumn<QString>("code");
    const std::pair<const char *, const char *> locales[] = {{"en_US", "enu"}, {"nb_NO", "nor"},
        {"nn_NO", "nor"}, {"no_NO", "nor"}, {"de_AT", "deu"}, {"pt_BR", "ptb"}, {"pt_PT", "ptg"},
        {"pt_AO", "ptb"}, {"zh_CN", "chs"}, {"zh_SG", "chs"}, {"zh_TW", "cht"}, {"zh_HK", "cht"},
        {"zh_MO", "cht"}, {"ja_JP", "jpn"}, {"th_TH", "enu"}, {"C", "enu"}};
    for (const auto &[locale, code] : locales)
        addRow(locale, locale, " ", code);
    addRow("a registered language", "th_TH", "th=tha", "tha");
    addRow("one registered twice", "th_TH", "th=tha th=thi", "thi");
    addRow("another code for English", "en_GB", "en=eng", "eng");
    addRow("the default is not that of English", "fi_FI", "en=eng", "enu");
    addRow("registered Portuguese has no effect", "pt_PT", "pt=own", "ptg");
    addRow("registered Chinese has no effect", "zh_CN", "zh=own", "chs");
}

void VemoLocaleTest::theSystemLocaleDecidesTheDefault()
{
    QFETCH(const QString, locale);
    QFETCH(const QString, registered);
    QFETCH(const QString, code);
    // On Windows Qt takes LANG instead, if it is there.
    const ChildResult child =
        runChild(registered, {"LC_ALL=" + locale, "LANG=" + locale, "LANGUAGE"});
    QVERIFY2(child.errorOutput.contains("<" + code + ">"), qPrintable(child.errorOutput));
}

VEMO_TEST_MAIN_WITH_CHILD(VemoLocaleTest, printDefaultLanguage)
#include "tst_vemolocale.moc"
