// SPDX-License-Identifier: MIT
#include "help/eventmeter.h"
#include "help/helphost.h"
#include "help/serverrows.h"
#include "support/vemotest.h"

#include <vemo/HelpWindow>

#include <QTextBrowser>

#include <memory>

Q_DECLARE_METATYPE(ServerRow)
Q_DECLARE_METATYPE(TestCertificates::Kind)

class HelpServerTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void theReaderGetsThePageOrTheLocalOne_data();
    void theReaderGetsThePageOrTheLocalOne();
    void theLocalPageIsShownIfNobodyListens();
    void aServerWithoutEncryptionShowsTheLocalPage();
    void endlessBodiesAreBrokenOff();
    void whatNeverEndsIsLeftAfterTenSeconds();
    void picturesTakeTheirOwnWay_data();
    void picturesTakeTheirOwnWay();

private:
    std::unique_ptr<HelpWindow> openHelp(const QUrl &knowledgeBase) const;

    HelpHost m_host;
    TestCertificates m_certificates;
    QMap<double, QString> m_events;
};

static const QString kLocal = QStringLiteral("the local page");

static QString textOf(const HelpWindow &window)
{
    return window.findChild<QTextBrowser *>()->toPlainText();
}

static EventMeter *meter()
{
    return static_cast<EventMeter *>(qApp);
}

/// Tells what the text engine alone takes for the page that takes longest: nobody who shows the
/// page in one piece can do with less.
static void tellCostOfTextEngine()
{
    QString html;
    for (const ServerRow &row : bodyRows())
        if (qstrcmp(row.name, "10000 pictures") == 0)
            html = QString::fromUtf8(row.answer.bytes.mid(row.answer.bytes.indexOf("<html>")));
    QTextDocument document;
    double start = EventMeter::now();
    document.setHtml(html);
    qInfo("10000 pictures, QTextDocument::setHtml alone: %.1f ms", EventMeter::now() - start);
    QTextBrowser browser;
    browser.show();
    QCoreApplication::processEvents();
    start = EventMeter::now();
    browser.setText(html);
    qInfo("10000 pictures, QTextBrowser::setText alone: %.1f ms", EventMeter::now() - start);
}

void HelpServerTest::initTestCase()
{
    if (!m_certificates.isValid())
        QSKIP("There is no openssl command to make certificates with");
    m_certificates.trust();
    m_host.addHelpFile(QStringLiteral("enu/page.html"), kLocal.toUtf8());
}

void HelpServerTest::init()
{
    VemoTest::init();
    meter()->reset();
}

void HelpServerTest::cleanup()
{
    const char *tag = QTest::currentDataTag();
    const QString name = QString::fromUtf8(tag ? tag : QTest::currentTestFunction());
    m_events.insert(
        meter()->maxMilliseconds(), QStringLiteral("%1 (%2)").arg(name, meter()->receiver()));
    VemoTest::cleanup();
}

void HelpServerTest::cleanupTestCase()
{
    // Printed but not checked, because it depends on the load of the machine.
    for (auto event = m_events.constBegin(); event != m_events.constEnd(); ++event)
        if (event.key() > 10)
            qInfo("longest event %.1f ms of processor time: %s", event.key(),
                qPrintable(event.value()));
    tellCostOfTextEngine();
}

std::unique_ptr<HelpWindow> HelpServerTest::openHelp(const QUrl &knowledgeBase) const
{
    HelpWindow::setKnowledgeBaseUrl(knowledgeBase);
    HelpContext context;
    context.lang = QStringLiteral("enu");
    context.helpPath = m_host.helpPath();
    context.link = QStringLiteral("page.html");
    auto window = std::make_unique<HelpWindow>(context, nullptr);
    window->findChild<QTextBrowser *>()->setPlainText(QStringLiteral("nothing yet"));
    window->show();
    return window;
}

void HelpServerTest::theReaderGetsThePageOrTheLocalOne_data()
{
    QTest::addColumn<ServerRow>("row");
    for (const auto &rows : {statusRows(), lengthRows(), headRows(), bodyRows(), certificateRows()})
        for (const ServerRow &row : rows)
            QTest::newRow(row.name) << row;
}

void HelpServerTest::theReaderGetsThePageOrTheLocalOne()
{
    QFETCH(const ServerRow, row);
    TestServer server(m_certificates.server(row.certificate));
    server.setAnswer("/cgi/knowledgebase/", row.answer);
    const auto window = openHelp(server.url());
    QTRY_VERIFY_WITH_TIMEOUT(textOf(*window) != QLatin1String("nothing yet"), 20000);
    const QString text = textOf(*window).remove(QChar(0xFFFC)).simplified();
    QCOMPARE(text, row.text.isNull() ? kLocal : row.text.simplified());
    const QStringList warnings = messages.take();
    QCOMPARE(warnings.size(), row.warning ? 1 : 0);
    if (row.warning)
        QVERIFY(warnings.first().startsWith(QLatin1String(row.warning)));
    if (!row.text.isNull())
        QCOMPARE(server.requests().size(), 1); // Redirects are not followed.
    if (row.certificate != TestCertificates::GOOD)
        QVERIFY(server.requests().isEmpty()); // Not a word to a stranger.
}

