// SPDX-License-Identifier: MIT
#include <vemo/defaulttheme.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/componentstrings.h>
#include <vemo/stylemanager.h>
#include <vemo/uipathmanager.h>
#include <vemo/vemobutton.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMovie>
#include <QStandardPaths>
#include <QStyle>
#include <QTemporaryDir>

#include <optional>

namespace {

/// Installs the theme as described by the scenario and prints the results for the parent.
int installAndReport(const QString &scenario)
{
    const QTemporaryDir folder;
    const QStringList parts = scenario.split('|'); // language, then the user data folder below
    const auto mode = parts.value(2) == "preload" ? ImageManager::PRELOAD : ImageManager::LAZY_LOAD;
    const bool isDone = installDefaultTheme(folder.path() + parts.value(1), parts[0], mode);
    const QString report = QString("<%1|%2|%3|%4>")
                               .arg(isDone)
                               .arg(UIPathManager::getInstance().getPath("resource_path"))
                               .arg(QDir(folder.path() + "/data/tmp_images").exists())
                               .arg(ComponentStrings::getInstance().getString("no.such.key"));
    std::fputs(qPrintable(report), stderr);
    return 0;
}

/// A key and text of the English table, read as a plain file.
QPair<QString, QString> anEnglishText()
{
    QFile file(":/vemo/theme/strings/enu.json");
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QJsonObject table = QJsonDocument::fromJson(file.readAll()).object();
    return {table.begin().key(), table.begin().value().toString()};
}

} // namespace

Q_DECLARE_METATYPE(std::optional<DefaultThemeMode>)

class DefaultThemeTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void aFolderThatCannotBeWrittenIsRefused_data();
    void aFolderThatCannotBeWrittenIsRefused();
    void refusedItRegistersNothing();
    void aMissingFolderIsMade();
    void oneCallStartsEverythingFromResources_data();
    void oneCallStartsEverythingFromResources();
    void anUnknownLanguageIsShownInEnglish_data();
    void anUnknownLanguageIsShownInEnglish();
    void theLookIsChosen_data();
    void theLookIsChosen();
    void aColourIsGivenByItsName();
    void aTextGetsColoursForTheirNames_data();
    void aTextGetsColoursForTheirNames();
    void anUnknownColourIsWarnedAbout();
    void optionsHaveDefaultsForEverything();
    void applicationLookIsChosen_data();
    void applicationLookIsChosen();
    void ownResourcesLieBesideTheTheme_data();
    void ownResourcesLieBesideTheTheme();
    void aSecondCallForAnotherLanguageWarnsOfNothing();
    void busyAnimationCanBeRead();

private:
    QTemporaryDir m_folder;
};

void DefaultThemeTest::aFolderThatCannotBeWrittenIsRefused_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("none") << "";
    QTest::newRow("a resource") << ":/vemo/theme";
    QTest::newRow("a file in its place") << m_folder.path() + "/file";
    QTest::newRow("below a file") << m_folder.path() + "/file/data";
    QTest::newRow("where nobody can write") << "/proc/vemo";
}

void DefaultThemeTest::aFolderThatCannotBeWrittenIsRefused()
{
    QFETCH(QString, folder);
    QFile file(m_folder.path() + "/file");
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(!installDefaultTheme(folder, "enu", ImageManager::LAZY_LOAD));
    QCOMPARE(messages.take(), QStringList("Cannot write to user data folder \"" + folder + '"'));
}

void DefaultThemeTest::refusedItRegistersNothing()
{
    // A name longer than any file system takes.
    const ChildResult child = runChild("enu|/" + QString(300, 'x') + '|');
    QVERIFY2(child.errorOutput.contains("<0||0|no.such.key>"), qPrintable(child.errorOutput));
    QVERIFY(child.errorOutput.contains(
        "debug.message.warning: Cannot find path by key \"resource_path\"\n"));
}

void DefaultThemeTest::aMissingFolderIsMade()
{
    const ChildResult child = runChild("enu|/data|lazy");
    QVERIFY2(child.errorOutput.contains("<1|:/vemo/theme|1|no.such.key>"),
        qPrintable(child.errorOutput));
}

void DefaultThemeTest::oneCallStartsEverythingFromResources_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("preloaded") << int(ImageManager::PRELOAD);
    QTest::newRow("lazy") << int(ImageManager::LAZY_LOAD);
}

void DefaultThemeTest::oneCallStartsEverythingFromResources()
{
    QFETCH(int, mode);
    const auto type = static_cast<ImageManager::InitializeType>(mode);
    QVERIFY(installDefaultTheme(m_folder.path(), "enu", type));
    const UIPathManager &paths = UIPathManager::getInstance();
    QCOMPARE(paths.getPath("resource_path"), QString(":/vemo/theme"));
    QCOMPARE(paths.getPath("user_data_path"), m_folder.path());
    QCOMPARE(ImageManager::getInstance().getImageFolder(), QString(":/vemo/theme/images"));
    QVERIFY(!getGlobalImage("folder").isNull());
    QVERIFY(getStyleSheet("component.apply_button").contains("QPushButton"));
    const auto [key, text] = anEnglishText();
    QVERIFY(!key.isEmpty());
    QCOMPARE(ComponentStrings::getInstance().getString(key), text);
}

