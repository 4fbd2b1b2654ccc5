// SPDX-License-Identifier: MIT
// The gallery as a user starts it.
#include "support/iswindows.h"
#include "support/vemotest.h"

#include "gallery/pagelist.h"
#include "gallery/screenshots.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>

namespace {

constexpr int kPatience = 90000; // milliseconds, on a busy machine
constexpr int kWidth = 1000; // of a picture at least, in design pixels

struct Run
{
    int exitCode = -1;
    QString output;
    QString errors;
};

/// A program's output with line breaks as on Linux.
QString textOf(QByteArray output)
{
    return QString::fromUtf8(output.replace("\r\n", "\n"));
}

Run runGallery(const QStringList &arguments,
    const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment())
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(VEMO_GALLERY_PROGRAM, arguments);
    if (!process.waitForFinished(kPatience) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), textOf(process.readAllStandardOutput()),
        textOf(process.readAllStandardError())};
}

QProcessEnvironment withoutDisplay()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        environment.remove(name);
    return environment;
}

/// Messages of the platform plug-in do not count as warnings of the gallery.
QString withoutPlatformTalk(const QString &errors)
{
    QStringList lines = errors.split('\n', Qt::SkipEmptyParts);
    for (const char *talk : {"This plugin does not support", "XDG_RUNTIME_DIR"})
        lines = lines.filter(QRegularExpression(QString("^(?!.*%1)").arg(talk)));
    return lines.join('\n');
}

/// Text and pictures make many shades; an empty window has a few.
bool isBlank(const QImage &image)
{
    constexpr int kFewColours = 50;
    QSet<QRgb> colours;
    for (int y = 0; y < image.height() && colours.size() <= kFewColours; ++y) {
        for (int x = 1; x < image.width(); ++x) {
            if (image.pixel(x, y) != image.pixel(x - 1, y))
                colours.insert(image.pixel(x, y));
        }
    }
    return colours.size() <= kFewColours;
}

} // namespace

class GalleryProgramTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void writesOnePictureForEachPage_data();
    void writesOnePictureForEachPage();
    void writesTheChosenPageAlone_data();
    void writesTheChosenPageAlone();
    void optionsDecideOnTheDirection_data();
    void optionsDecideOnTheDirection();
    void screenshotsNeedNoDisplay();
    void withoutADisplayTheWindowIsRefused();
    void listIsPrintedWithoutADisplay();
    void aFailureIsReportedOnStandardError_data();
    void aFailureIsReportedOnStandardError();

private:
    QTemporaryDir m_folder;
    QString m_userFolder = m_folder.filePath("user");
    QString m_file = m_folder.filePath("file");
};

void GalleryProgramTest::writesOnePictureForEachPage_data()
{
    QTest::addColumn<QStringList>("options");
    addRow("default", QStringList());
    addRow("from right to left", QStringList {"--language", "ara"});
}

void GalleryProgramTest::writesOnePictureForEachPage()
{
    QFETCH(QStringList, options);
    const QTemporaryDir folder;
    const Run run = runGallery(options
        + QStringList {"--screenshots", folder.filePath("a/b"), "--user-folder", m_userFolder});
    QCOMPARE(withoutPlatformTalk(run.errors), QString());
    QCOMPARE(run.exitCode, 0);

    const QDir pictures(folder.filePath("a/b"));
    QStringList paths;
    for (const QString &title : pageTitles()) {
        paths << pictures.filePath(screenshotName(title));
        const QImage picture(paths.last());
        QVERIFY2(!isBlank(picture), qPrintable(title));
        QVERIFY(picture.width() >= kWidth);
    }
    QCOMPARE(run.output, QDir::toNativeSeparators(paths.join('\n')) + '\n');
    QCOMPARE(pictures.entryList(QDir::Files).size(), pageTitles().size());
}

void GalleryProgramTest::writesTheChosenPageAlone_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<int>("dpi");
    QTest::addColumn<int>("ratio");
    addRow("pictures loaded when needed", "--lazy", 96, 1);
    addRow("pictures loaded at the start", "--preload", 96, 1);
    addRow("144 dpi", "--lazy", 144, 1);
    addRow("pixel ratio 2", "--lazy", 96, 2);
}

void GalleryProgramTest::writesTheChosenPageAlone()
{
    QFETCH(QString, mode);
    QFETCH(int, dpi);
    QFETCH(int, ratio);
    const QTemporaryDir folder;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_FONT_DPI", QString::number(dpi));
    environment.insert("QT_SCALE_FACTOR", QString::number(ratio));
    const Run run = runGallery(
        {mode, "--screenshots", folder.path(), "--page", "buttons", "--user-folder", m_userFolder},
        environment);
    QCOMPARE(withoutPlatformTalk(run.errors), QString());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList("buttons.png"));
    const QImage picture(folder.filePath("buttons.png"));
    QVERIFY(!isBlank(picture));
    QVERIFY(picture.width() >= kWidth * ratio * dpi / 96);
}

