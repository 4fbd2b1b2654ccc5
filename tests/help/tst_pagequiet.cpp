// SPDX-License-Identifier: MIT
#include "help/helphost.h"
#include "help/hostilepages.h"
#include "help/htmltextbrowser_p.h"
#include "help/imagedownloader_p.h"
#include "help/picturefolder_p.h"
#include "help/testserver.h"
#include "support/vemotest.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

/// Looks at what the system is asked for, by strace, while pages from the network are shown.
class PageQuietTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void pagesFromTheNetworkTouchNothing();
};

namespace {

const QString kBegin = QStringLiteral("/vemo-pages-begin");
const QString kEnd = QStringLiteral("/vemo-pages-end");

void mark(const QString &text)
{
    QFile::exists(text);
}

QStringList addresses()
{
    return {QStringLiteral("/vemo-secret/x.png"), QStringLiteral("file:///vemo-secret/x.png"),
        QStringLiteral("//vemo-secret/share/x.png"), QStringLiteral("file://vemo-secret/x.png"),
        QStringLiteral("../../vemo-secret/x.png"), QStringLiteral("../vemo-secret.png"),
        QStringLiteral("%2e%2e/vemo-secret.png"), QStringLiteral("sub/../../vemo-secret.png"),
        QStringLiteral("vemo-secret.svg"), QStringLiteral("vemo-secret@2x.png"),
        QStringLiteral("C:/vemo-secret/x.png"), QStringLiteral("qrc:/vemo-secret.png"),
        QStringLiteral(":/vemo-secret.png"), QStringLiteral("http://127.0.0.1:9/vemo-secret.png"),
        QStringLiteral("ftp://127.0.0.1/vemo-secret.png"), QStringLiteral("vemo-secret:x.png")};
}

/// Shows every page; the marks say from where to where the system calls are those of the pages.
int showPages(const QString &)
{
    HelpHost host;
    HtmlTextBrowser browser(nullptr);
    browser.resize(300, 200);
    browser.show();
    if (!QTest::qWaitForWindowExposed(&browser))
        return 1;
    preparePictureFolder();
    writePicture(pictureFolder() + "/known.png", pictureBytes({9, 9}, Qt::red));
    const auto show = [&browser](const QString &body) {
        browser.setHtmlContent("<html>" + body + "</html>");
        browser.grab();
        while (!browser.findChildren<ImageDownloader *>().isEmpty())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::processEvents();
        browser.grab();
    };
    // Fonts, plug-ins and the network are loaded with the first page that needs them.
    show(QStringLiteral("<base href=\"http://127.0.0.1:9/\">x<img src=\"known.png\"><h1>y</h1>"));
    mark(kBegin);
    for (const QString &address : addresses()) {
        for (const HostilePage &page : pagesThatRefer(address))
            show(page.body);
    }
    show(QStringLiteral("<img src=\"known.png\">"));
    mark(kEnd);
    return 0;
}

/// The calls between the marks that name what none of the pages may reach.
QStringList foreignCalls(const QString &trace, int *shownPictures)
{
    static const QRegularExpression allowed(
        QStringLiteral("kestrava_help|\"/usr/(lib|share)/[^\"]*(qt5|fonts?|imageformats|mime|icu|"
                       "locale)|/etc/(fonts|ssl|hosts|resolv|nsswitch|localtime)|\"/(proc|sys|dev)/"
                       "|/fontconfig|\"image\"|htons\\(9\\)"));
    // A file of an opened folder, which can be no other than the picture folder.
    static const QRegularExpression inside(QStringLiteral("(at|statx)\\(\\d+, \"[^/\"]*\","));
    // What the picture folder lies in.
    static const QRegularExpression around(
        QStringLiteral("\"%1(/tst_pagequiet-\\w+)?\"").arg(QDir::tempPath()));
    QStringList foreign;
    const int begin = trace.indexOf(kBegin);
    const int end = trace.indexOf(kEnd);
    const QStringList calls = trace.mid(begin, end - begin).split(QLatin1Char('\n')).mid(1);
    for (const QString &call : calls) {
        *shownPictures += call.contains(QLatin1String("\"known.png\""));
        const bool isAllowed = call.contains(inside) || call.contains(around)
            || call.contains(QLatin1String("AF_UNIX"))
            || (call.contains(allowed) && !call.contains(QLatin1String("vemo-secret")));
        if (call.contains(QLatin1Char('"')) && !isAllowed)
            foreign += call;
    }
    foreign.removeLast(); // The end mark's beginning.
    return foreign;
}

} // namespace

void PageQuietTest::pagesFromTheNetworkTouchNothing()
{
    const QString strace = QStandardPaths::findExecutable(QStringLiteral("strace"));
    if (strace.isEmpty())
        QSKIP("There is no strace (scripts/test installs it)");
    QTemporaryDir folder;
    const QString output = folder.filePath(QStringLiteral("trace"));
    QProcess child;
    QProcessEnvironment environment = childProcessEnvironment(QStringLiteral("pages"), {});
    // The leak checker can't run in a traced process.
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    child.setProcessEnvironment(environment);
    child.start(strace,
        {QStringLiteral("-f"), QStringLiteral("-qq"), QStringLiteral("-s"), QStringLiteral("4096"),
            QStringLiteral("-e"), QStringLiteral("trace=%file,connect"), QStringLiteral("-o"),
            output, QCoreApplication::applicationFilePath()});
    QVERIFY(child.waitForFinished(100000));
    const QByteArray errors = child.readAllStandardError();
    if (errors.contains("ptrace"))
        QSKIP("strace may not trace here");
    QCOMPARE(child.exitCode(), 0);
    const QString trace = QString::fromUtf8(fileBytes(output));
    QVERIFY(trace.contains(kBegin) && trace.contains(kEnd));
    int shownPictures = 0;
    const QStringList foreign = foreignCalls(trace, &shownPictures);
    QVERIFY(shownPictures > 0); // It does see what is read.
    QVERIFY2(foreign.isEmpty(), qPrintable(QStringList(foreign.mid(0, 20)).join('\n')));
}

VEMO_TEST_MAIN_WITH_CHILD(PageQuietTest, showPages)
#include "tst_pagequiet.moc"
