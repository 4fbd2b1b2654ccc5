// SPDX-License-Identifier: MIT
// A sheet, its mask, its window or its parent may be deleted at any time while it runs.
#include "sheets/lifetimecase.h"
#include "support/childprocess.h"
#include "support/vemotest.h"

class SheetLifetimesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void tableIsLargeEnough();
    void endsWell_data();
    void endsWell();
};

void SheetLifetimesTest::tableIsLargeEnough()
{
    const QStringList names = lifetimeCases();
    QVERIFY(names.size() >= 200);
    QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), names.size());
}

void SheetLifetimesTest::endsWell_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : lifetimeCases())
        QTest::newRow(qPrintable(name)) << name;
}

void SheetLifetimesTest::endsWell()
{
    QFETCH(const QString, name);
    const ChildResult child = runChild(name);
    QCOMPARE(child.status, QProcess::NormalExit);
    QVERIFY2(child.exitCode == 0, qPrintable(child.errorOutput));
}

VEMO_TEST_MAIN_WITH_CHILD(SheetLifetimesTest, runLifetimeCase)
#include "tst_sheetlifetimes.moc"
