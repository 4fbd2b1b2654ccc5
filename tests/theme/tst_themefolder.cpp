// SPDX-License-Identifier: MIT
#include <vemo/componentstrings.h>
#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>
#include <vemo/uipathmanager.h>
#include <vemo/vemobutton.h>
#include <vemo/vemocheckbox.h>

#include "support/iswindows.h"
#include "support/testhost.h"
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

/// The five steps of the start-up of a host with its own folder.
void startOn(const QString &theme, const QString &userData)
{
    UIPathManager::getInstance().setPath("resource_path", theme);
    UIPathManager::getInstance().setPath("user_data_path", userData);
    ComponentStrings::getInstance().installStrings({{"own.key", "Own text"}});
    ImageManager::getInstance().initialize(ImageManager::PRELOAD);
    StyleManager::getInstance().initialize(
        {theme + "/style/buttons.qss", theme + "/style/own.qss"});
}

/// A theme of one style file and one of its pictures.
void makeSmallTheme(const QString &theme)
{
    for (const QString &file : QStringList {"/style/choices.qss", "/images/check.png"}) {
        QVERIFY(QDir().mkpath(QFileInfo(theme + file).path()));
        QVERIFY(QFile::copy(VEMO_THEME_FOLDER + file, theme + file));
    }
    QFile catalogue(theme + "/images.json");
    QVERIFY(catalogue.open(QIODevice::WriteOnly));
    catalogue.write("{}");
}

/// A checked box styled by the small theme; its tick is a picture named in the style file.
QImage tickedBox(const QString &theme)
{
    const QTemporaryDir userData;
    TestHost::registerFolders(theme, userData.path());
    ImageManager::getInstance().initialize(ImageManager::LAZY_LOAD);
    StyleManager::getInstance().initialize({theme + "/style/choices.qss"});
    VemoCheckBox box("Ticked");
    box.setChecked(true);
    box.resize(box.sizeHint());
    return box.grab().toImage();
}

} // namespace

class ThemeFolderTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void aHostUsesAnEditedCopyOfTheFolder();
    void picturesOfStyleFilesAppearWhateverTheFolderIsCalled_data();
    void picturesOfStyleFilesAppearWhateverTheFolderIsCalled();
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

void ThemeFolderTest::picturesOfStyleFilesAppearWhateverTheFolderIsCalled_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<bool>("appears");
    QTest::newRow("apostrophe") << "it's" << true;
    QTest::newRow("per cent") << "100% mine %20" << true;
    QTest::newRow("brace") << "a}b{c" << true;
    QTest::newRow("bracket") << "a)b(c" << true;
    QTest::newRow("semicolon") << (kIsWindows ? "a;b" : "a;b:c") << true;
    QTest::newRow("blank") << " a  b" << true;
    QTest::newRow("letters of other scripts") << QString::fromUtf8("Größe 見る") << true;
    // A style sheet has no other way to write these, and the folder's name goes in as it is.
    if (!kIsWindows) // which has no such names
        QTest::newRow("double quote") << "a\"b" << false;
    QTest::newRow("backslash") << "a\\b" << false; // on Windows, a folder in a folder
}

void ThemeFolderTest::picturesOfStyleFilesAppearWhateverTheFolderIsCalled()
{
    QFETCH(QString, folder);
    QFETCH(bool, appears);
    const QTemporaryDir root;
    const QString plain = root.filePath("plain");
    const QString named = root.filePath(folder);
    makeSmallTheme(plain);
    makeSmallTheme(named);

    QCOMPARE(tickedBox(named) == tickedBox(plain), appears);
    QCOMPARE(messages.take().isEmpty(), !folder.contains('"')); // Qt takes the whole sheet back
}

VEMO_TEST_MAIN(ThemeFolderTest)
#include "tst_themefolder.moc"