void DefaultThemeTest::anUnknownLanguageIsShownInEnglish_data()
{
    QTest::addColumn<QString>("code");
    for (const char *code : {"xyz", "", "ENU", "../nothing", "enu.json"})
        QTest::newRow(code) << code;
    QTest::newRow("any text") << QString::fromUtf8("中文😀");
}

void DefaultThemeTest::anUnknownLanguageIsShownInEnglish()
{
    QFETCH(QString, code);
    QVERIFY(installDefaultTheme(m_folder.path(), code, ImageManager::LAZY_LOAD));
    const QString warning = "No strings for language \"" + code + '"';
    QCOMPARE(messages.take().filter("language"), QStringList(warning));
    const auto [key, text] = anEnglishText();
    QCOMPARE(ComponentStrings::getInstance().getString(key), text);
}

void DefaultThemeTest::theLookIsChosen_data()
{
    QTest::addColumn<std::optional<DefaultThemeMode>>("first");
    QTest::addColumn<std::optional<DefaultThemeMode>>("second");
    QTest::addColumn<bool>("isDark");
    using Mode = std::optional<DefaultThemeMode>;
    const Mode light = DefaultThemeMode::Light;
    const Mode dark = DefaultThemeMode::Dark;
    QTest::newRow("light at first") << light << Mode() << false;
    QTest::newRow("dark") << dark << dark << true;
    QTest::newRow("dark later") << light << dark << true;
    QTest::newRow("light again") << dark << light << false;
    QTest::newRow("as it was") << dark << Mode() << true;
    QTest::newRow("the desktop's") << dark << Mode(DefaultThemeMode::System) << false;
}

void DefaultThemeTest::theLookIsChosen()
{
    QFETCH(const std::optional<DefaultThemeMode>, first);
    QFETCH(const std::optional<DefaultThemeMode>, second);
    QFETCH(const bool, isDark);
    DefaultThemeOptions options;
    options.userDataPath = m_folder.path();
    options.mode = first;
    QVERIFY(installDefaultTheme(options));
    const VemoButton button("Old", VemoButton::CANCEL);
    options.mode = second;
    QVERIFY(installDefaultTheme(options));
    QCOMPARE(isDefaultThemeDark(), isDark);
    QCOMPARE(defaultThemeMode(), second ? *second : *first);
    const QString surface = isDark ? "#1B222A" : "#FFFFFF";
    QVERIFY(button.styleSheet().contains(surface));
    QVERIFY(VemoButton("New", VemoButton::CANCEL).styleSheet().contains(surface));
    QCOMPARE(QApplication::palette().color(QPalette::Base), QColor(surface));
    setDefaultThemeMode(DefaultThemeMode::Light);
    qApp->setStyleSheet(QString());
}

void DefaultThemeTest::aColourIsGivenByItsName()
{
    QCOMPARE(defaultThemeColor("accent-hover"), QColor(0x0F57C2));
    QCOMPARE(defaultThemePalette().color(QPalette::Highlight), defaultThemeColor("accent"));
}

void DefaultThemeTest::aTextGetsColoursForTheirNames_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    addRow("empty", "", "");
    addRow("no name", "QLabel { color: red; }", "QLabel { color: red; }");
    addRow("one", "a @ink@ b", "a #1f2933 b");
    addRow("some", "@line@@accent-hover@;", "#c8d2dc#0f57c2;");
    addRow("no names", "a@b, x@2x.png, @ ink @, @INK@", "a@b, x@2x.png, @ ink @, @INK@");
}

void DefaultThemeTest::aTextGetsColoursForTheirNames()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(withDefaultThemeColors(text), expected);
}

void DefaultThemeTest::anUnknownColourIsWarnedAbout()
{
    QVERIFY(!defaultThemeColor("glow").isValid());
    QCOMPARE(messages.take(), QStringList("No colour of the theme is called \"glow\""));
    withDefaultThemeColors("color: @glow@;");
    QCOMPARE(messages.take(), QStringList("No colour of the theme is called \"glow\""));
}

void DefaultThemeTest::optionsHaveDefaultsForEverything()
{
    QStandardPaths::setTestModeEnabled(true);
    QVERIFY(installDefaultTheme());
    QCOMPARE(UIPathManager::getInstance().getPath("user_data_path"),
        QStandardPaths::writableLocation(QStandardPaths::CacheLocation));
    QCOMPARE(ComponentStrings::getInstance().getString("cancel"), QString("Cancel"));
    QCOMPARE(qApp->palette(), defaultThemePalette());
    QCOMPARE(qApp->styleSheet(), getStyleSheet("application"));
}

