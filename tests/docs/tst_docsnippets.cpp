// SPDX-License-Identifier: MIT
// The documentation's code runs without a warning: its sections, pictures and texts all exist.
#include "docs/snippets.h"
#include "support/testhost.h"
#include "support/vemotest.h"

class DocSnippetsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void runsWithoutAWarning_data();
    void runsWithoutAWarning();
};

void DocSnippetsTest::runsWithoutAWarning_data()
{
    QTest::addColumn<int>("index");
    QVERIFY(docSnippets.size() > 0);
    for (size_t i = 0; i < docSnippets.size(); ++i)
        QTest::newRow(docSnippets[i].name) << int(i);
}

void DocSnippetsTest::runsWithoutAWarning()
{
    QFETCH(const int, index);
    docSnippets[size_t(index)].run();
}

VEMO_TEST_MAIN(DocSnippetsTest)
#include "tst_docsnippets.moc"
