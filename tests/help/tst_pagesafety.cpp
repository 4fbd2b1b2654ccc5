// SPDX-License-Identifier: MIT
#include "help/helphost.h"
#include "help/htmltextbrowser_p.h"
#include "help/imagedownloader_p.h"
#include "help/testserver.h"
#include "support/vemotest.h"

#include <QDesktopServices>
#include <QTextDocumentFragment>

class tst_pagesafety : public VemoTest
{
    Q_OBJECT

public Q_SLOTS:
    void openAddress(const QUrl &url) { m_opened += url; }

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aPageFromTheNetworkReadsNoLocalFile_data();
    void aPageFromTheNetworkReadsNoLocalFile();
    void aPageFromTheNetworkReadsNoLocalStyleSheet_data();
    void aPageFromTheNetworkReadsNoLocalStyleSheet();
    void aPageFromTheNetworkUsesTheFoldersOfTheSearchPaths();
    void dataInsideThePageIsShown();
    void picturesAreOnlyFetchedFromTheWeb_data();
    void picturesAreOnlyFetchedFromTheWeb();
    void aLaterPageFromAFileGivesNoLeaveToAnEarlierOne();
    void aPageFromAFileMayFetchFiles();
    void aPictureThatWouldFillTheMemoryIsLeftOut();
    void aBrokenPictureIsMissing_data();
    void aBrokenPictureIsMissing();
    void linksOfAPageFromTheNetworkOpenOutside_data();
    void linksOfAPageFromTheNetworkOpenOutside();
    void linksOfAPageFromAFileOpenInPlace();

private:
    QString secret() const { return m_host.helpPath() + QLatin1String("/secret.png"); }
    bool isIdle() const { return m_browser->findChildren<ImageDownloader *>().isEmpty(); }
    void clickLink();

    HelpHost m_host;
    QScopedPointer<HtmlTextBrowser> m_browser;
    QList<QUrl> m_opened;
};

void tst_pagesafety::initTestCase()
{
    m_host.addHelpFile(QStringLiteral("secret.png"), pictureBytes({60, 60}, Qt::red));
    m_host.addHelpFile(QStringLiteral("secret.css"), "p { color: #ff0000; background: #ff0000; }");
    m_host.addHelpFile(QStringLiteral("page/inside.png"), pictureBytes({60, 60}, Qt::blue));
    m_host.addHelpFile(QStringLiteral("page/other.html"), "<html>the other page</html>");
    QVERIFY(QFile::link(secret(), m_host.helpPath() + QLatin1String("/page/link.png")));
    // What a bare name means without a search path.
    QVERIFY(QDir::setCurrent(m_host.helpPath()));
    for (const char *scheme : {"http", "https", "file", "mailto", "ftp"})
        QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "openAddress");
}

void tst_pagesafety::init()
{
    VemoTest::init();
    m_opened.clear();
    m_browser.reset(new HtmlTextBrowser(nullptr));
    m_browser->resize(300, 200);
    m_browser->setOpenExternalLinks(true);
    m_browser->setSearchPaths({m_host.helpPath() + QLatin1String("/page")});
    m_browser->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_browser.data()));
}

void tst_pagesafety::cleanup()
{
    m_browser.reset();
    QDir(m_host.tempFolder() + QLatin1String("/kestrava_help")).removeRecursively();
    VemoTest::cleanup();
}

void tst_pagesafety::aPageFromTheNetworkReadsNoLocalFile_data()
{
    QTest::addColumn<QString>("body");
    QTest::newRow("by its path") << QStringLiteral("<img src=\"%1\">").arg(secret());
    QTest::newRow("by its address") << QStringLiteral("<img src=\"file://%1\">").arg(secret());
    QTest::newRow("by its address with a host")
        << QStringLiteral("<img src=\"file://localhost%1\">").arg(secret());
    QTest::newRow("by a path with a host")
        << QStringLiteral("<img src=\"//host%1\">").arg(secret());
    QTest::newRow("beside the process") << "<img src=\"secret.png\">";
    QTest::newRow("beside the process, percent-encoded") << "<img src=\"secret%2Epng\">";
    QTest::newRow("above the search path") << "<img src=\"../secret.png\">";
    QTest::newRow("above the search path, percent-encoded") << "<img src=\"%2e%2e/secret.png\">";
    QTest::newRow("above the search path, from inside") << "<img src=\"x/../../secret.png\">";
    QTest::newRow("by a link inside the search path") << "<img src=\"link.png\">";
    QTest::newRow("as a background")
        << QStringLiteral("<body background=\"%1\"><p>x</p></body>").arg(secret());
    QTest::newRow("as a style's background")
        << QStringLiteral("<p style=\"background-image:url(%1)\">text</p>").arg(secret());
    QTest::newRow("as a list's sign")
        << QStringLiteral("<ul style=\"list-style-image:url(%1)\"><li>x</ul>").arg(secret());
    QTest::newRow("in other capitals") << QStringLiteral("<IMG SRC='FILE://%1'>").arg(secret());
}