void DefaultThemeTest::applicationLookIsChosen_data()
{
    QTest::addColumn<bool>("setsPalette");
    QTest::addColumn<bool>("stylesStockWidgets");
    QTest::newRow("nothing") << false << false;
    QTest::newRow("palette") << true << false;
    QTest::newRow("stock widgets") << false << true;
    QTest::newRow("both") << true << true;
}

void DefaultThemeTest::applicationLookIsChosen()
{
    QFETCH(const bool, setsPalette);
    QFETCH(const bool, stylesStockWidgets);
    qApp->setStyleSheet(QString());
    QApplication::setStyle("windows");
    const QPalette before(Qt::darkGreen);
    QApplication::setPalette(before);
    DefaultThemeOptions options;
    options.userDataPath = m_folder.path();
    options.setsPalette = setsPalette;
    options.stylesStockWidgets = stylesStockWidgets;
    QVERIFY(installDefaultTheme(options));
    const QColor ground = QApplication::palette().color(QPalette::Window);
    QCOMPARE(ground, setsPalette ? defaultThemeColor("canvas") : before.color(QPalette::Window));
    QCOMPARE(qApp->styleSheet().isEmpty(), !stylesStockWidgets);
    qApp->setStyleSheet(QString());
    QCOMPARE(QApplication::style()->objectName(),
        QString(setsPalette || stylesStockWidgets ? "fusion" : "windows"));
}

void DefaultThemeTest::ownResourcesLieBesideTheTheme_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("title");
    for (const auto mode : {ImageManager::PRELOAD, ImageManager::LAZY_LOAD}) {
        const QByteArray suffix = ", mode " + QByteArray::number(mode);
        addRow("German" + suffix, int(mode), "deu", "Tee");
        addRow("a language that it lacks" + suffix, int(mode), "fra", "Tea");
    }
}

void DefaultThemeTest::ownResourcesLieBesideTheTheme()
{
    QFETCH(const int, mode);
    QFETCH(const QString, language);
    QFETCH(const QString, title);
    const TestHost own;
    own.addPicture("cup", {64, 64}, Qt::red);
    own.addPicture("folder", {64, 64}, Qt::green);
    own.writeCatalogue({"cup", "folder"});
    own.writeFile("strings/enu.json", R"({"tea.title": "Tea", "ok": "Fine", "both": "file"})");
    own.writeFile("strings/deu.json", R"({"tea.title": "Tee"})");
    own.writeFile("style/tea.qss", "== tea.window ==\na\n== component.label ==\nb\n");
    DefaultThemeOptions options;
    options.userDataPath = m_folder.path();
    options.languageCode = language;
    options.pictureLoading = ImageManager::InitializeType(mode);
    options.resourceFolders = QStringList {own.resourcePath(), m_folder.path() + "/none"};
    options.strings = {{"both", "table"}};
    QVERIFY(installDefaultTheme(options));

    QCOMPARE(getGlobalImage("cup").toImage().pixelColor(8, 8), QColor(Qt::red));
    QCOMPARE(getGlobalImage("folder").toImage().pixelColor(8, 8), QColor(Qt::green));
    QVERIFY(!getGlobalImage("icon_warning").isNull());
    const ComponentStrings &texts = ComponentStrings::getInstance();
    QCOMPARE(texts.getString("tea.title"), title);
    QCOMPARE(texts.getString("both"), QString("table"));
    QVERIFY(texts.getString("cancel") != "cancel");
    QCOMPARE(getStyleSheet("tea.window").trimmed(), QString("a"));
    QCOMPARE(getStyleSheet("component.label").trimmed(), QString("b"));
    QVERIFY(getStyleSheet("component.apply_button").contains("QPushButton"));
}

void DefaultThemeTest::aSecondCallForAnotherLanguageWarnsOfNothing()
{
    DefaultThemeOptions options;
    options.userDataPath = m_folder.path();
    for (const char *code : {"enu", "deu"}) {
        options.languageCode = code;
        QVERIFY(installDefaultTheme(options));
        QVERIFY(installDefaultTheme(m_folder.path(), code, ImageManager::LAZY_LOAD));
    }
    QCOMPARE(messages.take(), QStringList());
    QCOMPARE(ComponentStrings::getInstance().getString("cancel"), QString("Abbrechen"));
}

void DefaultThemeTest::busyAnimationCanBeRead()
{
    QVERIFY(installDefaultTheme(m_folder.path(), "enu", ImageManager::LAZY_LOAD));
    QVERIFY(QMovie(defaultThemeBusyAnimation()).isValid());
}

VEMO_TEST_MAIN_WITH_CHILD(DefaultThemeTest, installAndReport)
#include "tst_defaulttheme.moc"
