// SPDX-License-Identifier: MIT
#include <vemo/dpiinfo.h>

#include "support/vemotest.h"

#include <QScreen>

class ScreenMeasuredOnceTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void theFirstMeasurementHolds();
};

void ScreenMeasuredOnceTest::theFirstMeasurementHolds()
{
    QCOMPARE(QGuiApplication::primaryScreen()->logicalDotsPerInchX(), 144.0);
    QCOMPARE(QGuiApplication::primaryScreen()->devicePixelRatio(), 2.0);
    QCOMPARE(DPIinfo::getInstance().getDPI(), 1.0);
    QCOMPARE(DPIinfo::getInstance().getDPR(), 1.0);
    QCOMPARE(DPIinfo::getInstance().getScaledStyleSheet("10px"), QString("10px"));
}

int main(int argc, char **argv)
{
    setTestEnvironment();
    qputenv("QT_FONT_DPI", "144");
    qputenv("QT_SCALE_FACTOR", "2");
    // Called too early, so that any later measurement would differ.
    DPIinfo::getInstance();
    QApplication app(argc, argv);
    keepScreensReachable();
    ScreenMeasuredOnceTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_screenmeasuredonce.moc"
