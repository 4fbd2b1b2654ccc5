// SPDX-License-Identifier: MIT
// A sheet, its mask, its window or its parent may be deleted at any time while it runs. The cases
// run in other processes: many in one, and again alone if one of them fails.
#include "sheets/lifetimecase.h"
#include "support/childprocess.h"
#include "support/vemotest.h"

class SheetLifetimesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void endsWell_data();
    void endsWell();

private:
    bool endsWellAmongOthers(const QString &name);

    const QStringList m_names = lifetimeCases();
    QMap<int, bool> m_batches; ///< whether the cases from an index on have ended well together
};

void SheetLifetimesTest::endsWell_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : m_names)
        QTest::newRow(qPrintable(name)) << name;
}

bool SheetLifetimesTest::endsWellAmongOthers(const QString &name)
{
    constexpr int kBatch = 30;
    const int first = m_names.indexOf(name) / kBatch * kBatch;
    if (!m_batches.contains(first)) {
        const ChildResult child = runChild(m_names.mid(first, kBatch).join('\n'));
        m_batches[first] = child.status == QProcess::NormalExit && child.exitCode == 0;
    }
    return m_batches[first];
}

void SheetLifetimesTest::endsWell()
{
    QFETCH(const QString, name);
    if (endsWellAmongOthers(name))
        return;
    const ChildResult child = runChild(name);
    QCOMPARE(child.status, QProcess::NormalExit);
    QVERIFY2(child.exitCode == 0, qPrintable(child.errorOutput));
}

VEMO_TEST_MAIN_WITH_CHILD(SheetLifetimesTest, runLifetimeCases)
#include "tst_sheetlifetimes.moc"
