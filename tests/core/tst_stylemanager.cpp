// SPDX-License-Identifier: MIT
#include <vemo/stylemanager.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/dpiinfo.h>

static_assert(std::is_copy_constructible_v<StyleManager>);
static_assert(std::is_copy_assignable_v<StyleManager>);
static_assert(!std::is_default_constructible_v<StyleManager>);

namespace {

/// Loads style files without an initialised picture catalogue; never returns.
int loadWithoutCatalogue(const QString &scenario)
{
    const bool isEmpty = scenario == QLatin1String("no files");
    StyleManager::getInstance().initialize(
        isEmpty ? std::vector<QString>() : std::vector<QString> {"no such file"});
    return 0;
}

} // namespace

class StyleManagerTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_host.start(ImageManager::LAZY_LOAD); }
    void thereIsOneInstance();
    void beforeTheCatalogueItEndsTheProcess_data();
    void beforeTheCatalogueItEndsTheProcess();
    void aSectionIsFoundByItsKey();
    void anUnknownKeyYieldsAnEmptySheetAndOneWarningACall_data();
    void anUnknownKeyYieldsAnEmptySheetAndOneWarningACall();
    void aMissingFileIsWarnedAboutAndPassedOver();
    void anEmptyListOfFilesChangesNothing();
    void theLaterFileWins();
    void aLaterCallAddsAndOverwrites();
    void aLeftOverCommentDoesNotReachIntoTheNextFile();
    void aSectionGoesOnInTheNextFile();
    void aHeaderBehindALineCommentIsSwallowed();
    void placeholdersBecomeTheFolders_data();
    void placeholdersBecomeTheFolders();
    void placeholdersAreReplacedBeforeCommentsAreRemoved();
    void placeholdersInKeysAreReplacedToo();
    void sectionsAreScaledUnlessAskedOtherwise();
    void theFreeFunctionsAnswerLikeTheManager();
    void an8BitKeyIsLatin1();

private:
    void load(const QByteArray &text) { load(QList<QByteArray> {text}); }
    void load(const QList<QByteArray> &texts);

    TestHost m_host;
};

void StyleManagerTest::load(const QList<QByteArray> &texts)
{
    std::vector<QString> paths;
    for (const QByteArray &text : texts)
        paths.push_back(m_host.writeFile(QString("%1.qss").arg(paths.size()), text));
    StyleManager::getInstance().initialize(paths);
}

void StyleManagerTest::thereIsOneInstance()
{
    QCOMPARE(&StyleManager::getInstance(), &StyleManager::getInstance());
}

void StyleManagerTest::beforeTheCatalogueItEndsTheProcess_data()
{
    QTest::addColumn<QString>("scenario");
    QTest::addColumn<bool>("warnsAboutTheFile");
    QTest::newRow("no files") << "no files" << false;
    QTest::newRow("a file") << "a file" << true;
}

void StyleManagerTest::beforeTheCatalogueItEndsTheProcess()
{
    QFETCH(QString, scenario);
    QFETCH(bool, warnsAboutTheFile);
    const ChildResult child = runChild(scenario);
    QCOMPARE(child.status, QProcess::CrashExit);
    QVERIFY(child.errorOutput.contains("debug.message.warning: ImageManager is not initialized\n"));
    QCOMPARE(child.errorOutput.contains("debug.message.warning: file \"no such file\" not exist\n"),
        warnsAboutTheFile);
}

void StyleManagerTest::aSectionIsFoundByItsKey()
{
    load("== component.apply_button ==\nQPushButton { color: white; }\n");
    QCOMPARE(getStyleSheet("component.apply_button"), QString("\nQPushButton { color: white; }\n"));
}

void StyleManagerTest::anUnknownKeyYieldsAnEmptySheetAndOneWarningACall_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("warning");
    addRow("plain", "no.such.key", "Cannot find stylesheet \"no.such.key\"");
    addRow("empty", "", "Cannot find stylesheet \"\"");
    addRow("Arabic", QString::fromUtf8("مفتاح"),
        QString::fromUtf8("Cannot find stylesheet \"مفتاح\""));
    addRow("a lone surrogate", QString(QChar(0xd8ff)), "Cannot find stylesheet \"\\uD8FF\"");
    addRow("NUL", QString(QChar(0)), "Cannot find stylesheet \"\\u0000\"");
}

void StyleManagerTest::anUnknownKeyYieldsAnEmptySheetAndOneWarningACall()
{
    QFETCH(QString, key);
    QFETCH(QString, warning);
    const StyleManager &manager = StyleManager::getInstance();
    QCOMPARE(manager.getStyleSheet(key, false), QString());
    QCOMPARE(messages.take(), QStringList(warning));
    QCOMPARE(manager.getStyleSheet(key, true), QString());
    QCOMPARE(messages.take(), QStringList(warning));
}

void StyleManagerTest::aMissingFileIsWarnedAboutAndPassedOver()
{
    const QString path = m_host.writeFile("there.qss", "==there==\nx");
    StyleManager::getInstance().initialize({"no/such/file.qss", path, ""});
    QCOMPARE(messages.take(),
        QStringList({"file \"no/such/file.qss\" not exist", "file \"\" not exist"}));
    QCOMPARE(getStyleSheet("there"), QString("\nx"));
}

void StyleManagerTest::anEmptyListOfFilesChangesNothing()
{
    load("==kept==\nx");
    StyleManager::getInstance().initialize({});
    QCOMPARE(getStyleSheet("kept"), QString("\nx"));
}

void StyleManagerTest::theLaterFileWins()
{
    load({"==component.menu==\nfirst\n==first==\n1", "==component.menu==\nsecond\n==second==\n2"});
    QCOMPARE(getStyleSheet("component.menu"), QString("\nsecond"));
    QCOMPARE(getStyleSheet("first"), QString("\n1"));
    QCOMPARE(getStyleSheet("second"), QString("\n2"));
}