void GalleryProgramTest::optionsDecideOnTheDirection_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<bool>("isFromRightToLeft");
    QTest::newRow("none") << QStringList() << false;
    QTest::newRow("German") << QStringList {"--language", "deu"} << false;
    QTest::newRow("Arabic") << QStringList {"--language", "ara"} << true;
    QTest::newRow("Hebrew") << QStringList {"--language", "heb"} << true;
    QTest::newRow("reversed") << QStringList("-reverse") << true;
    QTest::newRow("German, reversed") << QStringList {"--language", "deu", "-reverse"} << true;
    QTest::newRow("Arabic, reversed") << QStringList {"--language", "ara", "-reverse"} << true;
    QTest::newRow("another style, reversed")
        << QStringList {"-style", "windows", "-reverse"} << true;
}

// The list of pages stands on a white ground, the page itself on a grey one.
void GalleryProgramTest::optionsDecideOnTheDirection()
{
    QFETCH(QStringList, options);
    QFETCH(bool, isFromRightToLeft);
    const QTemporaryDir folder;
    const Run run = runGallery(options
            + QStringList {"-platform", "offscreen", "--screenshots", folder.path(), "--page",
                "buttons", "--user-folder", m_userFolder},
        withoutDisplay());
    QCOMPARE(withoutPlatformTalk(run.errors), QString());
    QCOMPARE(run.exitCode, 0);
    const QImage picture(folder.filePath("buttons.png"));
    constexpr int kInset = 10; // past the lines at the edges
    const int bottom = picture.height() - kInset;
    const QColor left = picture.pixelColor(kInset, bottom);
    const QColor right = picture.pixelColor(picture.width() - kInset, bottom);
    QCOMPARE(left == Qt::white, !isFromRightToLeft);
    QCOMPARE(right == Qt::white, isFromRightToLeft);
}

void GalleryProgramTest::screenshotsNeedNoDisplay()
{
    const QTemporaryDir folder;
    const Run run = runGallery(
        {"--screenshots", folder.path(), "--page", "buttons", "--user-folder", m_userFolder},
        withoutDisplay());
    QCOMPARE(run.exitCode, 0);
}

void GalleryProgramTest::withoutADisplayTheWindowIsRefused()
{
    if (kIsWindows)
        QSKIP("Windows always has a display.");
    const Run run = runGallery({}, withoutDisplay());
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.errors, QString("vemo-gallery: There is no display; --screenshots needs none.\n"));
}

void GalleryProgramTest::listIsPrintedWithoutADisplay()
{
    const Run run = runGallery({"--list"}, withoutDisplay());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, pageTitles().join('\n') + '\n');
    QCOMPARE(run.errors, QString());
}

void GalleryProgramTest::aFailureIsReportedOnStandardError_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("sentence");
    // A folder below a file can't be made, not even by root.
    QFile file(m_file);
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QString impossible = m_file + "/folder";
    addRow("unknown option", QStringList("--bogus"), 2, "Unknown option 'bogus'.");
    addRow("both modes", QStringList {"--lazy", "--preload"}, 2,
        "Choose one of --lazy and --preload.");
    addRow("unknown page", QStringList {"--page", "No"}, 2, "Unknown page \"No\"");
    addRow("user folder", QStringList {"--user-folder", impossible}, 1,
        QString("Cannot write to the folder \"%1\"").arg(impossible));
    addRow("screenshot folder",
        QStringList {"--screenshots", impossible, "--user-folder", m_userFolder}, 1,
        QString("Cannot make the folder \"%1\".").arg(impossible));
    QVERIFY(QDir(m_folder.path()).mkpath("taken/resources.png"));
    addRow("screenshot file",
        QStringList {"--screenshots", m_folder.filePath("taken"), "--user-folder", m_userFolder}, 1,
        QString("Cannot write the file \"%1").arg(m_folder.filePath("taken/resources.png")));
}

void GalleryProgramTest::aFailureIsReportedOnStandardError()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QFETCH(QString, sentence);
    const Run run = runGallery(arguments);
    QCOMPARE(run.exitCode, exitCode);
    QVERIFY2(run.errors.contains("vemo-gallery: " + sentence), qPrintable(run.errors));
    QCOMPARE(run.output, QString());
}

VEMO_TEST_MAIN(GalleryProgramTest)
#include "tst_galleryprogram.moc"
