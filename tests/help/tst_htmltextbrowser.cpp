// SPDX-License-Identifier: MIT
#include "help/helphost.h"
#include "help/helplimits_p.h"
#include "help/htmltextbrowser_p.h"
#include "help/imagedownloader_p.h"
#include "help/testserver.h"
#include "support/iswindows.h"
#include "support/vemotest.h"

#include <QScrollBar>

class HtmlTextBrowserTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void slotHasItsName();
    void aPageWithoutPicturesToFetchLeavesThePathsAlone_data();
    void aPageWithoutPicturesToFetchLeavesThePathsAlone();
    void thePictureFolderComesFirst();
    void aForeignPictureFolderIsWarnedAboutOncePerPage();
    void eachSourceIsAskedForOnce_data();
    void eachSourceIsAskedForOnce();
    void theSourceIsJoinedToTheBaseAndNotResolved_data();
    void theSourceIsJoinedToTheBaseAndNotResolved();
    void theBaseIsKeptFromTheLastPageThatHadOne();
    void aPictureIsSavedUnderItsLastPart_data();
    void aPictureIsSavedUnderItsLastPart();
    void ofTwoPicturesWithOneNameTheLaterOneWins();
    void theViewReloadsOncePerPicture();
    void picturesAreFetchedAgainForEachPage();
    void aNewPageDoesNotCancelDownloads();
    void theSameAddressTwiceAtOnceIsFetchedTwice();
    void noMoreThanSixtyFourRunAtOnce();
    void silentDownloadsLeaveTheirPlaceToOthers();
    void aSlowDownloadKeepsItsPlace();
    void onlySoManySilentDownloadsAreWaitedFor();
    void everyPictureIsFetchedHoweverMany();
    void pagesTakeTheirTurnsApart();
    void mayBeDeletedWhileDownloadsRun_data();
    void mayBeDeletedWhileDownloadsRun();
    void theFinishSlotAloneTakesTheStoredDownload();

private:
    QString html(const QString &body) const
    {
        return QStringLiteral("<html><base href=\"%1\">%2</html>")
            .arg(m_server->url().toString(), body);
    }
    bool isIdle() const { return m_browser->findChildren<ImageDownloader *>().isEmpty(); }

    HelpHost m_host;
    QScopedPointer<TestServer> m_server;
    QScopedPointer<HtmlTextBrowser> m_browser;
};

static Answer silence()
{
    Answer answer;
    answer.end = Answer::KEEP_OPEN;
    return answer;
}

static QString pictures(int count, const QString &prefix = QStringLiteral("p"))
{
    QString html;
    for (int i = 0; i < count; ++i)
        html += QStringLiteral("<img src=\"%1%2.png\">").arg(prefix).arg(i);
    return html;
}

void HtmlTextBrowserTest::init()
{
    VemoTest::init();
    m_server.reset(new TestServer);
    m_browser.reset(new HtmlTextBrowser(nullptr));
}

void HtmlTextBrowserTest::cleanup()
{
    m_browser.reset();
    m_server.reset();
    QDir(m_host.tempFolder() + QLatin1String("/kestrava_help")).removeRecursively();
    VemoTest::cleanup();
}

void HtmlTextBrowserTest::slotHasItsName()
{
    const QMetaObject &meta = HtmlTextBrowser::staticMetaObject;
    const QMetaMethod slot = meta.method(meta.indexOfSlot("slotDownloadFinished(QString,int)"));
    QCOMPARE(slot.parameterNames(), QList<QByteArray>({"url", "res"}));
    QCOMPARE(slot.access(), QMetaMethod::Private);
}

void HtmlTextBrowserTest::aPageWithoutPicturesToFetchLeavesThePathsAlone_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("text");
    const QString picture = QStringLiteral("<img src=\"a.png\">");
    addRow("plain text", "no <tag", "no <tag");
    addRow("empty", "", "");
    addRow("plain text that names a base",
        "x <base href=\"http://127.0.0.1/\"> <img src=\"a.png\">",
        "x <base href=\"http://127.0.0.1/\"> <img src=\"a.png\">");
    addRow("no base", "<html>" + picture + "text</html>", QString(QChar(0xFFFC)) + "text");
    addRow("a base without end", "<html>text<base href=\"http://x/></html>", "text");
}

