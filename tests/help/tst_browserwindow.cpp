// SPDX-License-Identifier: MIT
#include "help/helphost.h"
#include "help/testserver.h"
#include "support/vemotest.h"

#include <vemo/BrowserWindow>
#include <vemo/StyleManager>

#include <QClipboard>
#include <QLayout>
#include <QNetworkReply>
#include <QScrollBar>
#include <QTextBrowser>

class BrowserWindowTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void isAnApplicationModalDialogAroundATextBrowser();
    void scrollBarsAreStyledUnderAStyledParent();
    void signalsAndSlotsHaveTheirNames();
    void fetchesThePageWithAPlainRequest();
    void theBodyIsShownAsUtf8_data();
    void theBodyIsShownAsUtf8();
    void aFailureLeavesTheViewAndFallsBack_data();
    void aFailureLeavesTheViewAndFallsBack();
    void anAddressThatWasNeverSetFails();
    void reloadFetchesTheSameAddressAgain();
    void aReloadDoesNotCancelTheEarlierFetch();
    void anAbortReachesEveryOpenFetch();
    void aPageFromAFileIsShownWithItsFiles();
    void aPageFromAFileRefersToWhatLiesBesideIt();
    void aPageOverTheLimitFailsWithOneWarning_data();
    void aPageOverTheLimitFailsWithOneWarning();
    void aPageThatTakesTooLongFails_data();
    void aPageThatTakesTooLongFails();
    void theTitleIsCut();
    void mayBeDeletedAtAnyMoment_data();
    void mayBeDeletedAtAnyMoment();
    void mayBeDeletedFromTheFallback_data();
    void mayBeDeletedFromTheFallback();

private:
    HelpHost m_host;
    QScopedPointer<TestServer> m_server;
};

static constexpr int kMebibyte = 1024 * 1024;

namespace {

/// Counts failures, and can delete itself on one.
class CountingWindow : public BrowserWindow
{
public:
    CountingWindow() : BrowserWindow(nullptr) { }

    QTextBrowser *view() const { return findChild<QTextBrowser *>(); }
    QString text() const { return view()->toPlainText(); }

    int failures = 0;
    bool diesOfFailure = false;

private:
    void fallbackOffline() override
    {
        ++failures;
        if (diesOfFailure)
            delete this;
    }
};

Answer silence()
{
    Answer answer;
    answer.end = Answer::KEEP_OPEN;
    return answer;
}

} // namespace

void BrowserWindowTest::init()
{
    VemoTest::init();
    m_server.reset(new TestServer);
}

void BrowserWindowTest::cleanup()
{
    m_server.reset();
    VemoTest::cleanup();
}

void BrowserWindowTest::isAnApplicationModalDialogAroundATextBrowser()
{
    const CountingWindow window;
    QCOMPARE(BrowserWindow::TIMEOUT, 10000);
    QCOMPARE(window.windowFlags(), QDialog(nullptr).windowFlags());
    QCOMPARE(window.windowModality(), Qt::ApplicationModal);
    QCOMPARE(window.styleSheet(), getStyleSheet("component.scrollbar"));
    QVERIFY(qobject_cast<QVBoxLayout *>(window.layout()));
    QCOMPARE(window.layout()->count(), 1);
    QCOMPARE(window.layout()->itemAt(0)->widget(), window.view());
    QVERIFY(window.view()->openExternalLinks());
    QCOMPARE(window.view()->parentWidget(), &window);
    QCOMPARE(window.text(), QString());
    QVERIFY(!window.isVisible());
}

void BrowserWindowTest::scrollBarsAreStyledUnderAStyledParent()
{
    QWidget parent;
    parent.setStyleSheet("#other { color: red; }");
    BrowserWindow window(&parent);
    const BrowserWindow alone(nullptr);
    window.show();
    const QList<int> widths = {
        window.findChild<QTextBrowser *>()->verticalScrollBar()->sizeHint().width(),
        alone.findChild<QTextBrowser *>()->verticalScrollBar()->sizeHint().width()};
    QCOMPARE(widths.first(), widths.last());
}

void BrowserWindowTest::signalsAndSlotsHaveTheirNames()
{
    const QMetaObject &meta = BrowserWindow::staticMetaObject;
    QVERIFY(meta.indexOfSignal("sigAbortRequest()") >= 0);
    const QMetaMethod receive = meta.method(meta.indexOfSlot("slotReceiveReply(QNetworkReply*)"));
    QCOMPARE(receive.parameterNames(), QList<QByteArray>({"reply"}));
    QCOMPARE(receive.access(), QMetaMethod::Private);
    const QMetaMethod timeout = meta.method(meta.indexOfSlot("slotQueryTimeout()"));
    QCOMPARE(timeout.access(), QMetaMethod::Private);
}

