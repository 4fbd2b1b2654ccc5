// SPDX-License-Identifier: MIT
#include <vemo/dpiinfo.h>

#include "core/styleoracles.h"
#include "support/sanitizers.h"
#include "support/vemotest.h"

class ScaledTextsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void aMillionRandomSheetsComeOutAsTheRulesSay_data();
    void aMillionRandomSheetsComeOutAsTheRulesSay();
};

void ScaledTextsTest::aMillionRandomSheetsComeOutAsTheRulesSay_data()
{
    QTest::addColumn<quint32>("seed");
    // The scan is the same at every factor; only the products differ.
    const bool areFew = underSanitizers() || DPIinfo::getInstance().getDPI() != 1;
    for (quint32 seed = 1; seed <= (areFew ? kFewSeeds : kSeeds); ++seed)
        QTest::addRow("100,000 texts from seed %u", seed) << seed;
}

void ScaledTextsTest::aMillionRandomSheetsComeOutAsTheRulesSay()
{
    QFETCH(quint32, seed);
    const DPIinfo &info = DPIinfo::getInstance();
    RandomTexts texts(seed, lengthPieces());
    for (int i = 0; i < 100000; ++i) {
        const QString sheet = texts.next();
        if (info.getScaledStyleSheet(sheet) != scaledByRules(sheet, info.getDPI()))
            QFAIL(QTest::toString(sheet));
    }
}

VEMO_TEST_MAIN(ScaledTextsTest)
#include "tst_scaledtexts.moc"
