// SPDX-License-Identifier: MIT
#include "core/scaling_p.h"
#include "help/helphost.h"
#include "help/htmltextbrowser_p.h"
#include "help/imagedownloader_p.h"
#include "help/testserver.h"
#include "support/iswindows.h"
#include "support/vemotest.h"

#include <QScrollBar>
#include <QTextBlock>

class PageDisplayTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void picturesAppearAtTheirNaturalSize_data();
    void picturesAppearAtTheirNaturalSize();
    void aChangedPictureIsShownAgain_data();
    void aChangedPictureIsShownAgain();
    void anotherPageShowsItsOwnPictures();
    void pagesGrowWithTheirPictures();
    void aLongPageIsLaidOutOnce_data();
    void aLongPageIsLaidOutOnce();
    void distancesAreInDesignPixels_data();
    void distancesAreInDesignPixels();
    void theLineAtTheUpperEdgeStaysThere();
    void aReaderAtTheTopStaysAtTheTop();
    void theSelectionStays();
    void aPageFromAFileShowsPicturesBesideIt();
    void aPageReplacesTheFileThatALinkLedTo();

private:
    QString html(const QString &body) const
    {
        return QStringLiteral("<html><base href=\"%1\"><body>%2</body></html>")
            .arg(m_server->url().toString(), body);
    }
    bool isIdle() const { return m_browser->findChildren<ImageDownloader *>().isEmpty(); }
    int redPixels() const { return countPixels(m_browser.data(), Qt::red); }
    QString textAtTheTop() const
    {
        QTextCursor line = m_browser->cursorForPosition(QPoint(0, 0));
        line.select(QTextCursor::BlockUnderCursor);
        return line.selectedText().trimmed();
    }
    void scrollToTheMiddle();
    bool eventFilter(QObject *viewport, QEvent *event) override;

    int m_letters_at_resize = 0; // The most that the view had to lay out again.
    HelpHost m_host;
    QScopedPointer<TestServer> m_server;
    QScopedPointer<HtmlTextBrowser> m_browser;
};

/// An answer that comes so late that the page has been laid out and painted before.
static Answer latePicture(const QSize &size)
{
    const QByteArray bytes = pictureBytes(size, Qt::red);
    Answer answer;
    answer.bytes =
        "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(bytes.size()) + "\r\n\r\n";
    answer.tail = bytes;
    answer.tailCount = 1;
    answer.tailPause = 100;
    return answer;
}

static QString lines(int count)
{
    QString html;
    for (int i = 0; i < count; ++i)
        html += QStringLiteral("<p>line %1</p>").arg(i);
    return html;
}

void PageDisplayTest::init()
{
    VemoTest::init();
    m_server.reset(new TestServer);
    // Multiples of four, which are whole at the ratios 1.25, 1.5 and 1.75 too.
    m_server->setAnswer({}, latePicture({52, 40}));
    m_browser.reset(new HtmlTextBrowser(nullptr));
    m_browser->resize(350, 250);
    m_browser->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_browser.data()));
}

void PageDisplayTest::cleanup()
{
    m_browser.reset();
    m_server.reset();
    QDir(m_host.tempFolder() + QLatin1String("/kestrava_help")).removeRecursively();
    VemoTest::cleanup();
}

void PageDisplayTest::picturesAppearAtTheirNaturalSize_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<int>("pixels");
    const int one = 52 * 40;
    addRow("one", "<img src=\"a.png\">", one);
    addRow("below text", "<p>text<p><img src=\"a.png\"><p>text", one);
    addRow("by the parent folder", "<img src=\"../image/a.png\">", one);
    addRow("by its own folder", "<img src=\"./a.png\">", one);
    // Windows does not save it.
    const int device = kIsWindows ? 0 : one;
    addRow("by a name that is a device on Windows", "<img src=\"aux.png\">", device);
    addRow("by another such name", "<img src=\"com1.png\">", device);
    addRow("twice", "<img src=\"a.png\"><br><img src=\"a.png\">", 2 * one);
    addRow("two", "<img src=\"a.png\"> <img src=\"b.png\">", 2 * one);
    addRow("with a size of the page's", "<img width=\"20\" height=\"12\" src=\"a.png\">", 240);
    addRow("in a table", "<table><tr><td><img src=\"a.png\"></td></tr></table>", one);
    addRow("in a folder that is not there", "<img src=\"x/a.png\">", 0);
    addRow("by a root path", "<img src=\"/a.png\">", 0);
    addRow("by a query", "<img src=\"a.png?v=1\">", 0);
}

