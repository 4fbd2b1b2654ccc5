// SPDX-License-Identifier: MIT
#include <vemo/componentstrings.h>

#include "support/vemotest.h"

static_assert(std::is_copy_constructible_v<ComponentStrings>);
static_assert(std::is_copy_assignable_v<ComponentStrings>);
static_assert(!std::is_default_constructible_v<ComponentStrings>);

class ComponentStringsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void thereIsOneInstance();
    void anUnknownKeyYieldsItselfAndAWarning_data();
    void anUnknownKeyYieldsItselfAndAWarning();
    void aKnownKeyYieldsItsText();
    void aKnownKeyWithAnEmptyTextYieldsTheEmptyText();
    void anotherTableReplacesTheFirst();
    void keysDifferByCase();
    void theTableOfTheHostIsACopy();
};

void ComponentStringsTest::thereIsOneInstance()
{
    QCOMPARE(&ComponentStrings::getInstance(), &ComponentStrings::getInstance());
}

void ComponentStringsTest::anUnknownKeyYieldsItselfAndAWarning_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("warning");
    addRow("plain", "no.such.key", "Cannot find key in ComponentStrings \"no.such.key\"");
    addRow("empty", "", "Cannot find key in ComponentStrings \"\"");
    addRow("Chinese", QString::fromUtf8("确定"),
        QString::fromUtf8("Cannot find key in ComponentStrings \"确定\""));
    addRow("a lone surrogate", QString(QChar(0xdc00)),
        "Cannot find key in ComponentStrings \"\\uDC00\"");
}

void ComponentStringsTest::anUnknownKeyYieldsItselfAndAWarning()
{
    QFETCH(QString, key);
    QFETCH(QString, warning);
    ComponentStrings::getInstance().installStrings({});
    QCOMPARE(ComponentStrings::getInstance().getString(key), key);
    QCOMPARE(messages.take(), QStringList(warning));
}

void ComponentStringsTest::aKnownKeyYieldsItsText()
{
    const QString text = QString::fromUtf8("Schließen 😀");
    ComponentStrings::getInstance().installStrings({{"common.close", text}});
    QCOMPARE(ComponentStrings::getInstance().getString("common.close"), text);
}

void ComponentStringsTest::aKnownKeyWithAnEmptyTextYieldsTheEmptyText()
{
    ComponentStrings::getInstance().installStrings({{"common.none", ""}});
    QCOMPARE(ComponentStrings::getInstance().getString("common.none"), QString());
}

void ComponentStringsTest::anotherTableReplacesTheFirst()
{
    ComponentStrings &strings = ComponentStrings::getInstance();
    strings.installStrings({{"old", "Alt"}, {"both", "Beide"}});
    strings.installStrings({{"new", "Neu"}, {"both", "Alle beide"}});
    QCOMPARE(strings.getString("new"), QString("Neu"));
    QCOMPARE(strings.getString("both"), QString("Alle beide"));
    QCOMPARE(strings.getString("old"), QString("old"));
    QCOMPARE(messages.take(), QStringList("Cannot find key in ComponentStrings \"old\""));
}

void ComponentStringsTest::keysDifferByCase()
{
    ComponentStrings::getInstance().installStrings({{"ok", "OK"}});
    QCOMPARE(ComponentStrings::getInstance().getString("OK"), QString("OK"));
    QCOMPARE(messages.take(), QStringList("Cannot find key in ComponentStrings \"OK\""));
}

void ComponentStringsTest::theTableOfTheHostIsACopy()
{
    QMap<QString, QString> table {{"key", "before"}};
    ComponentStrings::getInstance().installStrings(table);
    table["key"] = "after";
    QCOMPARE(ComponentStrings::getInstance().getString("key"), QString("before"));
}

VEMO_TEST_MAIN(ComponentStringsTest)
#include "tst_componentstrings.moc"
