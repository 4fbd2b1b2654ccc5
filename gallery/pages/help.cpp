// SPDX-License-Identifier: MIT
#include "gallery/commandline.h"
#include "gallery/page.h"
#include "gallery/pages/pages.h"

#include <vemo/dpiinfo.h>
#include <vemo/helpwindow.h>
#include <vemo/imagemanager.h>
#include <vemo/uipathmanager.h>
#include <vemo/vemobutton.h>

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QTextBrowser>

#include <memory>

namespace {

const char *const kFile = "backup.html";
constexpr int kPictures = 3;

/// A page of the help in one language: the code of the host, that of the help, and the texts.
struct HelpPage
{
    const char *lang;
    const char *folder;
    const char *button;
    const char *title;
    const char *intro;
    const char *steps[kPictures];
    const char *more;
};

const HelpPage kPages[] = {
    {"enu", "enu", "English help", "Set up a backup",
        "A backup keeps a second copy of your files on another disk. You choose once what belongs "
        "to it; from then on it runs by itself.",
        {"Choose the <b>folders</b> that the backup keeps.",
            "Exclude <b>documents</b> that you can do without.",
            "Decide whether the copies are <b>compressed</b>."},
        "More about <a href=\"https://vemo.invalid/schedule\">schedules</a>"},
    {"deu", "ger", "Deutsche Hilfe", "Datensicherung einrichten",
        "Eine Datensicherung bewahrt eine zweite Kopie Ihrer Dateien auf einem anderen Datenträger "
        "auf. Sie legen einmal fest, was dazugehört; danach läuft sie selbsttätig.",
        {"Wählen Sie die <b>Ordner</b> aus, die gesichert werden sollen.",
            "Schließen Sie <b>Dokumente</b> aus, auf die Sie verzichten können.",
            "Bestimmen Sie, ob die Kopien <b>platzsparend komprimiert</b> werden."},
        "Mehr über <a href=\"https://vemo.invalid/schedule\">Zeitpläne und "
        "Aufbewahrungsrichtlinien</a>"},
    {"chs", "chs", "中文帮助", "设置备份",
        "备份会在另一个磁盘上保存文件的第二份副本。您只需选择一次要备份的内容，之后备份会自动运行"
        "。",
        {"选择需要备份的<b>文件夹</b>。", "排除不需要的<b>文档</b>。", "决定是否<b>压缩</b>副本。"},
        "了解有关<a href=\"https://vemo.invalid/schedule\">备份计划</a>的更多信息"},
};

const char *const kPictureNames[kPictures] = {"folder", "doc", "zip"};

QString htmlOf(const HelpPage &page, const QString &base)
{
    QString html = QString("<html><head>%1<title>%2</title></head><body><h2>%2</h2><p>%3</p>")
                       .arg(base, page.title, page.intro);
    for (int i = 0; i < kPictures; ++i) {
        const QPixmap pixmap = getGlobalImage(kPictureNames[i]);
        html += QString("<p><img src=\"%1.png\" width=\"%2\" "
                        "style=\"vertical-align: middle\"> &nbsp;%3</p>")
                    .arg(kPictureNames[i])
                    .arg(qRound(pixmap.width() / pixmap.devicePixelRatio()))
                    .arg(page.steps[i]);
    }
    return html + QString("<p>%1</p></body></html>").arg(page.more);
}

void writeHelp(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
}

/// The help as a host would install it: a folder for each language, with pages and pictures of the
/// look on show.
QString installedHelp()
{
    const QString root = UIPathManager::getInstance().getPath("user_data_path") + "/help";
    for (const HelpPage &page : kPages) {
        const QString folder = root + '/' + page.folder;
        QDir().mkpath(folder);
        writeHelp(folder + '/' + kFile, htmlOf(page, {}).toUtf8());
        for (const char *name : kPictureNames)
            getGlobalImage(name).save(folder + '/' + name + ".png");
    }
    // The same page, but with pictures to be fetched, as a knowledge base sends it.
    const QString pictures = root + "/enu/";
    const QString base =
        QString("<base href=\"%1\">").arg(QUrl::fromLocalFile(pictures).toString());
    writeHelp(root + "/fetched.html", htmlOf(kPages[0], base).toUtf8());
    writeHelp(
        root + "/enu/schedules.html", "<html><title>Schedules</title><h2>Schedules</h2></html>");
    writeHelp(root + "/enu/restore.html", "<html><title>Restore</title><h2>Restore</h2></html>");
    return root;
}

HelpContext contextOf(const HelpPage &page, const QString &helpPath)
{
    HelpContext context;
    context.lang = page.lang;
    context.helpPath = helpPath;
    context.link = kFile;
    context.section = "backup";
    return context;
}

/// Lets a page come that is on its way through the event loop; reloads is what its pictures cause.
QPixmap pictureOf(BrowserWindow &window, int reloads)
{
    const auto *view = window.findChild<QTextBrowser *>();
    const auto left = std::make_shared<int>(reloads);
    QObject::connect(view, &QTextBrowser::sourceChanged, view, [left] { --*left; });
    constexpr int kPatience = 3000; // Milliseconds.
    QElapsedTimer timer;
    timer.start();
    while ((view->toPlainText().isEmpty() || *left > 0) && !timer.hasExpired(kPatience))
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 50);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    window.resize(DPIinfo::scaled(560), DPIinfo::scaled(380));
    return window.grab();
}