void HtmlTextBrowserTest::aPageWithoutPicturesToFetchLeavesThePathsAlone()
{
    QFETCH(const QString, html);
    m_browser->setSearchPaths({QStringLiteral("/nowhere")});
    m_browser->setHtmlContent(html);
    QTEST(m_browser->toPlainText(), "text");
    QCOMPARE(m_browser->searchPaths(), QStringList("/nowhere"));
    QVERIFY(isIdle());
    QVERIFY(!QFile::exists(m_host.pictureFolder()));
}

void HtmlTextBrowserTest::thePictureFolderComesFirst()
{
    const QString folder = m_host.pictureFolder();
    m_browser->setSearchPaths({QStringLiteral("/nowhere")});
    m_browser->setHtmlContent(html(QStringLiteral("one")));
    QVERIFY(QFileInfo(folder).isDir());
    QCOMPARE(m_browser->searchPaths(), QStringList({folder, "/nowhere"}));
    m_browser->setHtmlContent(html(QStringLiteral("two")));
    QCOMPARE(m_browser->searchPaths(), QStringList({folder, folder, "/nowhere"}));
    QCOMPARE(m_browser->toPlainText(), QStringLiteral("two"));
}

void HtmlTextBrowserTest::aForeignPictureFolderIsWarnedAboutOncePerPage()
{
    QTemporaryDir elsewhere;
    const QString outer = m_host.tempFolder() + QLatin1String("/kestrava_help");
    QVERIFY(QFile::link(elsewhere.path(), outer));
    m_server->setAnswer({}, page(pictureBytes({8, 8}, Qt::red)));
    m_browser->setHtmlContent(html(pictures(3)));
    QTRY_VERIFY(isIdle());
    QCOMPARE(m_server->requests().size(), 3);
    QVERIFY(QDir(elsewhere.filePath(QStringLiteral("image"))).isEmpty());
    QCOMPARE(messages.take(),
        QStringList(
            QStringLiteral("Cannot keep pictures in a folder that is not the user's own \"%1\"")
                .arg(m_host.pictureFolder())));
    QVERIFY(QFile::remove(outer));
}

void HtmlTextBrowserTest::eachSourceIsAskedForOnce_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<QStringList>("targets");
    addRow("one", "<img src=\"a.png\">", QStringList("/a.png"));
    addRow("three times the same", "<img src=\"a.png\"><img src=\"a.png\"><img src=\"a.png\">",
        QStringList("/a.png"));
    addRow("a folder", "<img src=\"x/a.png\">", QStringList("/x/a.png"));
    addRow("its own root", "<img src=\"/a.png\">", QStringList("/a.png"));
    QTest::newRow("a whole address, joined and not resolved")
        << "<img src=\"http://other/a.png\">" << QStringList("/http://other/a.png");
    addRow("a query", "<img src=\"a.png?v=1\">", QStringList("/a.png?v=1"));
    addRow("empty", "<img src=\"\">", QStringList("/"));
    addRow("a letter beyond Latin", QString::fromUtf8("<img src=\"\u56FE.png\">"),
        QStringList("/%E5%9B%BE.png"));
}

void HtmlTextBrowserTest::eachSourceIsAskedForOnce()
{
    QFETCH(const QString, body);
    QFETCH(const QStringList, targets);
    m_browser->setHtmlContent(html(body));
    QTRY_VERIFY(isIdle());
    QStringList asked;
    for (const QByteArray &request : m_server->requests())
        asked += QString::fromLatin1(request.split(' ').value(1));
    QCOMPARE(asked, targets);
    QVERIFY(m_server->requests().first().startsWith("GET "));
}

void HtmlTextBrowserTest::theSourceIsJoinedToTheBaseAndNotResolved_data()
{
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("target");
    addRow("a file", "/help/index", "a.png", "/help/indexa.png");
    addRow("a folder", "/help/", "a.png", "/help/a.png");
    addRow("a root path", "/help", "/a.png", "/help/a.png");
    addRow("a query", "/help?picture=", "a.png", "/help?picture=a.png");
}

