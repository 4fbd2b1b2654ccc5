// SPDX-License-Identifier: MIT
#include <vemo/componentstrings.h>
#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <QDirIterator>
#include <QRegularExpression>

namespace {

QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// What the first group of pattern captures in text, all over it.
QStringList captures(const QString &text, const QString &pattern)
{
    QStringList found;
    auto match = QRegularExpression(pattern).globalMatch(text);
    while (match.hasNext())
        found += match.next().captured(1);
    return found;
}

/// Each distinct capture in the library's own source files.
QStringList sourceCaptures(const QString &pattern)
{
    const QStringList folders {
        "core", "controls", "sheets", "views", "datetime", "help", "gallery"};
    QStringList names;
    for (const QString &folder : folders) {
        QDirIterator files(QLatin1String(VEMO_SOURCE_DIR "/") + folder, {"*.cpp", "*.h"},
            QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            names += captures(textOf(files.next()), pattern);
        }
    }
    names.removeDuplicates();
    return names;
}

QStringList themeFiles(const QString &folder, const QString &filter)
{
    return QDir(":/vemo/theme/" + folder).entryList({filter}, QDir::Files, QDir::Name);
}

QStringList paletteColours()
{
    QStringList colours;
    const QString palette = textOf(QLatin1String(VEMO_SOURCE_DIR "/theme/palette.json"));
    for (const QJsonValue &colour : QJsonDocument::fromJson(palette.toUtf8()).object())
        colours += colour.toString();
    return colours;
}

} // namespace

class ThemeTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void everyStyleKeyOfTheLibraryHasASection();
    void everyStringKeyOfTheLibraryHasAText();
    void everyPictureOfTheLibraryIsInTheCatalogue();
    void everyPictureThatAStyleFileNamesExists();
    void everyCatalogueNameHasItsPicture();
    void everyTemporaryPictureIsWritten();
    void theColoursAreInThePaletteAlone_data();
    void theColoursAreInThePaletteAlone();
    void whatIsEmbeddedHasColoursForTheirNames_data();
    void whatIsEmbeddedHasColoursForTheirNames();
    void everyLengthSurvivesScalingOnce_data();
    void everyLengthSurvivesScalingOnce();
};

void ThemeTest::everyStyleKeyOfTheLibraryHasASection()
{
    for (const QString &key : sourceCaptures(R"re("(component\.\w+)")re"))
        QVERIFY2(!getStyleSheet(key).trimmed().isEmpty(), qPrintable(key));
}

void ThemeTest::everyStringKeyOfTheLibraryHasAText()
{
    constexpr const char *pattern =
        R"re((?:getString|stringOf)\(\s*(?:QStringLiteral\(|QLatin1String\()?"([^"]+)")re";
    for (const QString &key : sourceCaptures(pattern))
        QVERIFY2(!ComponentStrings::getInstance().getString(key).isEmpty(), qPrintable(key));
}

void ThemeTest::everyPictureOfTheLibraryIsInTheCatalogue()
{
    for (const QString &name : sourceCaptures(R"re("((?:bt_|bg_|icon_|app_)\w+|folder)")re"))
        QVERIFY2(!getGlobalImage(name).isNull(), qPrintable(name));
}

void ThemeTest::everyPictureThatAStyleFileNamesExists()
{
    for (const QString &file : themeFiles("style", "*.qss")) {
        QString text = textOf(":/vemo/theme/style/" + file);
        text.replace("TMPIMG_LOC", ImageManager::getInstance().getTempImageFolder());
        text.replace("IMG_LOC", ImageManager::getInstance().getImageFolder());
        for (const QString &path : captures(text, R"re(url\(["']?([^)"']*))re"))
            QVERIFY2(!QPixmap(path).isNull(), qPrintable(file + " names " + path));
    }
}

void ThemeTest::everyCatalogueNameHasItsPicture()
{
    const QString catalogue = textOf(":/vemo/theme/images.json");
    const QJsonObject object = QJsonDocument::fromJson(catalogue.toUtf8()).object();
    QVERIFY(!object["images"].toArray().isEmpty());
    for (const QJsonValue &name : object["images"].toArray())
        QVERIFY2(!getGlobalImage(name.toString()).isNull(), qPrintable(name.toString()));
}

void ThemeTest::everyTemporaryPictureIsWritten()
{
    const QString catalogue = textOf(":/vemo/theme/images.json");
    const QJsonObject object = QJsonDocument::fromJson(catalogue.toUtf8()).object();
    for (const QJsonValue &name : object["tmp_images"].toArray()) {
        const QString path =
            QStringLiteral("%1/tmp_%2.png")
                .arg(ImageManager::getInstance().getTempImageFolder(), name.toString());
        QVERIFY2(!QPixmap(path).isNull(), qPrintable(path));
    }
}

void ThemeTest::theColoursAreInThePaletteAlone_data()
{
    QTest::addColumn<QString>("path");
    for (const char *folder :
        {"theme/style", "theme/style-dark", "theme/images", "theme/images-dark", "designer/icons",
            "theme", "gallery", "gallery/pages", "examples/filebrowser"}) {
        const QDir sources(QLatin1String(VEMO_SOURCE_DIR "/") + folder);
        for (const QString &file : sources.entryList({"*.qss", "*.svg", "*.cpp"}, QDir::Files))
            QTest::addRow("%s/%s", folder, qPrintable(file)) << sources.filePath(file);
    }
}

void ThemeTest::theColoursAreInThePaletteAlone()
{
    QFETCH(QString, path);
    const QString text = textOf(path);
    QVERIFY(!text.isEmpty());
    QCOMPARE(captures(text, "(#[0-9A-Fa-f]{6})\\b"), QStringList());
    const QStringList palette = paletteColours();
    for (const QString &number : captures(text, "\\b0x([0-9A-Fa-f]{6})\\b"))
        QVERIFY2(!palette.contains('#' + number.toUpper()), qPrintable(number));
}

void ThemeTest::whatIsEmbeddedHasColoursForTheirNames_data()
{
    QTest::addColumn<QString>("file");
    for (const QString &file : themeFiles("style", "*.qss"))
        QTest::newRow(qPrintable(file)) << file;
}

void ThemeTest::whatIsEmbeddedHasColoursForTheirNames()
{
    QFETCH(QString, file);
    const QString text = textOf(":/vemo/theme/style/" + file);
    QVERIFY(!text.contains('@'));
    const QStringList palette = paletteColours();
    const QStringList colours = captures(text, "(#[0-9A-Fa-f]{3,8})\\b");
    QVERIFY(!colours.isEmpty());
    for (const QString &colour : colours)
        QVERIFY2(palette.contains(colour), qPrintable(colour));
}

void ThemeTest::everyLengthSurvivesScalingOnce_data()
{
    QTest::addColumn<QString>("length");
    for (const QString &file : themeFiles("style", "*.qss")) {
        for (const QString &length : captures(textOf(":/vemo/theme/style/" + file), "([\\d.]+)px"))
            QTest::addRow("%s %spx", qPrintable(file), qPrintable(length)) << length;
    }
}

// A longer one would be read a second time by its tail.
void ThemeTest::everyLengthSurvivesScalingOnce()
{
    QFETCH(QString, length);
    QVERIFY(length.size() <= 3);
    QVERIFY(!length.contains('.'));
}

VEMO_TEST_MAIN(ThemeTest)
#include "tst_theme.moc"