void tst_pagesafety::aPageFromTheNetworkReadsNoLocalFile()
{
    QFETCH(const QString, body);
    m_browser->setHtmlContent(QStringLiteral("<html><body>%1</body></html>").arg(body));
    QCOMPARE(countPixels(m_browser.data(), Qt::red), 0);
    // The same page from a file may, wherever it gives a true name: the test sees the difference.
    m_browser->setPageUrl(
        QUrl::fromLocalFile(m_host.helpPath() + QLatin1String("/page/index.html")));
    m_browser->setHtmlContent(QStringLiteral("<html><body>%1</body></html>").arg(body));
    const QByteArray row = QTest::currentDataTag();
    if (row == "by its path" || row == "beside the process" || row == "above the search path")
        QVERIFY(countPixels(m_browser.data(), Qt::red) > 0);
}

void tst_pagesafety::aPageFromTheNetworkReadsNoLocalStyleSheet_data()
{
    QTest::addColumn<QString>("head");
    const QString path = m_host.helpPath() + QLatin1String("/secret.css");
    QTest::newRow("by a path")
        << QStringLiteral("<link rel=\"stylesheet\" type=\"text/css\" href=\"%1\">").arg(path);
    QTest::newRow("by an address")
        << QStringLiteral("<link rel=\"stylesheet\" type=\"text/css\" href=\"file://%1\">")
               .arg(path);
    QTest::newRow("imported") << QStringLiteral("<style>@import url(%1);</style>").arg(path);
    QTest::newRow("beside the process")
        << QStringLiteral("<link rel=\"stylesheet\" type=\"text/css\" href=\"secret.css\">");
}

void tst_pagesafety::aPageFromTheNetworkReadsNoLocalStyleSheet()
{
    QFETCH(const QString, head);
    const QString html = QStringLiteral("<html><head>%1</head><body><p>text</p></body></html>");
    m_browser->setHtmlContent(html.arg(head));
    QCOMPARE(countPixels(m_browser.data(), Qt::red), 0);
}

void tst_pagesafety::aPageFromTheNetworkUsesTheFoldersOfTheSearchPaths()
{
    m_browser->setHtmlContent(QStringLiteral("<html><img src=\"inside.png\"></html>"));
    QVERIFY(countPixels(m_browser.data(), Qt::blue) >= 3600);
}

void tst_pagesafety::dataInsideThePageIsShown()
{
    const QString data = QString::fromLatin1(pictureBytes({60, 60}, Qt::green).toBase64());
    m_browser->setHtmlContent(
        QStringLiteral("<html><img src=\"data:image/png;base64,%1\"></html>").arg(data));
    QVERIFY(countPixels(m_browser.data(), Qt::green) >= 3600);
}

void tst_pagesafety::picturesAreOnlyFetchedFromTheWeb_data()
{
    QTest::addColumn<QString>("base");
    QTest::newRow("a file") << QStringLiteral("file://%1/").arg(m_host.helpPath());
    QTest::newRow("a path") << m_host.helpPath() + QLatin1Char('/');
    QTest::newRow("nothing") << "";
    QTest::newRow("a resource") << "qrc:/";
    QTest::newRow("data") << "data:image/png;base64,";
    QTest::newRow("a file transfer") << "ftp://127.0.0.1/";
    QTest::newRow("unknown") << "gopher://127.0.0.1/";
    QTest::newRow("capitals") << QStringLiteral("FILE://%1/").arg(m_host.helpPath());
}

void tst_pagesafety::picturesAreOnlyFetchedFromTheWeb()
{
    QFETCH(const QString, base);
    QSignalSpy reloads(m_browser.data(), SIGNAL(sourceChanged(QUrl)));
    m_browser->setHtmlContent(
        QStringLiteral("<html><base href=\"%1\"><img src=\"secret.png\"></html>").arg(base));
    QCOMPARE(m_browser->findChildren<ImageDownloader *>().size(), 1);
    QTRY_VERIFY(isIdle());
    QCOMPARE(reloads.size(), 1); // It takes its way as a failed download.
    QVERIFY(QDir(m_host.pictureFolder()).isEmpty());
    QCOMPARE(countPixels(m_browser.data(), Qt::red), 0);
}

void tst_pagesafety::aLaterPageFromAFileGivesNoLeaveToAnEarlierOne()
{
    QString html = QStringLiteral("<html><base href=\"file://%1/\">").arg(m_host.helpPath());
    for (int i = 0; i < 100; ++i)
        html += QStringLiteral("<img src=\"%1secret.png\">").arg(QStringLiteral("./").repeated(i));
    m_browser->setHtmlContent(html);
    m_browser->setPageUrl(
        QUrl::fromLocalFile(m_host.helpPath() + QLatin1String("/page/index.html")));
    m_browser->setHtmlContent(QStringLiteral("<html>local</html>"));
    QTRY_VERIFY(isIdle());
    QVERIFY(QDir(m_host.pictureFolder()).isEmpty());
}

