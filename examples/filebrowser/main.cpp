// SPDX-License-Identifier: MIT
#include "filewindow.h"
#include "look.h"
#include "options.h"
#include "screenshots.h"

#include <vemo/qtsingleapplication.h>

#include <QTextStream>

namespace {

constexpr int kUsageError = 2;
constexpr int kFailure = 1;

int fail(const QString &sentence, int exitCode)
{
    QTextStream(stderr) << "filebrowser: " << sentence << '\n';
    return exitCode;
}

/// Reads the command line under an application object of its own, one that needs no display.
CommandLine commandLine(int argc, char **argv)
{
    const QCoreApplication reader(argc, argv);
    return readCommandLine(QCoreApplication::arguments());
}

int run(QtSingleApplication &app, const Options &options)
{
    if (!startLook(options.userFolder, options.language, options.style))
        return fail(QString("Cannot write to the folder \"%1\"; choose another with --user-folder.")
                        .arg(options.userFolder),
            kFailure);
    if (!options.screenshots.isEmpty()) {
        const QString error = writeScreenshots(options);
        return error.isEmpty() ? 0 : fail(error, kFailure);
    }
    FileWindow window(options.folder);
    app.setActivationWindow(&window);
    QObject::connect(&app, &QtSingleApplication::messageReceived, &window, &FileWindow::openFolder);
    window.show();
    return QtSingleApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication::setApplicationName("filebrowser");
    const CommandLine line = commandLine(argc, argv);
    if (!line.error.isEmpty())
        return fail(line.error, kUsageError);
    if (!line.answer.isEmpty()) {
        QTextStream(stdout) << line.answer;
        return 0;
    }
    // Without it Qt draws icons at half their pixels where the screen has two to a point.
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    QtSingleApplication app(argc, argv);
    // Pictures are written whatever else runs; of the window there is one, which gets the folder.
    if (line.options.screenshots.isEmpty() && app.sendMessage(line.options.folder))
        return 0;
    return run(app, line.options);
}