void BrowserWindowTest::fetchesThePageWithAPlainRequest()
{
    m_server->setAnswer("/a/b.html", page("<html>hello</html>"));
    CountingWindow window;
    QUrl url = m_server->url(QStringLiteral("/a/b.html"));
    url.setQuery(QStringLiteral("x=1&y=%26"));
    window.reload(url);
    QTRY_COMPARE(window.text(), QStringLiteral("hello"));
    QCOMPARE(m_server->requests().size(), 1);
    const QByteArray request = m_server->requests().first();
    QVERIFY2(request.startsWith("GET /a/b.html?x=1&y=%26 HTTP/1.1\r\n"), request.constData());
    // What the network classes send by themselves, and nothing else.
    for (const QByteArray &line : request.split('\n').mid(1)) {
        const QByteArray name = line.split(':').first().trimmed().toLower();
        const QList<QByteArray> own {
            "host", "connection", "accept-encoding", "accept-language", "user-agent", ""};
        QVERIFY2(own.contains(name), line.constData());
    }
    QCOMPARE(window.failures, 0);
}

void BrowserWindowTest::theBodyIsShownAsUtf8_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("text");
    addRow("letters",
        QByteArray("<html>Gr\xC3\xB6\xC3\x9F"
                   "e \xE5\xB8\xAE\xE5\x8A\xA9</html>"),
        QString::fromUtf8("Gr\u00F6\u00DFe \u5E2E\u52A9"));
    addRow("plain text", QByteArray("a < b & c"), "a < b & c");
    addRow("empty", QByteArray(), "");
    addRow("a zero byte does not end it", QByteArray("<html>before\0after</html>", 25),
        QString::fromLatin1("before\0after", 12));
    addRow("invalid bytes",
        QByteArray("<html>a\xFF"
                   "b</html>"),
        QString("a") + QChar(0xFFFD) + "b");
    addRow("a declared other encoding",
        QByteArray("<html><meta charset=\"iso-8859-1\">\xC3\xB6</html>"), QString(QChar(0xF6)));
}

void BrowserWindowTest::theBodyIsShownAsUtf8()
{
    QFETCH(const QByteArray, body);
    QFETCH(QString, text);
    m_server->setAnswer("/", page(body, "Content-Type: text/html; charset=iso-8859-1\r\n"));
    CountingWindow window;
    window.view()->setPlainText(QStringLiteral("before"));
    window.reload(m_server->url());
    QTRY_VERIFY(window.text() != QLatin1String("before"));
    // The text engine shows a zero byte as a blank or leaves it out: what follows it is there.
    if (text.contains(QChar(0)))
        QVERIFY2(window.text().endsWith(QLatin1String("after")), qPrintable(window.text()));
    else
        QCOMPARE(window.text(), text);
    QCOMPARE(window.failures, 0);
}

void BrowserWindowTest::aFailureLeavesTheViewAndFallsBack_data()
{
    QTest::addColumn<QUrl>("url");
    const auto address = [](const char *text) { return QUrl(QString::fromLatin1(text)); };
    addRow("404", QUrl()); // The test server's own.
    QTest::newRow("nobody listens") << address("http://127.0.0.1:1/");
    addRow("a relative address", address("page.html"));
    QTest::newRow("an unknown scheme") << address("gopher://127.0.0.1/");
    QTest::newRow("an invalid address") << address("http://:80:80/");
    QTest::newRow("a missing file") << address("file:///no/such/page.html");
}

void BrowserWindowTest::aFailureLeavesTheViewAndFallsBack()
{
    QFETCH(const QUrl, url);
    CountingWindow window;
    window.view()->setPlainText(QStringLiteral("before"));
    window.reload(url.isEmpty() ? m_server->url() : url);
    QCOMPARE(window.failures, 0); // Never from within reload().
    QTRY_COMPARE(window.failures, 1);
    QCOMPARE(window.text(), QStringLiteral("before"));
}

void BrowserWindowTest::anAddressThatWasNeverSetFails()
{
    CountingWindow window;
    window.reload();
    QCOMPARE(window.failures, 0);
    QTRY_COMPARE(window.failures, 1);
}

