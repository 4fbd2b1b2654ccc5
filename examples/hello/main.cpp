// SPDX-License-Identifier: MIT
// The smallest host: the default theme, one window, one sheet over it.
//
//     hello-example [PICTURE]    with a file name, writes a picture of its window and ends
#include <vemo/DefaultTheme>
#include <vemo/VemoButton>
#include <vemo/VemoMessageSheet>

#include <QApplication>
#include <QVBoxLayout>

int main(int argc, char **argv)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    QApplication app(argc, argv);
    QApplication::setApplicationName("vemo-hello-example");
    if (!installDefaultTheme())
        return 1;

    QWidget window;
    window.setWindowTitle("Hello");
    window.resize(480, 320);
    auto *greet = new VemoButton("Say hello", VemoButton::APPLY);
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(greet, 0, Qt::AlignCenter);

    const auto sayHello = [&window] {
        auto *sheet = new VemoMessageSheet(
            VemoMessageSheet::Information, "Hello from Vemo Widgets.", &window);
        sheet->open();
    };
    QObject::connect(greet, &VemoButton::clicked, &window, sayHello);
    window.show();
    sayHello();

    const QStringList arguments = QApplication::arguments();
    if (arguments.size() > 1)
        return window.grab().save(arguments.at(1)) ? 0 : 1;
    return QApplication::exec();
}