void HtmlTextBrowserTest::theSourceIsJoinedToTheBaseAndNotResolved()
{
    QFETCH(const QString, base);
    QFETCH(const QString, source);
    const QString address = m_server->url(QString()).toString() + base;
    m_browser->setHtmlContent(
        QStringLiteral("<html><base href=\"%1\"><img src=\"%2\"></html>").arg(address, source));
    QTRY_VERIFY(isIdle());
    const QString target = QString::fromLatin1(m_server->requests().value(0).split(' ').value(1));
    QTEST(target, "target");
}

void HtmlTextBrowserTest::theBaseIsKeptFromTheLastPageThatHadOne()
{
    m_browser->setHtmlContent(html(QString()));
    m_browser->setHtmlContent(QStringLiteral("<html><img src=\"a.png\"></html>"));
    QVERIFY(isIdle());
    m_browser->setHtmlContent(html(pictures(1)));
    QTRY_VERIFY(isIdle());
    QCOMPARE(m_server->requestCount("/p0.png"), 1);
}

void HtmlTextBrowserTest::aPictureIsSavedUnderItsLastPart_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("name");
    addRow("no folder", "a.png", "a.png");
    addRow("folders", "x/y/a.png", "a.png");
    addRow("a slash in the query", "a.png?v=/1", "1");
    addRow("percent signs stay", "a%20b.png", "a%20b.png");
    addRow("a name that ends in a slash is not saved", "x/", "");
    addRow("the parent folder is not saved", "x/..", "");
    // Windows can't have these names, or they mean something else.
    const auto addUnixRow = [](const char *row, const char *source, const char *name) {
        addRow(row, source, kIsWindows ? "" : name);
    };
    addUnixRow("a query stays", "a.png?v=1", "a.png?v=1");
    addUnixRow("a colon", "x/a:b.png", "a:b.png");
    addUnixRow("backslashes", "x\\..\\b.png", "x\\..\\b.png");
    addUnixRow("a device of Windows", "x/nul.png", "nul.png");
    addUnixRow("a control character", "a\x01.png", "a\x01.png");
    addRow("256 letters are not saved", QString(256, 'a'), "");
}

void HtmlTextBrowserTest::aPictureIsSavedUnderItsLastPart()
{
    QFETCH(const QString, source);
    QFETCH(const QString, name);
    m_server->setAnswer({}, page("bytes"));
    m_browser->setHtmlContent(html(QStringLiteral("<img src=\"%1\">").arg(source)));
    QTRY_VERIFY(isIdle());
    QCOMPARE(m_server->requests().size(), 1);
    QCOMPARE(QDir(m_host.pictureFolder()).entryList(QDir::Files | QDir::Hidden),
        name.isEmpty() ? QStringList() : QStringList(name));
}

void HtmlTextBrowserTest::ofTwoPicturesWithOneNameTheLaterOneWins()
{
    m_server->setAnswer("/x/a.png", page("first"));
    Answer later;
    later.bytes = "HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\n";
    later.tail = "later";
    later.tailCount = 1;
    later.tailPause = 200;
    m_server->setAnswer("/y/a.png", later);
    m_browser->setHtmlContent(html(QStringLiteral("<img src=\"y/a.png\"><img src=\"x/a.png\">")));
    QTRY_VERIFY(isIdle());
    QCOMPARE(QDir(m_host.pictureFolder()).entryList(QDir::Files), QStringList("a.png"));
    QCOMPARE(fileBytes(m_host.pictureFolder() + "/a.png"), QByteArray("later"));
}

void HtmlTextBrowserTest::theViewReloadsOncePerPicture()
{
    m_server->setAnswer("/p0.png", page(pictureBytes({4, 4}, Qt::red)));
    m_server->setAnswer("/p1.png", page(pictureBytes({4, 4}, Qt::red)));
    QSignalSpy reloads(m_browser.data(), SIGNAL(sourceChanged(QUrl)));
    m_browser->setHtmlContent(html(pictures(5))); // Three of them are missing.
    QVERIFY(reloads.isEmpty());
    QTRY_VERIFY(isIdle());
    QCOMPARE(reloads.size(), 5);
}