void BrowserWindowTest::reloadFetchesTheSameAddressAgain()
{
    m_server->setAnswer("/a", page("one"));
    CountingWindow window;
    window.reload(m_server->url(QStringLiteral("/a")));
    QTRY_COMPARE(window.text(), QStringLiteral("one"));
    m_server->setAnswer("/a", page("two"));
    window.reload();
    QTRY_COMPARE(window.text(), QStringLiteral("two"));
    QCOMPARE(m_server->requestCount("/a"), 2);
}

void BrowserWindowTest::aReloadDoesNotCancelTheEarlierFetch()
{
    Answer late = page("");
    late.bytes = "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\n";
    late.tail = "late";
    late.tailCount = 1;
    late.tailPause = 200;
    m_server->setAnswer("/late", late);
    m_server->setAnswer("/soon", page("soon"));
    CountingWindow window;
    window.reload(m_server->url(QStringLiteral("/late")));
    window.reload(m_server->url(QStringLiteral("/soon")));
    QTRY_COMPARE(window.text(), QStringLiteral("soon"));
    QTRY_COMPARE(window.text(), QStringLiteral("late"));
    QCOMPARE(window.failures, 0);
}

void BrowserWindowTest::anAbortReachesEveryOpenFetch()
{
    m_server->setAnswer("/silent", silence());
    m_server->setAnswer("/done", page("done"));
    CountingWindow window;
    window.reload(m_server->url(QStringLiteral("/done")));
    QTRY_COMPARE(window.text(), QStringLiteral("done"));
    window.reload(m_server->url(QStringLiteral("/silent")));
    window.reload();
    QTRY_COMPARE(m_server->requestCount("/silent"), 2);
    Q_EMIT window.sigAbortRequest();
    QCOMPARE(window.failures, 2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Q_EMIT window.sigAbortRequest(); // Nothing is open any more.
    QCOMPARE(window.failures, 2);
    QCOMPARE(window.text(), QStringLiteral("done"));
}

void BrowserWindowTest::aPageFromAFileIsShownWithItsFiles()
{
    m_host.addHelpFile(QStringLiteral("page.html"),
        "<html><img src=\"" + m_host.helpPath().toUtf8() + "/a.png\"></html>");
    m_host.addHelpFile(QStringLiteral("a.png"), pictureBytes({50, 50}, Qt::red));
    CountingWindow window;
    window.show();
    window.reload(QUrl::fromLocalFile(m_host.helpPath() + QLatin1String("/page.html")));
    QTRY_VERIFY(countPixels(window.view(), Qt::red) >= 2500);
    // The same text from a server gets none.
    m_server->setAnswer(
        "/", page(fileBytes(m_host.helpPath() + QLatin1String("/page.html")) + "."));
    window.reload(m_server->url());
    QTRY_VERIFY(window.text().endsWith(QLatin1Char('.')));
    QCOMPARE(countPixels(window.view(), Qt::red), 0);
}

void BrowserWindowTest::aPageFromAFileRefersToWhatLiesBesideIt()
{
    m_host.addHelpFile(QStringLiteral("beside/page.html"),
        "<html><a href=\"other.html\">link</a><img src=\"a.png\"></html>");
    m_host.addHelpFile(QStringLiteral("beside/other.html"), "<html>the other page</html>");
    m_host.addHelpFile(QStringLiteral("beside/a.png"), pictureBytes({50, 50}, Qt::red));
    CountingWindow window;
    window.show();
    window.reload(QUrl::fromLocalFile(m_host.helpPath() + QLatin1String("/beside/page.html")));
    QTRY_VERIFY(countPixels(window.view(), Qt::red) >= 2500);
    QTextCursor start(window.view()->document());
    start.setPosition(1);
    QTest::mouseClick(window.view()->viewport(), Qt::LeftButton, Qt::NoModifier,
        window.view()->cursorRect(start).center() + QPoint(3, 0));
    QCOMPARE(window.text(), QStringLiteral("the other page"));
}

void BrowserWindowTest::aPageOverTheLimitFailsWithOneWarning_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("failures");
    addRow("32 MiB", 32 * kMebibyte, 0);
    addRow("one byte more", 32 * kMebibyte + 1, 1);
    addRow("much more", 80 * kMebibyte, 1);
}