void addLocalHelp(Page &page, const QString &helpPath)
{
    page.addSection("The local help",
        "Without a knowledge base a help window shows the page of its language from the disk.");
    QList<QWidget *> buttons;
    for (const HelpPage &help : kPages) {
        auto *button = new VemoButton(help.button, VemoButton::DEFAULT);
        const HelpContext context = contextOf(help, helpPath);
        QObject::connect(button, &QPushButton::clicked, button, [button, context] {
            auto *window = new HelpWindow(context, button->window());
            window->setAttribute(Qt::WA_DeleteOnClose);
            window->show();
        });
        buttons += button;
    }
    page.addRow(buttons);
    for (const HelpPage *help : {&kPages[1], &kPages[2]}) {
        page.addRow({picture([help] {
            HelpWindow window(contextOf(*help, installedHelp()), nullptr);
            return pictureOf(window, 0);
        })});
    }
    page.addCode(R"(HelpContext context;
context.lang = VemoLocale::getInstance().getDefaultLanguage();
context.helpPath = QCoreApplication::applicationDirPath() + "/help";
context.link = "backup.html";
HelpWindow(context, this).exec();)");
}

void addFetchedPage(Page &page, const QString &helpPath)
{
    const QUrl url = QUrl::fromLocalFile(helpPath + "/fetched.html");
    page.addSection("A page with pictures to fetch",
        "A page that names a base address has its pictures fetched; each shows as soon as it is "
        "there.");
    auto *button = new VemoButton("Open the page", VemoButton::DEFAULT);
    QObject::connect(button, &QPushButton::clicked, button, [button, url] {
        auto *window = new BrowserWindow(button->window());
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->reload(url);
        window->show();
    });
    page.addRow({button});
    page.addRow({picture([url] {
        installedHelp();
        BrowserWindow window(nullptr);
        window.reload(url);
        return pictureOf(window, kPictures);
    })});
    page.addCode(R"(auto *window = new BrowserWindow(this);
window->setAttribute(Qt::WA_DeleteOnClose);
window->reload(url);
window->show();)");
}

void trigger(const QWidget &window, const QKeySequence &key)
{
    const auto actions = window.actions();
    for (QAction *action : actions) {
        if (action->shortcut() == key)
            action->trigger();
    }
}

void addFinding(Page &page, const QString &helpPath)
{
    const HelpContext context = contextOf(kPages[0], helpPath);
    page.addSection("Finding in a page",
        "Ctrl+F opens a bar, F3 and Return find the next match, Escape closes it. The host turns "
        "it on.");
    auto *button = new VemoButton("Open the help", VemoButton::DEFAULT);
    QObject::connect(button, &QPushButton::clicked, button, [button, context] {
        auto *window = new HelpWindow(context, button->window());
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->setFindEnabled(true);
        window->show();
    });
    page.addRow({button});
    page.addRow({picture([] {
        HelpWindow window(contextOf(kPages[0], installedHelp()), nullptr);
        window.setFindEnabled(true);
        pictureOf(window, 0); // Waits for the page.
        window.findChild<QLineEdit *>()->setText("backup");
        trigger(window, QKeySequence("Ctrl+F"));
        return window.grab();
    })});
    page.addCode(R"(auto *help = new HelpWindow(context, this);
help->setFindEnabled(true);
help->show();)");
}

const QVector<ContentsEntry> &contents()
{
    static const QVector<ContentsEntry> entries {
        {"Backup", 0, QUrl()},
        {"Set up a backup", 1, QUrl(kFile)},
        {"Schedules", 1, QUrl("schedules.html")},
        {"Restore", 0, QUrl("restore.html")},
    };
    return entries;
}

void addNavigation(Page &page, const QString &helpPath)
{
    const HelpContext context = contextOf(kPages[0], helpPath);
    page.addSection("Back, forward and contents",
        "Alt+Left and Alt+Right go back and forward, F9 hides the contents. The host turns them "
        "on.");
    auto *button = new VemoButton("Open the help", VemoButton::DEFAULT);
    QObject::connect(button, &QPushButton::clicked, button, [button, context] {
        auto *window = new HelpWindow(context, button->window());
        window->setAttribute(Qt::WA_DeleteOnClose);
        window->setHistoryEnabled(true);
        window->setContents(contents());
        window->show();
    });
    page.addRow({button});
    page.addRow({picture([] {
        HelpWindow window(contextOf(kPages[0], installedHelp()), nullptr);
        window.setHistoryEnabled(true);
        window.setContents(contents());
        return pictureOf(window, 0);
    })});
    page.addCode(R"(auto *help = new HelpWindow(context, this);
help->setHistoryEnabled(true);
help->setContents(entries);
help->show();)");
}

} // namespace

void buildHelpPage(Page &page)
{
    page.addSummary(
        "A window that shows a page of the web or of the online help, with its pictures. "
        "Ctrl with the wheel, plus and minus zooms, Escape closes.");
    // Nobody listens there: the gallery has no knowledge base and asks nobody for it.
    HelpWindow::setKnowledgeBaseUrl(QUrl("https://127.0.0.1:1"));
    const QString helpPath = installedHelp();
    addLocalHelp(page, helpPath);
    addFetchedPage(page, helpPath);
    addFinding(page, helpPath);
    addNavigation(page, helpPath);
}