void tst_pagesafety::aPageFromAFileMayFetchFiles()
{
    m_browser->setPageUrl(
        QUrl::fromLocalFile(m_host.helpPath() + QLatin1String("/page/index.html")));
    m_browser->setHtmlContent(
        QStringLiteral("<html><base href=\"file://%1/\"><img src=\"secret.png\"></html>")
            .arg(m_host.helpPath()));
    QTRY_VERIFY(isIdle());
    QCOMPARE(fileBytes(m_host.pictureFolder() + "/secret.png"), fileBytes(secret()));
}

void tst_pagesafety::aPictureThatWouldFillTheMemoryIsLeftOut()
{
    QByteArray bitmap = QByteArray("P4 10000 10000\n") + QByteArray(10000 * 1250, '\0');
    TestServer server;
    server.setAnswer("/bomb.pbm", page(bitmap));
    m_browser->setHtmlContent(
        QStringLiteral("<html><base href=\"%1\"><img src=\"bomb.pbm\"></html>")
            .arg(server.url().toString()));
    QTRY_VERIFY(isIdle());
    QStringList warnings;
    QTRY_VERIFY(!(warnings += messages.take()).isEmpty());
    QCOMPARE(warnings,
        QStringList(
            QStringLiteral("Picture is too large \"%1/bomb.pbm\"").arg(m_host.pictureFolder())));
    QVERIFY(m_browser->document()->size().height() < 1000);
}

void tst_pagesafety::aBrokenPictureIsMissing_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("<html>an error page</html>");
}

void tst_pagesafety::aBrokenPictureIsMissing()
{
    QFETCH(const QByteArray, bytes);
    TestServer server;
    server.setAnswer("/a.png", page(bytes));
    m_browser->setHtmlContent(QStringLiteral("<html><base href=\"%1\">x<img src=\"a.png\"></html>")
                                  .arg(server.url().toString()));
    QTRY_VERIFY(isIdle());
    QTRY_VERIFY(m_browser->document()->size().height() < 100);
}

void tst_pagesafety::linksOfAPageFromTheNetworkOpenOutside_data()
{
    QTest::addColumn<QString>("link");
    QTest::addColumn<QString>("opened");
    QTest::newRow("the web") << "http://127.0.0.1/a.html"
                             << "http://127.0.0.1/a.html";
    QTest::newRow("the secure web") << "https://127.0.0.1/#x"
                                    << "https://127.0.0.1/#x";
    QTest::newRow("a mail") << "mailto:a@vemo.invalid"
                            << "mailto:a@vemo.invalid";
    QTest::newRow("beside the page") << "b.html"
                                     << "https://help.vemo.invalid/kb/b.html";
    QTest::newRow("the page's root") << "/b.html"
                                     << "https://help.vemo.invalid/b.html";
    QTest::newRow("an anchor of the page") << "#below"
                                           << "";
    QTest::newRow("a file") << QStringLiteral("file://%1").arg(secret()) << "";
    QTest::newRow("a resource") << "qrc:/vemo"
                                << "";
    QTest::newRow("a file's path opens the web's")
        << secret() << "https://help.vemo.invalid" + secret();
}

void tst_pagesafety::clickLink()
{
    QTextCursor start(m_browser->document());
    start.setPosition(1);
    QTest::mouseClick(m_browser->viewport(), Qt::LeftButton, Qt::NoModifier,
        m_browser->cursorRect(start).center() + QPoint(3, 0));
}

void tst_pagesafety::linksOfAPageFromTheNetworkOpenOutside()
{
    QFETCH(const QString, link);
    QFETCH(const QString, opened);
    m_browser->setPageUrl(QUrl(QStringLiteral("https://help.vemo.invalid/kb/page.html")));
    m_browser->setHtmlContent(
        QStringLiteral("<html><a href=\"%1\">a link to click</a></html>").arg(link));
    clickLink();
    QCOMPARE(m_opened, opened.isEmpty() ? QList<QUrl>() : QList<QUrl>({QUrl(opened)}));
    QCOMPARE(m_browser->toPlainText(), QStringLiteral("a link to click"));
}

void tst_pagesafety::linksOfAPageFromAFileOpenInPlace()
{
    m_browser->setPageUrl(
        QUrl::fromLocalFile(m_host.helpPath() + QLatin1String("/page/index.html")));
    m_browser->setHtmlContent(
        QStringLiteral("<html><a href=\"other.html\">a link to click</a></html>"));
    clickLink();
    QCOMPARE(m_browser->toPlainText(), QStringLiteral("the other page"));
    m_browser->setHtmlContent(
        QStringLiteral("<html><a href=\"http://127.0.0.1/\">a link to click</a></html>"));
    clickLink();
    QCOMPARE(m_opened, QList<QUrl>({QUrl(QStringLiteral("http://127.0.0.1/"))}));
}

VEMO_TEST_MAIN(tst_pagesafety)
#include "tst_pagesafety.moc"
