// SPDX-License-Identifier: MIT
#include <vemo/uipathmanager.h>

#include "support/vemotest.h"

static_assert(std::is_copy_constructible_v<UIPathManager>);
static_assert(std::is_copy_assignable_v<UIPathManager>);
static_assert(!std::is_default_constructible_v<UIPathManager>);

class UIPathManagerTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void thereIsOneInstance();
    void anUnknownKeyYieldsAnEmptyPathAndAWarning_data();
    void anUnknownKeyYieldsAnEmptyPathAndAWarning();
    void aFirstPathIsStoredInSilence_data();
    void aFirstPathIsStoredInSilence();
    void aSecondPathOverwritesTheFirstAndIsNamedInTheWarning();
    void theSamePathAgainIsAlsoWarnedAbout();
    void keysDifferByCase();
    void aPathNeedNotExist();
    void aSilencedCategoryLogsNothing();
};

void UIPathManagerTest::thereIsOneInstance()
{
    QCOMPARE(&UIPathManager::getInstance(), &UIPathManager::getInstance());
}

void UIPathManagerTest::anUnknownKeyYieldsAnEmptyPathAndAWarning_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("warning");
    addRow(
        "one that the library reads", "resource_path", "Cannot find path by key \"resource_path\"");
    addRow("empty", "", "Cannot find path by key \"\"");
    addRow("quotes and a line break", "a\"b\nc", "Cannot find path by key \"a\\\"b\\nc\"");
    addRow("a lone surrogate", QString(QChar(0xd800)), "Cannot find path by key \"\\uD800\"");
    addRow("NUL", QString(QChar(0)), "Cannot find path by key \"\\u0000\"");
}

void UIPathManagerTest::anUnknownKeyYieldsAnEmptyPathAndAWarning()
{
    QFETCH(QString, key);
    QFETCH(QString, warning);
    const QString path = UIPathManager::getInstance().getPath(key);
    QVERIFY(path.isEmpty());
    QVERIFY(!path.isNull());
    QCOMPARE(messages.take(), QStringList(warning));
    // Look-ups store nothing: looking up the same missing key warns again.
    UIPathManager::getInstance().getPath(key);
    QCOMPARE(messages.take(), QStringList(warning));
}

void UIPathManagerTest::aFirstPathIsStoredInSilence_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("plain") << "first.plain";
    QTest::newRow("beyond the basic plane") << QString::fromUtf8("first.😀");
    QTest::newRow("right to left") << QString::fromUtf8("first.مسار");
    QTest::newRow("lone surrogate") << "first." + QString(QChar(0xdfff));
    QTest::newRow("NUL inside") << QString("first.") + QChar(0) + "a";
}

void UIPathManagerTest::aFirstPathIsStoredInSilence()
{
    QFETCH(QString, key);
    UIPathManager::getInstance().setPath(key, "/srv/" + key);
    QCOMPARE(UIPathManager::getInstance().getPath(key), "/srv/" + key);
}

void UIPathManagerTest::aSecondPathOverwritesTheFirstAndIsNamedInTheWarning()
{
    UIPathManager &paths = UIPathManager::getInstance();
    paths.setPath("user_data_path", "/a");
    QCOMPARE(messages.take(), QStringList());
    paths.setPath("user_data_path", "/b");
    QCOMPARE(paths.getPath("user_data_path"), QString("/b"));
    QCOMPARE(messages.take(),
        QStringList("Existing path is \"/b\" with key \"user_data_path\" but overwrite it now"));
}

void UIPathManagerTest::theSamePathAgainIsAlsoWarnedAbout()
{
    UIPathManager::getInstance().setPath("same", "/a");
    UIPathManager::getInstance().setPath("same", "/a");
    QCOMPARE(messages.take(),
        QStringList("Existing path is \"/a\" with key \"same\" but overwrite it now"));
}

void UIPathManagerTest::keysDifferByCase()
{
    UIPathManager &paths = UIPathManager::getInstance();
    paths.setPath("resource_path", "/small");
    paths.setPath("Resource_Path", "/capital");
    QCOMPARE(paths.getPath("resource_path"), QString("/small"));
    QCOMPARE(paths.getPath("Resource_Path"), QString("/capital"));
}

void UIPathManagerTest::aPathNeedNotExist()
{
    UIPathManager::getInstance().setPath("nowhere", "no such folder/\n");
    QCOMPARE(UIPathManager::getInstance().getPath("nowhere"), QString("no such folder/\n"));
}

void UIPathManagerTest::aSilencedCategoryLogsNothing()
{
    QLoggingCategory::setFilterRules("debug.message.warning=false");
    const QString path = UIPathManager::getInstance().getPath("silent");
    QLoggingCategory::setFilterRules(QString());
    QVERIFY(path.isEmpty());
    QCOMPARE(messages.take(), QStringList());
}

VEMO_TEST_MAIN(UIPathManagerTest)
#include "tst_uipathmanager.moc"