void HtmlTextBrowserTest::picturesAreFetchedAgainForEachPage()
{
    m_server->setAnswer("/p0.png", page("one"));
    m_browser->setHtmlContent(html(pictures(1)));
    QTRY_VERIFY(isIdle());
    m_server->setAnswer("/p0.png", page("two"));
    m_browser->setHtmlContent(html(pictures(1)));
    QTRY_VERIFY(isIdle());
    QCOMPARE(m_server->requestCount("/p0.png"), 2);
    QCOMPARE(fileBytes(m_host.pictureFolder() + "/p0.png"), QByteArray("two"));
}

void HtmlTextBrowserTest::aNewPageDoesNotCancelDownloads()
{
    Answer slow;
    slow.bytes = "HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\n";
    slow.tail = "bytes";
    slow.tailCount = 1;
    slow.tailPause = 200;
    m_server->setAnswer({}, slow);
    QSignalSpy reloads(m_browser.data(), SIGNAL(sourceChanged(QUrl)));
    m_browser->setHtmlContent(html(pictures(3)));
    QTRY_COMPARE(m_server->requests().size(), 3);
    m_browser->setHtmlContent(QStringLiteral("<html>another page</html>"));
    QCOMPARE(m_browser->findChildren<ImageDownloader *>().size(), 3);
    QTRY_VERIFY(isIdle());
    QCOMPARE(reloads.size(), 3);
    QCOMPARE(QDir(m_host.pictureFolder()).entryList(QDir::Files).size(), 3);
    QCOMPARE(m_browser->toPlainText(), QStringLiteral("another page"));
}

void HtmlTextBrowserTest::theSameAddressTwiceAtOnceIsFetchedTwice()
{
    Answer slow;
    slow.bytes = "HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\n";
    slow.tail = "bytes";
    slow.tailCount = 1;
    slow.tailPause = 100;
    m_server->setAnswer({}, slow);
    QSignalSpy reloads(m_browser.data(), SIGNAL(sourceChanged(QUrl)));
    m_browser->setHtmlContent(html(pictures(2)));
    m_browser->setHtmlContent(html(pictures(2)));
    QCOMPARE(m_browser->findChildren<ImageDownloader *>().size(), 4);
    QTRY_VERIFY(isIdle());
    QCOMPARE(m_server->requests().size(), 4);
    QCOMPARE(reloads.size(), 4);
}

void HtmlTextBrowserTest::noMoreThanSixtyFourRunAtOnce()
{
    QCOMPARE(kMaxDownloadsAtOnce, 64);
    m_server->setAnswer({}, page("bytes"));
    const Answer silent = silence();
    for (int i = 0; i < 64; ++i)
        m_server->setAnswer("/s" + QByteArray::number(i) + ".png", silent);
    m_browser->setHtmlContent(html(pictures(64, QStringLiteral("s")) + pictures(200)));
    QCOMPARE(m_browser->findChildren<ImageDownloader *>().size(), 264);
    QTRY_COMPARE(m_server->requests().size(), 64);
    QCOMPARE(m_server->requestCount("/p0.png"), 0);
    m_server.reset(); // Breaks them off: the others' turn. They fail, nobody is there any more.
    QTRY_VERIFY(isIdle());
}

void HtmlTextBrowserTest::silentDownloadsLeaveTheirPlaceToOthers()
{
    QCOMPARE(ImageDownloader::maxSilence(), 30000);
    const QScopedValueRollback<int> shorter(ImageDownloader::maxSilence(), 100);
    m_server->setAnswer({}, silence());
    m_server->setAnswer("/q0.png", page("bytes"));
    m_browser->setHtmlContent(html(pictures(64) + pictures(1, QStringLiteral("q"))));
    QTRY_COMPARE(m_server->requestCount("/q0.png"), 1);
    QTRY_COMPARE(m_browser->findChildren<ImageDownloader *>().size(), 64); // They go on.
}

void HtmlTextBrowserTest::aSlowDownloadKeepsItsPlace()
{
    // With Wine the server takes half a second for 64 writes.
    const int slowness = kIsWindows ? 5 : 1;
    const QScopedValueRollback<int> shorter(ImageDownloader::maxSilence(), slowness * 1000);
    Answer slow;
    slow.bytes = "HTTP/1.1 200 OK\r\n\r\n";
    slow.tail = "x";
    slow.tailCount = 30;
    slow.tailPause = slowness * 50;
    m_server->setAnswer({}, slow);
    m_browser->setHtmlContent(html(pictures(65)));
    QTRY_VERIFY_WITH_TIMEOUT(isIdle(), 60000);
    QCOMPARE(m_server->maxConnectionsAtOnce(), 64);
}