void PageDisplayTest::picturesAppearAtTheirNaturalSize()
{
    QFETCH(const QString, body);
    QFETCH(const int, pixels);
    m_browser->setHtmlContent(html(body));
    QCOMPARE(redPixels(), 0); // Painted once without.
    QTRY_VERIFY(isIdle());
    const qreal ratio = m_browser->devicePixelRatioF();
    QTRY_COMPARE(redPixels(), int(pixels * ratio * ratio));
}

void PageDisplayTest::aChangedPictureIsShownAgain_data()
{
    QTest::addColumn<QUrl>("url");
    QTest::newRow("page from the network") << QUrl(QStringLiteral("https://help.vemo.invalid/"));
    QTest::newRow("page from a file") << QUrl(QStringLiteral("file:///help/page.html"));
}

void PageDisplayTest::aChangedPictureIsShownAgain()
{
    QFETCH(const QUrl, url);
    m_browser->setPageUrl(url);
    m_browser->setHtmlContent(html(QStringLiteral("<img src=\"a.png\">")));
    QTRY_VERIFY(redPixels() > 0);
    m_server->setAnswer({}, page(pictureBytes({50, 40}, Qt::blue)));
    m_browser->setHtmlContent(html(QStringLiteral("<img src=\"a.png\">")));
    QTRY_VERIFY(countPixels(m_browser.data(), Qt::blue) > 0);
    QCOMPARE(redPixels(), 0);
}

void PageDisplayTest::anotherPageShowsItsOwnPictures()
{
    m_browser->setHtmlContent(html(QStringLiteral("<img src=\"a.png\">")));
    QTRY_VERIFY(redPixels() > 0);
    m_server->setAnswer("/b.png", latePicture({52, 60}));
    m_browser->setHtmlContent(html(QStringLiteral("<img src=\"b.png\">")));
    QCOMPARE(redPixels(), 0);
    QTRY_VERIFY(isIdle());
    const qreal ratio = m_browser->devicePixelRatioF();
    QTRY_COMPARE(redPixels(), int(52 * 60 * ratio * ratio));
}

void PageDisplayTest::pagesGrowWithTheirPictures()
{
    m_server->setAnswer({}, latePicture({50, 1000}));
    m_browser->setHtmlContent(html(QStringLiteral("<img src=\"a.png\">")));
    QCOMPARE(m_browser->verticalScrollBar()->maximum(), 0);
    QTRY_VERIFY(m_browser->verticalScrollBar()->maximum() > 700);
}

void PageDisplayTest::scrollToTheMiddle()
{
    QScrollBar *bar = m_browser->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 1000);
    bar->setValue(bar->maximum() / 2);
}

bool PageDisplayTest::eventFilter(QObject *viewport, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        m_letters_at_resize =
            qMax(m_letters_at_resize, m_browser->document()->characterCount() - 1);
    return VemoTest::eventFilter(viewport, event);
}

void PageDisplayTest::aLongPageIsLaidOutOnce_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<bool>("isHigh");
    const QString words = QStringLiteral("word ").repeated(10000);
    addRow("one paragraph", "<html>" + words, true);
    addRow("plain text", words, true);
    addRow("paragraphs", "<html>" + lines(2000), true);
    addRow("short paragraphs", "<html>" + lines(40), true);
    addRow("breaks", "<html>" + QStringLiteral("x<br>").repeated(40), true);
    const QString rows = QStringLiteral("<tr><td>x</td></tr>");
    addRow("rows of a table", "<html><table>" + rows.repeated(40) + "</table>", true);
    addRow("a page that fits", "<html>a word", false);
    addRow("tables side by side",
        "<html><table><tr>" + ("<td><table>" + rows.repeated(3) + "</table>").repeated(8), false);
    addRow("letters that are not shown", "<html><script>" + words + "</script>", false);
}

