// SPDX-License-Identifier: MIT
#include "gallery/commandline.h"
#include "gallery/demotexts.h"
#include "gallery/gallerywindow.h"
#include "gallery/look.h"
#include "gallery/screenshots.h"

#include <vemo/defaulttheme.h>
#include <vemo/qtsingleapplication.h>
#include <vemo/vemolocale.h>

#include <QTextStream>

namespace {

constexpr int kUsageError = 2;
constexpr int kFailure = 1;
constexpr int kDesktopFontSize = 10; // points

int fail(const QString &sentence, int exitCode)
{
    QTextStream(stderr) << "vemo-gallery: " << sentence << '\n';
    return exitCode;
}

/// Reads the command line with a temporary application object that needs no display.
CommandLine commandLine(int argc, char **argv)
{
    const QCoreApplication reader(argc, argv);
    return readCommandLine(QCoreApplication::arguments());
}

/// Qt ends the process if it finds no display, so check first.
bool hasDisplay(const Options &options)
{
    return QSysInfo::kernelType() != "linux" || !options.platform.isEmpty()
        || qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || !qEnvironmentVariableIsEmpty("DISPLAY")
        || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

int runWindow(QtSingleApplication &app, const Options &options)
{
    GalleryWindow window(options);
    app.setActivationWindow(&window);
    window.show();
    return QApplication::exec();
}

void setLook(QApplication &app, const Options &options)
{
    if (options.style.isEmpty())
        applyDefaultThemeStyle(app);
    else
        QApplication::setPalette(defaultThemePalette());
    if (QGuiApplication::platformName() == "offscreen") {
        // Its default font is larger than that of any desktop.
        QFont font = QApplication::font();
        font.setPointSize(kDesktopFontSize);
        QApplication::setFont(font);
    }
}

int run(QtSingleApplication &app, const Options &options)
{
    showTheme(options.theme);
    if (!installDefaultTheme(options.userFolder, options.language, options.pictures))
        return fail(QString("Cannot write to the folder \"%1\"; choose another with --user-folder.")
                        .arg(options.userFolder),
            kFailure);
    setLook(app, options);
    installGalleryStyle();
    const bool isReversed = QGuiApplication::isRightToLeft();
    if (options.language != VemoLocale::getInstance().getDefaultLanguage())
        setDesktopLanguage(options.language);
    if (isReversed)
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    setDemoLanguage(options.language);
    if (options.screenshots.isEmpty())
        return runWindow(app, options);
    const QString error = writeScreenshots(options);
    return error.isEmpty() ? 0 : fail(error, kFailure);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication::setApplicationName("vemo-gallery");
    const CommandLine line = commandLine(argc, argv);
    if (!line.error.isEmpty())
        return fail(line.error, kUsageError);
    if (!line.answer.isEmpty()) {
        QTextStream(stdout) << line.answer;
        return 0;
    }
    if (!hasDisplay(line.options)) {
        if (line.options.screenshots.isEmpty())
            return fail("There is no display; --screenshots needs none.", kFailure);
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    // Otherwise Qt draws icons at half their resolution on screens with pixel ratio 2.
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    QtSingleApplication app(argc, argv);
    // Only the window is limited to one instance, not writing pictures.
    if (line.options.screenshots.isEmpty() && app.sendMessage(QString()))
        return 0;
    return run(app, line.options);
}
