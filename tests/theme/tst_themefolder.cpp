// SPDX-License-Identifier: MIT
#include <vemo/componentstrings.h>
#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>
#include <vemo/uipathmanager.h>
#include <vemo/vemobutton.h>

#include "support/vemotest.h"

#include <QDirIterator>

namespace {

void copyFolder(const QString &from, const QString &to)
{
    QDirIterator files(from, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString source = files.next();
        const QString target = to + source.mid(from.size());
        QVERIFY(QDir().mkpath(QFileInfo(target).path()));
        QVERIFY(QFile::copy(source, target));
    }
}

/// The five steps of start-up, as a host does them on a folder of its own.
void startOn(const QString &theme, const QString &userData)
{
    UIPathManager::getInstance().setPath("resource_path", theme);
    UIPathManager::getInstance().setPath("user_data_path", userData);
    ComponentStrings::getInstance().installStrings({{"own.key", "Own text"}});
    ImageManager::getInstance().initialize(ImageManager::PRELOAD);
    StyleManager::getInstance().initialize(
        {theme + "/style/buttons.qss", theme + "/style/own.qss"});
}

} // namespace

class ThemeFolderTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void aHostUsesAnEditedCopyOfTheFolder();
};

void ThemeFolderTest::aHostUsesAnEditedCopyOfTheFolder()
{
    const QTemporaryDir theme;
    const QTemporaryDir userData;
    copyFolder(VEMO_THEME_FOLDER, theme.path());
    QFile own(theme.filePath("style/own.qss"));
    QVERIFY(own.open(QIODevice::WriteOnly));
    own.write("== component.red_button ==\nQPushButton { image: url(IMG_LOC/folder.png); }\n");
    own.close();

    startOn(theme.path(), userData.path());

    QCOMPARE(ComponentStrings::getInstance().getString("own.key"), QString("Own text"));
    QVERIFY(!getGlobalImage("folder").isNull());
    QVERIFY(VemoButton("Save", VemoButton::APPLY).styleSheet().contains("QPushButton"));
    QCOMPARE(VemoButton("Delete", VemoButton::RED).styleSheet(),
        QString("\nQPushButton { image: url(%1/images/folder.png); }\n").arg(theme.path()));
}

VEMO_TEST_MAIN(ThemeFolderTest)
#include "tst_themefolder.moc"
