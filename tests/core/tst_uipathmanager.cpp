// SPDX-License-Identifier: MIT
#include <vemo/uipathmanager.h>

#include "support/vemotest.h"

class UIPathManagerTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void anUnknownKeyYieldsAnEmptyPathAndAWarning();
    void asecondPathOverwritesTheFirstAndIsNamedInTheWarning();
};

void UIPathManagerTest::anUnknownKeyYieldsAnEmptyPathAndAWarning()
{
    const QString path = UIPathManager::getInstance().getPath("resource_path");
    QVERIFY(path.isEmpty());
    QVERIFY(!path.isNull());
    QCOMPARE(messages.take(), QStringList("Cannot find path by key \"resource_path\""));
}

void UIPathManagerTest::asecondPathOverwritesTheFirstAndIsNamedInTheWarning()
{
    UIPathManager &paths = UIPathManager::getInstance();
    paths.setPath("user_data_path", "/a");
    QCOMPARE(messages.take(), QStringList());
    paths.setPath("user_data_path", "/b");
    QCOMPARE(paths.getPath("user_data_path"), QString("/b"));
    QCOMPARE(messages.take(),
        QStringList("Existing path is \"/b\" with key \"user_data_path\" but overwrite it now"));
}

VEMO_TEST_MAIN(UIPathManagerTest)
#include "tst_uipathmanager.moc"