void BrowserWindowTest::aPageOverTheLimitFailsWithOneWarning()
{
    QFETCH(const int, size);
    QFETCH(const int, failures);
    // A comment, which costs nothing to lay out.
    const QByteArray before = "<html><!--";
    const QByteArray after = "-->the end";
    Answer answer;
    answer.bytes = "HTTP/1.1 200 OK\r\n\r\n" + before
        + QByteArray(size - before.size() - after.size(), '\n') + after;
    CountingWindow window;
    m_server->setAnswer("/", answer);
    window.reload(m_server->url());
    QTRY_VERIFY_WITH_TIMEOUT(
        window.failures == 1 || window.text() == QLatin1String("the end"), 30000);
    QCOMPARE(window.failures, failures);
    const QStringList warning(
        QStringLiteral("Too much data from \"%1\"").arg(m_server->url().toString()));
    QCOMPARE(messages.take(), failures ? warning : QStringList());
}

void BrowserWindowTest::aPageThatTakesTooLongFails_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("warning");
    const QString deep = QStringLiteral("Page is nested too deeply \"%1\"");
    const QString slow = QStringLiteral("Page takes too long to show \"%1\"");
    addRow("tables inside each other",
        QByteArray("<html>") + QByteArray("< table><tr><td>").repeated(22), deep);
    addRow("pictures in a paragraph",
        QByteArray("<html>") + QByteArray("<img src=\"a\">").repeated(100000), slow);
    addRow("lines of plain text", QByteArray(1000000, '\n'), slow);
}

void BrowserWindowTest::aPageThatTakesTooLongFails()
{
    QFETCH(const QByteArray, body);
    QFETCH(const QString, warning);
    m_server->setAnswer("/", page(body));
    CountingWindow window;
    window.view()->setPlainText(QStringLiteral("before"));
    window.reload(m_server->url());
    QTRY_COMPARE(window.failures, 1);
    QCOMPARE(window.text(), QStringLiteral("before"));
    QCOMPARE(messages.take(), QStringList(warning.arg(m_server->url().toString())));
}

void BrowserWindowTest::theTitleIsCut()
{
    const QByteArray title(17 * kMebibyte, 't');
    m_server->setAnswer("/", page("<html><title>" + title + "</title>text</html>"));
    CountingWindow window;
    window.reload(m_server->url());
    QTRY_COMPARE(window.text(), QStringLiteral("text"));
    QCOMPARE(window.windowTitle(), QString(200, QLatin1Char('t')));
    // However the title got into the document.
    window.view()->document()->setMetaInformation(
        QTextDocument::DocumentTitle, QString(kMebibyte, QLatin1Char('u')));
    window.view()->setPlainText(QStringLiteral("other"));
    QVERIFY(window.windowTitle().size() <= 200);
}

void BrowserWindowTest::mayBeDeletedAtAnyMoment_data()
{
    QTest::addColumn<int>("moment");
    addRow("before its request", 0);
    addRow("before the answer", 1);
    addRow("inside the answer", 2);
    addRow("while pictures are fetched", 3);
    addRow("closed, then deleted", 4);
}

void BrowserWindowTest::mayBeDeletedAtAnyMoment()
{
    QFETCH(const int, moment);
    Answer half;
    half.bytes = "HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nhalf";
    half.end = Answer::KEEP_OPEN;
    m_server->setAnswer({}, moment == 2 ? half : silence());
    if (moment == 3)
        m_server->setAnswer("/",
            page("<html><base href=\"" + m_server->url().toEncoded()
                + "\">text<img src=\"a.png\"><img src=\"b.png\"></html>"));
    QPointer<CountingWindow> window(new CountingWindow);
    window->setAttribute(Qt::WA_DeleteOnClose, moment == 4);
    window->show();
    window->reload(m_server->url());
    if (moment > 0)
        QTRY_COMPARE(m_server->requests().size(), moment == 3 ? 3 : 1);
    if (moment == 4)
        window->close();
    else
        delete window.data();
    QTRY_VERIFY(!window);
    QCoreApplication::processEvents();
}

void BrowserWindowTest::mayBeDeletedFromTheFallback_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<bool>("aborts");
    addRow("after an error", QByteArray("/missing"), false);
    addRow("after an abort", QByteArray("/silent"), true);
}

void BrowserWindowTest::mayBeDeletedFromTheFallback()
{
    QFETCH(const QByteArray, path);
    QFETCH(const bool, aborts);
    m_server->setAnswer("/silent", silence());
    QPointer<CountingWindow> window(new CountingWindow);
    window->diesOfFailure = true;
    window->reload(m_server->url(QString::fromLatin1(path)));
    window->reload(m_server->url(QString::fromLatin1(path)));
    if (aborts) {
        QTRY_COMPARE(m_server->requests().size(), 2);
        Q_EMIT window->sigAbortRequest();
    }
    QTRY_VERIFY(!window);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

VEMO_TEST_MAIN(BrowserWindowTest)
#include "tst_browserwindow.moc"
