// SPDX-License-Identifier: MIT
#include <vemo/dpiinfo.h>

#include "core/scaling_p.h"
#include "core/styleoracles.h"
#include "support/sanitizers.h"
#include "support/vemotest.h"

static_assert(std::is_copy_constructible_v<DPIinfo> && std::is_copy_assignable_v<DPIinfo>);
static_assert(!std::is_default_constructible_v<DPIinfo>);

namespace {

// The factors of the measured tables; each requires its own environment.
const QVector<double> kFactors {1.0, 1.25, 1.5};

int factorIndex()
{
    return kFactors.indexOf(DPIinfo::getInstance().getDPI());
}

void addSheet(const char *name, const char *sheet, const QStringList &results)
{
    addRow(name, QString::fromUtf8(sheet), results);
}

void addUnchanged(const char *name, const char *sheet)
{
    addSheet(name, sheet, {sheet, sheet, sheet});
}

} // namespace

class DPIinfoTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void thereIsOneInstance();
    void theScreenIsMeasured();
    void lengthsAreScaledAndTruncated_data();
    void lengthsAreScaledAndTruncated();
    void onlyPixelLengthsAreScaled_data();
    void onlyPixelLengthsAreScaled();
    void longNumbersAreReadAgainByTheirTail_data();
    void longNumbersAreReadAgainByTheirTail();
    void numbersBeyondAnIntEndAtTheHighestOne_data();
    void numbersBeyondAnIntEndAtTheHighestOne();
    void aSheetOfMoreThan64MebiCharactersIsReturnedAsItIs();
    void fractionsCountToTheirLastDigit_data();
    void fractionsCountToTheirLastDigit();
    void sizesInCodeAreTruncatedTowardZero_data();
    void sizesInCodeAreTruncatedTowardZero();
    void sizesInCodeAreScaledAndTruncated_data();
    void sizesInCodeAreScaledAndTruncated();
    void randomSheetsComeOutAsTheRulesSay_data();
    void randomSheetsComeOutAsTheRulesSay();
};

void DPIinfoTest::thereIsOneInstance()
{
    QCOMPARE(&DPIinfo::getInstance(), &DPIinfo::getInstance());
}

void DPIinfoTest::theScreenIsMeasured()
{
    const DPIinfo &info = DPIinfo::getInstance();
    QCOMPARE(info.getDPI(), qEnvironmentVariable("QT_FONT_DPI").toDouble() / 96.0);
    const QString ratio = qEnvironmentVariable("QT_SCALE_FACTOR", "1");
    QCOMPARE(info.getDPR(), ratio.toDouble());
}

void DPIinfoTest::lengthsAreScaledAndTruncated_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<QStringList>("results");
    addSheet("nothing", "", {"", "", ""});
    addSheet("0px", "0px", {"0px", "0px", "0px"});
    addSheet("1px", "1px", {"1px", "1px", "1px"});
    addSheet("3px", "3px", {"3px", "3px", "4px"});
    addSheet("10px", "10px", {"10px", "12px", "15px"});
    addSheet("100px", "100px", {"100px", "125px", "150px"});
    addSheet("999px", "999px", {"999px", "1248px", "1498px"});
    addSheet("1.5px", "1.5px", {"1px", "1px", "2px"});
    addSheet("007px", "007px", {"7px", "8px", "10px"});
    addSheet(".5px", ".5px", {".5px", ".6px", ".7px"});
    addSheet("1..5px", "1..5px", {"1..5px", "1..6px", "1..7px"});
    addSheet("1.px", "1.px", {"1px", "1px", "1px"});
    addSheet("-5px", "-5px", {"-5px", "-6px", "-7px"});
    addSheet("5pxx", "5pxx", {"5pxx", "6pxx", "7pxx"});
    addSheet("1e3px", "1e3px", {"1e3px", "1e3px", "1e4px"});
    addSheet("whole text", "8px", {"8px", "10px", "12px"});
    addSheet("two in a row", "8px12px", {"8px12px", "10px15px", "12px18px"});
    addSheet("in the name of a picture", "url(x/arrow_16px.png)",
        {"url(x/arrow_16px.png)", "url(x/arrow_20px.png)", "url(x/arrow_24px.png)"});
    addSheet("after a full stop", "a.8px", {"a.8px", "a.10px", "a.12px"});
    addSheet("a section", "\nQPushButton { min-height: 28px; padding: 0px 12px; }",
        {"\nQPushButton { min-height: 28px; padding: 0px 12px; }",
            "\nQPushButton { min-height: 35px; padding: 0px 15px; }",
            "\nQPushButton { min-height: 42px; padding: 0px 18px; }"});
}