void HelpServerTest::theLocalPageIsShownIfNobodyListens()
{
    QUrl url;
    {
        const TestServer server(m_certificates.server(TestCertificates::GOOD));
        url = server.url();
    }
    const auto window = openHelp(url);
    QTRY_COMPARE(textOf(*window), kLocal);
}

void HelpServerTest::aServerWithoutEncryptionShowsTheLocalPage()
{
    TestServer server;
    Answer answer = page("<html>online</html>");
    server.setAnswer({}, answer);
    QUrl url = server.url();
    url.setScheme(QStringLiteral("https"));
    const auto window = openHelp(url);
    // The server waits for the end of a request that never comes: until then there is nothing.
    QTRY_COMPARE_WITH_TIMEOUT(textOf(*window), kLocal, 20000);
    QVERIFY(server.requests().isEmpty());
}

void HelpServerTest::endlessBodiesAreBrokenOff()
{
    Answer endless;
    endless.bytes = "HTTP/1.1 200 OK\r\n\r\n<html>";
    endless.tail = QByteArray(256 * 1024, 'x');
    endless.tailCount = -1;
    TestServer server(m_certificates.server(TestCertificates::GOOD));
    server.setAnswer("/cgi/knowledgebase/", endless);
    const auto window = openHelp(server.url());
    QTRY_COMPARE_WITH_TIMEOUT(textOf(*window), kLocal, 20000);
    const QStringList warnings = messages.take();
    QCOMPARE(warnings.size(), 1);
    QVERIFY(warnings.first().startsWith(QLatin1String("Too much data from")));
}

void HelpServerTest::whatNeverEndsIsLeftAfterTenSeconds()
{
    struct Case
    {
        ServerRow row;
        std::unique_ptr<TestServer> server;
        std::unique_ptr<HelpWindow> window;
    };
    std::vector<Case> cases;
    QElapsedTimer elapsed;
    elapsed.start();
    for (const ServerRow &row : endlessRows()) {
        Case next {
            row, std::make_unique<TestServer>(m_certificates.server(row.certificate)), nullptr};
        next.server->setAnswer("/cgi/knowledgebase/", row.answer);
        next.window = openHelp(next.server->url());
        cases.push_back(std::move(next));
    }
    for (const Case &each : cases) {
        const QString expected = each.row.text.isNull() ? kLocal : each.row.text;
        QTRY_VERIFY2_WITH_TIMEOUT(textOf(*each.window) == expected, each.row.name, 20000);
        if (each.row.text.isNull())
            QVERIFY(elapsed.elapsed() > BrowserWindow::TIMEOUT * 9 / 10);
    }
    qInfo("all local pages after %lld ms", elapsed.elapsed());
}

void HelpServerTest::picturesTakeTheirOwnWay_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<TestCertificates::Kind>("certificate");
    QTest::addColumn<bool>("isShown");
    const QByteArray picture = pictureBytes({30, 30}, Qt::red);
    const auto add = [](const char *name, const Answer &answer, bool isShown,
                         TestCertificates::Kind kind = TestCertificates::GOOD) {
        QTest::newRow(name) << answer << kind << isShown;
    };
    Answer cut = page(picture);
    cut.bytes.chop(20);
    Answer reset = cut;
    reset.end = Answer::RESET;
    add("whole", page(picture), true);
    add("with a wrong type", page(picture, "Content-Type: text/html\r\n"), true);
    add("cut off", cut, false);
    add("reset", reset, false);
    add("404 with a picture", status("404 x", {}, picture), false);
    add("302 with a picture", status("302 x", "Location: file:///etc/x.png\r\n", picture), true);
    add("empty", page({}), false);
    add("a page instead", page("<html>error</html>"), false);
    add("no answer", Answer(), false);
    add("another host's certificate", page(picture), false, TestCertificates::WRONG_HOST);
    add("an unknown authority's certificate", page(picture), false,
        TestCertificates::UNKNOWN_AUTHORITY);
}

void HelpServerTest::picturesTakeTheirOwnWay()
{
    QFETCH(const Answer, answer);
    QFETCH(const TestCertificates::Kind, certificate);
    QFETCH(const bool, isShown);
    TestServer pictures(m_certificates.server(certificate));
    pictures.setAnswer("/a.png", answer);
    TestServer server(m_certificates.server(TestCertificates::GOOD));
    server.setAnswer("/cgi/knowledgebase/",
        page("<html><base href=\"" + pictures.url().toEncoded()
            + "\">online<img src=\"a.png\"></html>"));
    QFile::remove(m_host.pictureFolder() + "/a.png");
    const auto window = openHelp(server.url());
    auto *view = window->findChild<QTextBrowser *>();
    QSignalSpy reloads(view, SIGNAL(sourceChanged(QUrl)));
    QTRY_COMPARE_WITH_TIMEOUT(reloads.size(), 1, 20000);
    QTRY_COMPARE(countPixels(view, Qt::red), isShown ? 900 : 0);
    QVERIFY(textOf(*window).startsWith(QLatin1String("online")));
}

int main(int argc, char **argv)
{
    setTestEnvironment();
    EventMeter app(argc, argv);
    keepScreensReachable();
    HelpServerTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_helpserver.moc"