/// The scroll bar does not take its place from a page that has been laid out already.
void PageDisplayTest::aLongPageIsLaidOutOnce()
{
    QFETCH(const QString, html);
    QFETCH(const bool, isHigh);
    m_letters_at_resize = 0;
    m_browser->viewport()->installEventFilter(this);
    m_browser->setHtmlContent(html);
    m_browser->viewport()->removeEventFilter(this);
    QCOMPARE(m_letters_at_resize, 0);
    QCOMPARE(m_browser->verticalScrollBar()->isVisible(), isHigh);
    QCOMPARE(m_browser->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
}

void PageDisplayTest::distancesAreInDesignPixels_data()
{
    QTest::addColumn<QString>("html");
    for (const char *name : {"p", "pre", "div", "h1", "h2", "h3", "h4", "h5", "h6", "ul", "ol",
             "dl", "dt", "dd", "blockquote"})
        QTest::newRow(name) << QStringLiteral("<p>a<%1>b</%1><p>c").arg(QLatin1String(name));
    addRow("items", "<ul><li>a<li>b</ul><ol><li><p>c<li>d</ol>e");
    addRow("a list in a list", "<ul><li>a<ol><li>b<ul><li>c</ul></ol><li>d</ul>e");
    addRow("a definition in another", "<dl><dt>a<dd>b<dl><dd>c</dl></dl>d");
    addRow("a quotation in another", "<blockquote>a<blockquote><p>b</blockquote></blockquote>c");
}

void PageDisplayTest::distancesAreInDesignPixels()
{
    QFETCH(const QString, html);
    m_browser->setHtmlContent("<html>" + html);
    QTextDocument plain;
    plain.setHtml("<html>" + html);
    QTextBlock block = m_browser->document()->begin();
    for (QTextBlock other = plain.begin(); other.isValid(); other = other.next()) {
        const QTextBlockFormat format = block.blockFormat();
        const QTextBlockFormat unscaled = other.blockFormat();
        QCOMPARE(block.text(), other.text());
        QCOMPARE(format.topMargin(), qreal(scaled(unscaled.topMargin())));
        QCOMPARE(format.bottomMargin(), qreal(scaled(unscaled.bottomMargin())));
        QCOMPARE(format.leftMargin(), qreal(scaled(unscaled.leftMargin())));
        QCOMPARE(format.rightMargin(), qreal(scaled(unscaled.rightMargin())));
        QCOMPARE(format.indent(), unscaled.indent());
        block = block.next();
    }
    QCOMPARE(m_browser->document()->indentWidth(), qreal(scaled(plain.indentWidth())));
    // The page has the last word.
    m_browser->setHtmlContent("<html><style>p { margin-top: 5px }</style><p>a");
    QCOMPARE(m_browser->document()->begin().blockFormat().topMargin(), 5.0);
}

void PageDisplayTest::theLineAtTheUpperEdgeStaysThere()
{
    m_server->setAnswer("/a.png", latePicture({50, 300}));
    m_server->setAnswer("/b.png", latePicture({50, 300}));
    m_browser->setHtmlContent(html(QStringLiteral("<img src=\"a.png\">") + lines(200)
        + QStringLiteral("<img src=\"b.png\">")));
    scrollToTheMiddle();
    const QString line = textAtTheTop();
    const int before = m_browser->verticalScrollBar()->value();
    QVERIFY(line.startsWith(QLatin1String("line ")));
    QTRY_VERIFY(isIdle());
    // The picture above makes the page longer, by its height less the sign that stood there before.
    QTRY_VERIFY(m_browser->verticalScrollBar()->value() > before + 200);
    QCOMPARE(textAtTheTop(), line);
}

void PageDisplayTest::aReaderAtTheTopStaysAtTheTop()
{
    m_browser->setHtmlContent(html(QStringLiteral("<img src=\"a.png\">") + lines(100)));
    QTRY_VERIFY(redPixels() > 0);
    QCOMPARE(m_browser->verticalScrollBar()->value(), 0);
}

void PageDisplayTest::theSelectionStays()
{
    m_browser->setHtmlContent(html(QStringLiteral("<p>chosen words</p><img src=\"a.png\">")));
    QVERIFY(m_browser->find(QStringLiteral("chosen")));
    QTRY_VERIFY(redPixels() > 0);
    QCOMPARE(m_browser->textCursor().selectedText(), QStringLiteral("chosen"));
}

void PageDisplayTest::aPageFromAFileShowsPicturesBesideIt()
{
    m_host.addHelpFile(QStringLiteral("enu/a.png"), pictureBytes({50, 40}, Qt::red));
    m_browser->setSearchPaths({m_host.helpPath() + QLatin1String("/enu")});
    m_browser->setPageUrl(
        QUrl::fromLocalFile(m_host.helpPath() + QLatin1String("/enu/index.html")));
    m_browser->setHtmlContent(QStringLiteral("<html><img src=\"a.png\"></html>"));
    QVERIFY(redPixels() > 0);
    QVERIFY(m_server->requests().isEmpty());
}

void PageDisplayTest::aPageReplacesTheFileThatALinkLedTo()
{
    m_host.addHelpFile(QStringLiteral("enu/other.html"), "<html>other</html>");
    m_browser->setSource(QUrl::fromLocalFile(m_host.helpPath() + QLatin1String("/enu/other.html")));
    QCOMPARE(m_browser->toPlainText(), QStringLiteral("other"));
    m_browser->setHtmlContent(html(QStringLiteral("new <img src=\"a.png\">")));
    QTRY_VERIFY(isIdle());
    QVERIFY(m_browser->toPlainText().startsWith(QLatin1String("new")));
}

VEMO_TEST_MAIN(PageDisplayTest)
#include "tst_pagedisplay.moc"
