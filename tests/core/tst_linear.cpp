// SPDX-License-Identifier: MIT
#include <vemo/dpiinfo.h>

#include "core/stylefile_p.h"
#include "support/vemotest.h"

#include <ctime>

namespace {

constexpr int kSmall = 1 << 16;
constexpr int kTimes = 8;
// Eight times the text takes a linear scan 8 times as long, a quadratic one 64 times.
constexpr double kMaxRatio = 28;

QString repeated(const char *piece, int size)
{
    return QString(piece).repeated(size / static_cast<int>(qstrlen(piece)));
}

/// The CPU time of one run in this process.
template <typename Function> double secondsOf(const Function &run)
{
    const std::clock_t start = std::clock();
    run();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// Whether the ratio of the times of the large and the small run is below the limit in three of at
/// most five pairs.
template <typename Function> bool isLinear(const Function &small, const Function &large)
{
    int below = 0;
    int above = 0;
    while (below < 3 && above < 3) {
        // Shorter times cannot be measured reliably.
        const double shortest = 1e-4;
        const double smallTime = qMax(secondsOf(small), shortest);
        const double ratio = secondsOf(large) / smallTime;
        ++(ratio < kMaxRatio ? below : above);
        if (ratio >= kMaxRatio)
            qInfo("The large text takes %.1f times as long.", ratio);
    }
    return below == 3;
}

} // namespace

class LinearTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void scalingTakesTimeInProportion_data();
    void scalingTakesTimeInProportion();
    void cuttingTakesTimeInProportion_data();
    void cuttingTakesTimeInProportion();
};

void LinearTest::scalingTakesTimeInProportion_data()
{
    QTest::addColumn<QString>("small");
    QTest::addColumn<QString>("large");
    const auto addRow = [](const char *name, const char *head, const char *piece,
                            const char *tail) {
        QTest::newRow(name) << head + repeated(piece, kSmall) + tail
                            << head + repeated(piece, kSmall * kTimes) + tail;
    };
    addRow("digits", "", "7", "");
    addRow("digits and a unit", "", "7", "px");
    addRow("zeros and a unit", "", "0", "px");
    addRow("zeros and a fraction", "", "0", ".12345678901234567890px");
    addRow("a long fraction", "1.", "9", "px");
    addRow("a long fraction of zeros", "1.", "0", "px");
    addRow("points", "", "1.", "px");
    addRow("letters x", "", "x", "");
    addRow("units", "", "px", "");
    addRow("digits and letters x", "", "1x", "");
    addRow("short lengths", "", "8px ", "");
    addRow("long lengths", "", "123456.5px", "");
    addRow("rules", "", "QPushButton { min-height: 28px; padding: 0px 12px; }\n", "");
    const QString zeros = repeated("0", kSmall / 2);
    const QString moreZeros = repeated("0", kSmall / 2 * kTimes);
    QTest::newRow("zeros on both sides of the point")
        << zeros + "." + zeros + "1px" << moreZeros + "." + moreZeros + "1px";
}

void LinearTest::scalingTakesTimeInProportion()
{
    QFETCH(QString, small);
    QFETCH(QString, large);
    const auto scale = [](const QString &text) {
        return [&text] { DPIinfo::getInstance().getScaledStyleSheet(text); };
    };
    QVERIFY(isLinear(scale(small), scale(large)));
}

void LinearTest::cuttingTakesTimeInProportion_data()
{
    QTest::addColumn<QString>("small");
    QTest::addColumn<QString>("large");
    for (const char *piece :
        {"/*", "*/", "//", "//\n", "/*\n", "/**/", "/* x */ ", "/*/", "/", "*", "=", "==\n",
            "==a==\n", "x\n==\n", "\n", "x", "/\n", "\r", "\r\n", "a // b\n==c==\n"}) {
        const QByteArray name = QByteArray(piece).replace('\n', "\\n").replace('\r', "\\r");
        QTest::newRow(name.constData())
            << repeated(piece, kSmall) << repeated(piece, kSmall * kTimes);
    }
}

void LinearTest::cuttingTakesTimeInProportion()
{
    QFETCH(QString, small);
    QFETCH(QString, large);
    const auto cut = [](const QString &text) {
        return [&text] {
            std::map<QString, QString> sections;
            storeSections(withoutComments(text), sections);
        };
    };
    QVERIFY(isLinear(cut(small), cut(large)));
}

VEMO_TEST_MAIN(LinearTest)
#include "tst_linear.moc"
