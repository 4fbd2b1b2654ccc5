// SPDX-License-Identifier: MIT
// A single-instance program that restarts itself, as after an update.
#include "restartwindow.h"

#include <vemo/DefaultTheme>
#include <vemo/QtSingleApplication>

int main(int argc, char **argv)
{
    QCoreApplication::setApplicationName("vemo-restart-example");
    QtSingleApplication app(argc, argv);
    if (app.sendMessage(QCoreApplication::arguments().mid(1).join(' ')))
        return 0;

    if (!installDefaultTheme())
        return 1;
    RestartWindow window(&app);
    app.setActivationWindow(&window);
    window.show();
    return QtSingleApplication::exec();
}
