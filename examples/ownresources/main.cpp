// SPDX-License-Identifier: MIT
// A host with its own folder of styles, pictures and strings.
//
//     ownresources-example [LANGUAGE [PICTURE]]    LANGUAGE is enu or deu; with a file name, writes
//                                                  a picture of the window and its sheet, and ends
#include "startup.h"
#include "teawindow.h"

#include <vemo/VemoLocale>

#include <QApplication>
#include <QStandardPaths>

int main(int argc, char **argv)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    QApplication app(argc, argv);
    QApplication::setApplicationName("vemo-ownresources-example");
    const QStringList arguments = QApplication::arguments();
    const QString resources = QApplication::applicationDirPath() + "/resources";
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    if (!startUp(
            resources, cache, arguments.value(1, VemoLocale::getInstance().getDefaultLanguage()))) {
        qWarning("Cannot read the strings in %s", qPrintable(resources));
        return 1;
    }

    TeaWindow window;
    window.show();
    if (arguments.size() > 2) {
        window.slotBrew();
        return window.grab().save(arguments.at(2)) ? 0 : 1;
    }
    return QApplication::exec();
}