void DPIinfoTest::lengthsAreScaledAndTruncated()
{
    QFETCH(QString, sheet);
    QFETCH(QStringList, results);
    QCOMPARE(DPIinfo::getInstance().getScaledStyleSheet(sheet), results.at(factorIndex()));
}

void DPIinfoTest::onlyPixelLengthsAreScaled_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<QStringList>("results");
    addUnchanged("percent", "width: 50%");
    addUnchanged("points", "font: 10pt");
    addUnchanged("a bare number", "margin: 10; opacity: 0.75");
    addUnchanged("capitals", "10PX 10Px 10pX");
    addUnchanged("a blank between", "10 px");
    addUnchanged("no number", "px xpx ppx .px -px");
    addUnchanged("only the unit's first letter", "10p");
    addUnchanged("full-width digits", "１２px");
    addUnchanged("Arabic digits", "٣px");
    addUnchanged("a line break between", "10\npx");
    addUnchanged("no text but a line break", "\n");
    addRow("a lone surrogate spares the whole text", "8px" + QString(QChar(0xd800)),
        QStringList {"8px" + QString(QChar(0xd800)), "8px" + QString(QChar(0xd800)),
            "8px" + QString(QChar(0xd800))});
    addSheet("a pair of surrogates spares nothing", "😀8px", {"😀8px", "😀10px", "😀12px"});
}

void DPIinfoTest::onlyPixelLengthsAreScaled()
{
    lengthsAreScaledAndTruncated();
}

void DPIinfoTest::longNumbersAreReadAgainByTheirTail_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<QStringList>("results");
    addSheet("12.5px", "12.5px", {"12px5px", "15px6px", "18px7px"});
    addSheet("1000px", "1000px", {"1000px0px", "1250px0px", "1500px0px"});
    addSheet("0010px", "0010px", {"10px0px", "12px0px", "15px0px"});
    addSheet("the point is passed over", "123.45px", {"123px45px", "154px56px", "185px67px"});
    addSheet("a point is all that is left", "123.px", {"123px", "153px", "184px"});
    addSheet(
        "a fraction's tail is a whole number", "1.2345px", {"1px345px", "1px431px", "1px517px"});
    addSheet("what follows moves up", "a:12.5px;b:3px;",
        {"a:12px;b:5px;3px", "a:15px;b:6px;3px", "a:18px;b:7px;4px"});
    addSheet("two long numbers", "a:1000px;b:2000px;c:3px;end",
        {"a:1000px;b:0px;c:2000px;end0px3px", "a:1250px;b:0px;c:2500px;end0px3px",
            "a:1500px;b:0px;c:3000px;end0px4px"});
    addSheet("three matches in one number", "1234567px;",
        {"1234567px;4567px7px", "1543208px;5708px8px", "1851850px;6850px10px"});
}

void DPIinfoTest::longNumbersAreReadAgainByTheirTail()
{
    lengthsAreScaledAndTruncated();
}

void DPIinfoTest::numbersBeyondAnIntEndAtTheHighestOne_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<QString>("first");
    addRow("eleven nines", QString(11, '9') + "px", "2147483647px");
    addRow("sixteen nines", QString(16, '9') + "px", "2147483647px");
    addRow("beyond any double", QString(400, '9') + "px", "2147483647px");
    addRow("after many zeros", QString(400, '0') + QString(12, '9') + "px", "2147483647px");
    addRow("only zeros", QString(400, '0') + "px", "0px");
}

void DPIinfoTest::numbersBeyondAnIntEndAtTheHighestOne()
{
    QFETCH(QString, sheet);
    QFETCH(QString, first);
    const DPIinfo &info = DPIinfo::getInstance();
    const QString result = info.getScaledStyleSheet(sheet);
    QVERIFY2(result.startsWith(first), qPrintable(result));
    QCOMPARE(result, scaledByRules(sheet, info.getDPI()));
}

void DPIinfoTest::aSheetOfMoreThan64MebiCharactersIsReturnedAsItIs()
{
    QString sheet(64 * 1024 * 1024, ' ');
    sheet.replace(sheet.size() - 5, 5, "1000px");
    QVERIFY(DPIinfo::getInstance().getScaledStyleSheet(sheet) == sheet);
    sheet.remove(0, 1);
    const QString scaled = DPIinfo::getInstance().getScaledStyleSheet(sheet);
    QCOMPARE(scaled.trimmed(), QString("%1px0px").arg(1000 * DPIinfo::getInstance().getDPI()));
}