void HtmlTextBrowserTest::onlySoManySilentDownloadsAreWaitedFor()
{
    const QScopedValueRollback<int> shorter(ImageDownloader::maxSilence(), 50);
    m_server->setAnswer({}, silence());
    m_browser->setHtmlContent(html(pictures(300)));
    QTRY_COMPARE_WITH_TIMEOUT(m_server->requests().size(), 300, 20000);
    QTRY_COMPARE(m_browser->findChildren<ImageDownloader *>().size(), kMaxSilentDownloads + 64);
}

void HtmlTextBrowserTest::everyPictureIsFetchedHoweverMany()
{
    m_server->setAnswer({}, page("bytes"));
    QSignalSpy reloads(m_browser.data(), SIGNAL(sourceChanged(QUrl)));
    m_browser->setHtmlContent(html(pictures(300)));
    QTRY_VERIFY_WITH_TIMEOUT(isIdle(), 30000);
    QCOMPARE(reloads.size(), 300);
    QCOMPARE(QDir(m_host.pictureFolder()).entryList(QDir::Files).size(), 300);
}

void HtmlTextBrowserTest::pagesTakeTheirTurnsApart()
{
    m_server->setAnswer({}, silence());
    m_browser->setHtmlContent(html(pictures(100)));
    QTRY_COMPARE(m_server->requests().size(), 64);
    for (int i = 0; i < 100; ++i)
        m_server->setAnswer("/q" + QByteArray::number(i) + ".png", page("bytes"));
    m_browser->setHtmlContent(html(pictures(100, QStringLiteral("q"))));
    // The first page's silent server doesn't keep the second page waiting.
    QTRY_COMPARE(m_browser->findChildren<ImageDownloader *>().size(), 100);
    QCOMPARE(m_server->requests().size(), 164);
    QVERIFY(m_server->maxConnectionsAtOnce() <= 128);
}

void HtmlTextBrowserTest::mayBeDeletedWhileDownloadsRun_data()
{
    QTest::addColumn<int>("finished");
    addRow("before the first request", -1);
    addRow("before the first answer", 0);
    addRow("after some", 5);
    addRow("when all but the silent ones are there", 20);
}

void HtmlTextBrowserTest::mayBeDeletedWhileDownloadsRun()
{
    QFETCH(const int, finished);
    m_server->setAnswer({}, silence());
    for (int i = 0; i < finished; ++i)
        m_server->setAnswer("/p" + QByteArray::number(i) + ".png", page("bytes"));
    m_browser->setHtmlContent(html(pictures(100)));
    const QList<ImageDownloader *> all = m_browser->findChildren<ImageDownloader *>();
    const QVector<QPointer<ImageDownloader>> downloaders(all.begin(), all.end());
    if (finished >= 0)
        QTRY_COMPARE(m_browser->findChildren<ImageDownloader *>().size(), 100 - finished);
    m_browser.reset();
    for (const QPointer<ImageDownloader> &downloader : downloaders)
        QVERIFY(!downloader);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void HtmlTextBrowserTest::theFinishSlotAloneTakesTheStoredDownload()
{
    m_server->setAnswer({}, silence());
    m_browser->setHtmlContent(html(pictures(70)));
    const auto finish = [this](const QString &name) {
        return QMetaObject::invokeMethod(m_browser.data(), "slotDownloadFinished",
            Q_ARG(QString, m_server->url().toString() + name), Q_ARG(int, 0));
    };
    QVERIFY(finish(QStringLiteral("p0.png"))); // One that runs,
    QVERIFY(finish(QStringLiteral("p69.png"))); // one that waits,
    QVERIFY(finish(QStringLiteral("unknown.png"))); // and none at all.
    QTRY_COMPARE(m_browser->findChildren<ImageDownloader *>().size(), 68);
    QTRY_COMPARE(m_server->requestCount("/p64.png"), 1);
    QCOMPARE(m_server->requestCount("/p65.png"), 0);
}

VEMO_TEST_MAIN(HtmlTextBrowserTest)
#include "tst_htmltextbrowser.moc"
