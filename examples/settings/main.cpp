// SPDX-License-Identifier: MIT
// The settings of a backup utility: widgets of the library and of Qt in one window, in one look.
//
//     settings-example [--plain] [--dark] [--schedule] [PICTURE]
//
// --plain leaves Qt's widgets as they are, --dark shows the dark look, --schedule the second page;
// with a file name, it writes a picture of its window and ends.
#include "settingswindow.h"

#include <vemo/DefaultTheme>

#include <QApplication>
#include <QFont>

namespace {

constexpr int kFontSize = 10; // points; the offscreen platform has a larger one than any desktop

void useDesktopFont()
{
    if (QGuiApplication::platformName() != "offscreen")
        return;
    QFont font = QApplication::font();
    font.setPointSize(kFontSize);
    QApplication::setFont(font);
}

} // namespace

int main(int argc, char **argv)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    QApplication app(argc, argv);
    QApplication::setApplicationName("vemo-settings-example");
    QApplication::setStyle("fusion");
    useDesktopFont();
    QStringList arguments = QApplication::arguments().mid(1);
    const bool isPlain = arguments.removeAll("--plain") > 0;
    const bool isDark = arguments.removeAll("--dark") > 0;
    const bool showsSchedule = arguments.removeAll("--schedule") > 0;

    DefaultThemeOptions options;
    options.languageCode = "enu"; // that of the window's own texts
    options.mode = isDark ? DefaultThemeMode::Dark : DefaultThemeMode::Light;
    options.setsPalette = !isPlain || isDark; // Fusion is dark only by its palette
    options.stylesStockWidgets = !isPlain;
    if (!installDefaultTheme(options))
        return 1;
    SettingsWindow window;
    if (showsSchedule)
        window.showSchedule();
    window.show();
    if (!arguments.isEmpty())
        return window.grab().save(arguments.first()) ? 0 : 1;
    return QApplication::exec();
}