void DPIinfoTest::fractionsCountToTheirLastDigit_data()
{
    QTest::addColumn<QString>("sheet");
    // Half-way between 2 and the largest double below it, so that a further digit decides.
    const QString halfWay = "1.99999999999999988897769753748434595763683319091796875";
    addRow("half-way", halfWay + "px");
    addRow("just above", halfWay + "1px");
    addRow("decided by a late digit", halfWay + QString(1000, '0') + "1px");
    addRow("just below", halfWay.chopped(1) + "4px");
    addRow("fifteen digits", "123456.789012345px");
    addRow("more digits than a double holds", "1.9999999999999998px");
    addRow("sixteen digits", "1234567.890123456px");
    addRow("a tiny fraction", "0." + QString(400, '0') + "1px");
    addRow("zeros in front", QString(400, '0') + halfWay + "1px");
}

void DPIinfoTest::fractionsCountToTheirLastDigit()
{
    QFETCH(QString, sheet);
    const DPIinfo &info = DPIinfo::getInstance();
    QCOMPARE(info.getScaledStyleSheet(sheet), scaledByRules(sheet, info.getDPI()));
}

void DPIinfoTest::sizesInCodeAreTruncatedTowardZero_data()
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("expected");
    addRow("0.999", 0.999, 0);
    addRow("-0.999", -0.999, 0);
    addRow("-1.5", -1.5, -1);
    addRow("42.9", 42.9, 42);
    addRow("highest", 2147483647.0, 2147483647);
    addRow("above the highest", 2147483648.0, 2147483647);
    addRow("lowest", -2147483648.0, std::numeric_limits<int>::min());
    addRow("below the lowest", -2147483649.0, std::numeric_limits<int>::min());
    addRow("infinite", infinity, 2147483647);
    addRow("minus infinite", -infinity, std::numeric_limits<int>::min());
    addRow("not a number", std::nan(""), 0);
}

void DPIinfoTest::sizesInCodeAreTruncatedTowardZero()
{
    QFETCH(double, value);
    QFETCH(int, expected);
    QCOMPARE(truncToInt(value), expected);
}

void DPIinfoTest::sizesInCodeAreScaledAndTruncated_data()
{
    QTest::addColumn<double>("length");
    QTest::addColumn<QVector<int>>("results");
    addRow("1", 1.0, QVector<int> {1, 1, 1});
    addRow("3", 3.0, QVector<int> {3, 3, 4});
    addRow("6", 6.0, QVector<int> {6, 7, 9});
    addRow("28", 28.0, QVector<int> {28, 35, 42});
    addRow("28.5", 28.5, QVector<int> {28, 35, 42});
    addRow("0.9", 0.9, QVector<int> {0, 1, 1});
    addRow("2.5", 2.5, QVector<int> {2, 3, 3});
    addRow("-1", -1.0, QVector<int> {-1, -1, -1});
    addRow("-2.5", -2.5, QVector<int> {-2, -3, -3});
    addRow("-3", -3.0, QVector<int> {-3, -3, -4});
    constexpr int highest = std::numeric_limits<int>::max();
    addRow("too long", 1e10, QVector<int> {highest, highest, highest});
    addRow("not a number", std::nan(""), QVector<int> {0, 0, 0});
}

void DPIinfoTest::sizesInCodeAreScaledAndTruncated()
{
    QFETCH(double, length);
    QFETCH(QVector<int>, results);
    QCOMPARE(DPIinfo::scaled(length), results.at(factorIndex()));
}

void DPIinfoTest::randomSheetsComeOutAsTheRulesSay_data()
{
    QTest::addColumn<quint32>("seed");
    // The scan is the same at every factor; only the products differ.
    const DPIinfo &info = DPIinfo::getInstance();
    const bool areFew = underSanitizers() || info.getDPI() != 1 || info.getDPR() != 1;
    for (quint32 seed = 1; seed <= (areFew ? kFewSeeds : kSeeds); ++seed)
        QTest::addRow("100,000 texts from seed %u", seed) << seed;
}

void DPIinfoTest::randomSheetsComeOutAsTheRulesSay()
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

VEMO_TEST_MAIN(DPIinfoTest)
#include "tst_dpiinfo.moc"