void StyleManagerTest::aLaterCallAddsAndOverwrites()
{
    load("==one==\n1\n==two==\n2");
    load("==two==\nII\n==three==\nIII");
    QCOMPARE(getStyleSheet("one"), QString("\n1"));
    QCOMPARE(getStyleSheet("two"), QString("\nII"));
    QCOMPARE(getStyleSheet("three"), QString("\nIII"));
}

void StyleManagerTest::aLeftOverCommentDoesNotReachIntoTheNextFile()
{
    load({"==open==\nx /* y", "==next==\nz */\n"});
    QCOMPARE(getStyleSheet("open"), QString("\nx /* y"));
    QCOMPARE(getStyleSheet("next"), QString("\nz */\n"));
}

void StyleManagerTest::aSectionGoesOnInTheNextFile()
{
    load({"==long==\nx", "y\n==end==\n"});
    QCOMPARE(getStyleSheet("long"), QString("\nx\ny"));
    load({"==comment at the end==\nx //", "y"});
    QCOMPARE(getStyleSheet("commentattheend"), QString("\nx y"));
}

void StyleManagerTest::aHeaderBehindALineCommentIsSwallowed()
{
    load("==before==\nx // comment\n==swallowed==\ny\n==after==\nz");
    QCOMPARE(getStyleSheet("before"), QString("\nx ==swallowed==\ny"));
    QCOMPARE(getStyleSheet("after"), QString("\nz"));
    QCOMPARE(getStyleSheet("swallowed"), QString());
    QCOMPARE(messages.take(), QStringList("Cannot find stylesheet \"swallowed\""));
}

void StyleManagerTest::placeholdersBecomeTheFolders_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("result");
    addRow("picture", QByteArray("url(IMG_LOC/a.png)"), "url(%1/a.png)");
    addRow("temporary", QByteArray("url(TMPIMG_LOC/a.png)"), "url(%2/a.png)");
    addRow("both, twice", QByteArray("IMG_LOC TMPIMG_LOC IMG_LOC TMPIMG_LOC"), "%1 %2 %1 %2");
    addRow("inside a word", QByteArray("xTMPIMG_LOCxIMG_LOCx"), "x%2x%1x");
    addRow("case counts", QByteArray("img_loc Img_Loc TmpIMG_LOC"), "img_loc Img_Loc Tmp%1");
}

void StyleManagerTest::placeholdersBecomeTheFolders()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, result);
    load("==placeholders==\n" + text);
    const QString expected = '\n'
        + result.replace("%1", m_host.pictureFolder()).replace("%2", m_host.tempPictureFolder());
    QCOMPARE(StyleManager::getInstance().getStyleSheet("placeholders", true), expected);
}

void StyleManagerTest::placeholdersAreReplacedBeforeCommentsAreRemoved()
{
    TestHost::registerFolders(m_host.resourcePath() + '/', m_host.userDataPath());
    ImageManager::getInstance().initialize(ImageManager::LAZY_LOAD);
    load("==slash==\nurl(IMG_LOC/a.png)\nx");
    QCOMPARE(StyleManager::getInstance().getStyleSheet("slash", true),
        "\nurl(" + m_host.resourcePath() + "x");
    m_host.start(ImageManager::LAZY_LOAD);
}

void StyleManagerTest::placeholdersInKeysAreReplacedToo()
{
    load("==IMG_LOC==\nx");
    QCOMPARE(getStyleSheet(m_host.pictureFolder()), QString("\nx"));
}

void StyleManagerTest::sectionsAreScaledUnlessAskedOtherwise()
{
    load("==lengths==\nmargin: 10px 3px; font: 10pt; width: 50%");
    const QMap<double, QString> margins {{1, "10px 3px"}, {1.25, "12px 3px"}, {1.5, "15px 4px"}};
    const QString scaled =
        "\nmargin: " + margins.value(DPIinfo::getInstance().getDPI()) + "; font: 10pt; width: 50%";
    const StyleManager &manager = StyleManager::getInstance();
    QCOMPARE(manager.getStyleSheet("lengths", false), scaled);
    QCOMPARE(manager.getStyleSheet("lengths"), scaled);
    QCOMPARE(manager.getStyleSheet("lengths", true),
        QString("\nmargin: 10px 3px; font: 10pt; width: 50%"));
}

void StyleManagerTest::theFreeFunctionsAnswerLikeTheManager()
{
    load("==free==\n10px");
    const StyleManager &manager = StyleManager::getInstance();
    for (const bool unscaled : {false, true}) {
        QCOMPARE(getStyleSheet("free", unscaled), manager.getStyleSheet("free", unscaled));
        QCOMPARE(getStyleSheet(QString("free"), unscaled), getStyleSheet("free", unscaled));
    }
    QCOMPARE(getStyleSheet(QString("free")), manager.getStyleSheet("free", false));
    QCOMPARE(getStyleSheet(static_cast<const char *>(nullptr)), QString());
    QCOMPARE(messages.take(), QStringList("Cannot find stylesheet \"\""));
}

void StyleManagerTest::an8BitKeyIsLatin1()
{
    load("==gr\xc3\xbcn==\nx");
    QCOMPARE(getStyleSheet("gr\xfcn"), QString("\nx"));
    QCOMPARE(getStyleSheet("gr\xc3\xbcn"), QString());
    QCOMPARE(messages.take(), QStringList(QString::fromUtf8("Cannot find stylesheet \"grÃ¼n\"")));
}

VEMO_TEST_MAIN_WITH_CHILD(StyleManagerTest, loadWithoutCatalogue)
#include "tst_stylemanager.moc"
