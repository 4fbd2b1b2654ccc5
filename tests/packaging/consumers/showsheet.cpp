// SPDX-License-Identifier: MIT
// A host as anybody would write it: shows a message sheet, answers it and writes what it showed.
// With the argument "dark" it asks for the dark look instead.
#include <vemo/DefaultTheme>
#include <vemo/MessageShortcuts>
#include <vemo/VemoMessageSheet>

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>
#include <QWidget>

static int warnings = 0;

static void report(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    warnings += type == QtWarningMsg || type == QtCriticalMsg ? 1 : 0;
    QTextStream(stderr) << message << '\n';
}

static bool hasInk(const QImage &picture)
{
    const QColor accent("#1769E0");
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y) == accent)
                return true;
        }
    }
    return false;
}

static void answerSheet(QWidget *window)
{
    auto *sheet = window->findChild<VemoMessageSheet *>();
    if (!sheet || !sheet->isVisible())
        qFatal("There is no sheet.");
    QTextStream out(stdout);
    const QList<QLabel *> labels = sheet->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->isVisible() && !label->text().isEmpty())
            out << "text: " << label->text() << '\n';
    }
    auto *yes = sheet->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Apply);
    out << "button: " << yes->text() << '\n';
    out << "themed: " << (hasInk(window->grab().toImage()) ? "yes" : "no") << '\n';
    yes->click();
}

int main(int argc, char **argv)
{
    qInstallMessageHandler(report);
    QApplication app(argc, argv);
    QTemporaryDir cache;
    if (!installDefaultTheme(cache.path(), "enu", ImageManager::LAZY_LOAD))
        return 1;
    if (QApplication::arguments().contains("dark")) {
        const bool isDark = setDefaultThemeMode(DefaultThemeMode::Dark) && isDefaultThemeDark();
        QTextStream(stdout) << "dark: " << (isDark ? "yes" : "no") << '\n';
        return 0;
    }
    QWidget window;
    window.resize(640, 480);
    window.show();
    QTimer::singleShot(0, &window, [&window] { answerSheet(&window); });
    const int answer = showConfirmMsg("Delete", "Delete the folder Tea?", &window);
    QTextStream(stdout) << "answer: " << (answer == QDialogButtonBox::Apply ? "yes" : "no")
                        << "\nwarnings: " << warnings << '\n';
    return answer == QDialogButtonBox::Apply && warnings == 0 ? 0 : 1;
}
