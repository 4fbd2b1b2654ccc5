// SPDX-License-Identifier: MIT
#include "help/helphost.h"
#include "help/helplimits_p.h"
#include "help/htmltextbrowser_p.h"
#include "help/imagedownloader_p.h"
#include "help/picturefolder_p.h"
#include "help/testserver.h"
#include "help/webcontent_p.h"
#include "support/vemotest.h"

#include <QBuffer>
#include <QDesktopServices>
#include <QImageReader>
#include <QScrollBar>
#include <QTextDocumentFragment>
#include <QtEndian>

class PageSafetyTest : public VemoTest
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
    void onlyPlainFormatsAreShown_data();
    void onlyPlainFormatsAreShown();
    void plainFormatsAreReadByTheirContent_data();
    void plainFormatsAreReadByTheirContent();
    void aDataAddressIsNeverAFileName_data();
    void aDataAddressIsNeverAFileName();
    void picturesAreJudgedByTheirHeader_data();
    void picturesAreJudgedByTheirHeader();
    void thePicturesOfAPageHaveOneLimit();
    void aPictureWiderThanThePageIsFittedIn();
    void thePicturesOfAPageAreNotTooHighTogether_data();
    void thePicturesOfAPageAreNotTooHighTogether();
    void nothingIsReadFromAFolderThatIsNotTheUsersOwn_data();
    void nothingIsReadFromAFolderThatIsNotTheUsersOwn();
    void noAddressOfAPageIsAFileToTheLayout();
    void picturesAreOnlyFetchedFromTheWeb_data();
    void picturesAreOnlyFetchedFromTheWeb();
    void aLaterPageFromAFileGivesNoLeaveToAnEarlierOne();
    void aPageFromAFileMayFetchFiles();
    void aBrokenPictureIsMissing_data();
    void aBrokenPictureIsMissing();
    void linksOfAPageFromTheNetworkOpenOutside_data();
    void linksOfAPageFromTheNetworkOpenOutside();
    void anAnchorScrollsEvenAfterALocalLink();
    void linksOfAPageFromAFileOpenInPlace();

private:
    QString secret() const { return m_host.helpPath() + QLatin1String("/secret.png"); }
    QString secretUrl() const { return addressOf(secret()); }
    /// The path from the root of a URL, which has no drive.
    QString rootPath(const QString &path) const { return path.mid(path.indexOf(QLatin1Char('/'))); }
    QString addressOf(const QString &path) const { return QUrl::fromLocalFile(path).toString(); }
    bool isIdle() const { return m_browser->findChildren<ImageDownloader *>().isEmpty(); }
    void clickLink();

    HelpHost m_host;
    QScopedPointer<HtmlTextBrowser> m_browser;
    QList<QUrl> m_opened;
};

void PageSafetyTest::initTestCase()
{
    m_host.addHelpFile(QStringLiteral("secret.png"), pictureBytes({60, 60}, Qt::red));
    m_host.addHelpFile(QStringLiteral("secret.css"), "p { color: #ff0000; background: #ff0000; }");
    m_host.addHelpFile(QStringLiteral("page/inside.png"), pictureBytes({60, 60}, Qt::blue));
    m_host.addHelpFile(QStringLiteral("page/other.html"), "<html>the other page</html>");
    QVERIFY(QFile::link(secret(), m_host.helpPath() + QLatin1String("/page/link.png")));
    // What a bare name means without a search path.
    QVERIFY(QDir::setCurrent(m_host.helpPath()));
    for (const char *scheme : {"http", "https", "file", "mailto", "ftp", "c", "javascript", "admin",
             "smb", "vscode", "data", "about"})
        QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "openAddress");
}

void PageSafetyTest::init()
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

void PageSafetyTest::cleanup()
{
    m_browser.reset();
    QDir(m_host.tempFolder() + QLatin1String("/kestrava_help")).removeRecursively();
    VemoTest::cleanup();
}

void PageSafetyTest::aPageFromTheNetworkReadsNoLocalFile_data()
{
    QTest::addColumn<QString>("body");
    addRow("by its path", QStringLiteral("<img src=\"%1\">").arg(secret()));
    QTest::newRow("by its address") << QStringLiteral("<img src=\"%1\">").arg(secretUrl());
    QTest::newRow("by its address with a host")
        << QStringLiteral("<img src=\"file://localhost%1\">").arg(QUrl(secretUrl()).path());
    QTest::newRow("by a path with a host")
        << QStringLiteral("<img src=\"//host%1\">").arg(QUrl(secretUrl()).path());
    addRow("beside the process", "<img src=\"secret.png\">");
    addRow("beside the process, percent-encoded", "<img src=\"secret%2Epng\">");
    addRow("above the search path", "<img src=\"../secret.png\">");
    addRow("above the search path, percent-encoded", "<img src=\"%2e%2e/secret.png\">");
    addRow("above the search path, from inside", "<img src=\"x/../../secret.png\">");
    addRow("by a link inside the search path", "<img src=\"link.png\">");
    addRow(
        "as a background", QStringLiteral("<body background=\"%1\"><p>x</p></body>").arg(secret()));
    addRow("as a style's background",
        QStringLiteral("<p style=\"background-image:url(%1)\">text</p>").arg(secret()));
    addRow("as a list's sign",
        QStringLiteral("<ul style=\"list-style-image:url(%1)\"><li>x</ul>").arg(secret()));
    QTest::newRow("in other capitals")
        << QStringLiteral("<IMG SRC='FILE%1'>").arg(secretUrl().mid(4));
}

void PageSafetyTest::aPageFromTheNetworkReadsNoLocalFile()
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

void PageSafetyTest::aPageFromTheNetworkReadsNoLocalStyleSheet_data()
{
    QTest::addColumn<QString>("head");
    const QString path = m_host.helpPath() + QLatin1String("/secret.css");
    addRow("by a path",
        QStringLiteral("<link rel=\"stylesheet\" type=\"text/css\" href=\"%1\">").arg(path));
    QTest::newRow("by an address")
        << QStringLiteral("<link rel=\"stylesheet\" type=\"text/css\" href=\"%1\">")
               .arg(addressOf(path));
    addRow("imported", QStringLiteral("<style>@import url(%1);</style>").arg(path));
    addRow("beside the process",
        QStringLiteral("<link rel=\"stylesheet\" type=\"text/css\" href=\"secret.css\">"));
}

void PageSafetyTest::aPageFromTheNetworkReadsNoLocalStyleSheet()
{
    QFETCH(const QString, head);
    const QString html = QStringLiteral("<html><head>%1</head><body><p>text</p></body></html>");
    m_browser->setHtmlContent(html.arg(head));
    QCOMPARE(countPixels(m_browser.data(), Qt::red), 0);
}

void PageSafetyTest::aPageFromTheNetworkUsesTheFoldersOfTheSearchPaths()
{
    m_browser->setHtmlContent(QStringLiteral("<html><img src=\"inside.png\"></html>"));
    QVERIFY(countPixels(m_browser.data(), Qt::blue) >= 3600);
}

void PageSafetyTest::dataInsideThePageIsShown()
{
    const QString data = QString::fromLatin1(pictureBytes({60, 60}, Qt::green).toBase64());
    m_browser->setHtmlContent(
        QStringLiteral("<html><img src=\"data:image/png;base64,%1\"></html>").arg(data));
    QVERIFY(countPixels(m_browser.data(), Qt::green) >= 3600);
}

static QByteArray picture(const char *format)
{
    QImage image(60, 60, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer bytes;
    image.save(&bytes, format);
    return bytes.data();
}

/// A bitmap whose header states a larger size than it has.
static QByteArray bitmapHeader(int width, int height)
{
    QByteArray bytes = picture("BMP");
    qToLittleEndian(width, bytes.data() + 18);
    qToLittleEndian(height, bytes.data() + 22);
    return bytes;
}

static QString dataAddress(const QByteArray &bytes, const QString &type = QStringLiteral("image/x"))
{
    return QStringLiteral("data:%1;base64,%2").arg(type, QString::fromLatin1(bytes.toBase64()));
}

void PageSafetyTest::onlyPlainFormatsAreShown_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isShown");
    const QByteArray svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" "
                           "xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"60\" "
                           "height=\"60\"><rect width=\"60\" height=\"60\" fill=\"red\"/>"
                           "<image width=\"60\" height=\"60\" xlink:href=\"%1\"/></svg>";
    addRow("PNG", picture("PNG"), true);
    addRow("BMP", picture("BMP"), true);
    addRow("SVG that draws a file", QString::fromLatin1(svg).arg(secret()).toLatin1(), false);
    addRow("SVG that names a device that never answers",
        QString::fromLatin1(svg).arg(QStringLiteral("/dev/zero")).toLatin1(), false);
    addRow("SVG of 16,000 x 16,000",
        QByteArray(svg).replace("\"60\"", "\"16000\"").replace("%1", ""), false);
    addRow("a megabyte of compressed SVG",
        QByteArray::fromHex("1f8b0800000000000003") + QByteArray(1024 * 1024, 'x'), false);
    addRow("SVG, compressed", QByteArray::fromHex("1f8b08000000000000032b2e4b57a8c8cd"), false);
    for (const char *format : {"PPM", "XPM", "XBM", "ICO"})
        addRow(format, picture(format), false);
}

void PageSafetyTest::onlyPlainFormatsAreShown()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const bool, isShown);
    if (bytes.isEmpty())
        QSKIP("Qt cannot write this format here");
    // Downloaded, in the picture folder already, and inside the page.
    TestServer server;
    server.setAnswer("/a.png", page(bytes));
    QVERIFY(preparePictureFolder());
    writePicture(pictureFolder() + "/b.png", bytes);
    const QString html = QStringLiteral("<html><base href=\"%1\"><img src=\"a.png\">"
                                        "<img src=\"%2\"><img src=\"b.png\"></html>");
    m_browser->setHtmlContent(html.arg(server.url().toString(), dataAddress(bytes)));
    QTRY_VERIFY(isIdle());
    const int scale = qRound(m_browser->devicePixelRatioF() * m_browser->devicePixelRatioF());
    QTRY_COMPARE(countPixels(m_browser.data(), Qt::red), isShown ? 3 * 3600 * scale : 0);
    QStringList warnings;
    const auto refusals = [this, &warnings] {
        warnings += messages.take().filter(QStringLiteral("of no format"));
        return warnings.size();
    };
    QTRY_COMPARE(refusals(), isShown ? 0 : 3); // One for each.
    // The local help may have any.
    if (QTest::currentDataTag() == QByteArray("PPM")) {
        m_browser->setPageUrl(QUrl::fromLocalFile(m_host.helpPath() + "/page/index.html"));
        m_browser->setHtmlContent("<html><img src=\"" + dataAddress(bytes) + "\"></html>");
        QVERIFY(countPixels(m_browser.data(), Qt::red) >= 3600);
    }
}

void PageSafetyTest::plainFormatsAreReadByTheirContent_data()
{
    QTest::addColumn<QByteArray>("bytes");
    addRow("PNG", picture("PNG"));
    addRow("JPEG", picture("JPEG"));
    addRow("BMP", picture("BMP"));
    QTest::newRow("GIF") << QByteArray::fromBase64(
        "R0lGODlhAQABAIAAAAAAAP///yH5BAEAAAAALAAAAAABAAEAAAIBRAA7");
    addRow("WebP", QByteArray::fromBase64("UklGRhoAAABXRUJQVlA4TA0AAAAvAAAAEAcQERGIiP4HAA=="));
}

void PageSafetyTest::plainFormatsAreReadByTheirContent()
{
    QFETCH(QByteArray, bytes);
    const QByteArray format = QByteArray(QTest::currentDataTag()).toLower();
    if (!QImageReader::supportedImageFormats().contains(format))
        QSKIP("Qt cannot read this format here");
    QBuffer buffer(&bytes);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    const WebPicture read = readWebPicture(&buffer, kMaxPagePixels, 100);
    QCOMPARE(read.problem, WebPicture::NONE);
    QVERIFY(!read.pixmap.isNull());
}

void PageSafetyTest::aDataAddressIsNeverAFileName_data()
{
    QTest::addColumn<QString>("address");
    addRow("no comma", "data:secret.png");
    addRow("no comma, a path", "data:" + secret());
    addRow("broken base64", "data:image/png;base64,%%%");
    addRow("a path as its data", "data:," + secret());
    addRow("capitals", "DATA:" + secret());
    addRow("nothing", "data:");
}

void PageSafetyTest::aDataAddressIsNeverAFileName()
{
    QFETCH(const QString, address);
    const QDir outer(m_host.helpPath());
    // A file of just that name.
    QFile::copy(secret(), outer.filePath(address));
    m_browser->setHtmlContent(QStringLiteral("<html><img src=\"%1\"></html>").arg(address));
    QCOMPARE(countPixels(m_browser.data(), Qt::red), 0);
    QFile::remove(outer.filePath(address));
    messages.take();
}

void PageSafetyTest::picturesAreJudgedByTheirHeader_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("warning");
    const QString tooLarge = QStringLiteral("Picture is too large");
    addRow("one pixel too many", dataAddress(bitmapHeader(8192 * 8192 + 1, 1)), tooLarge);
    QImage image(8192, 8193, QImage::Format_Mono);
    image.fill(1);
    QBuffer bytes;
    image.save(&bytes, "PNG");
    addRow("a few bytes of PNG", dataAddress(bytes.data()), tooLarge);
}

void PageSafetyTest::picturesAreJudgedByTheirHeader()
{
    QFETCH(const QString, source);
    QFETCH(const QString, warning);
    m_browser->setHtmlContent(QStringLiteral("<html><img src=\"%1\"></html>").arg(source));
    QVERIFY(m_browser->document()->size().height() < 100);
    const QStringList warnings = messages.take();
    QCOMPARE(warnings.size(), 1);
    QVERIFY2(warnings.first().startsWith(warning), qPrintable(warnings.first()));
}

void PageSafetyTest::thePicturesOfAPageHaveOneLimit()
{
    QImage image(5000, 5000, QImage::Format_Mono);
    image.fill(1);
    QBuffer bytes;
    image.save(&bytes, "PNG");
    QVERIFY(preparePictureFolder());
    QString html = QStringLiteral("<html><base href=\"http://127.0.0.1:1/\">");
    for (int i = 0; i < 12; ++i) { // 25 million pixels each: five are fewer than 128 Mi.
        const QString name = QStringLiteral("p%1.png").arg(i);
        writePicture(pictureFolder() + QLatin1Char('/') + name, bytes.data());
        html += QStringLiteral("<p><img src=\"%1\">").arg(name);
    }
    m_browser->setHtmlContent(html);
    const QStringList warnings = messages.take();
    QCOMPARE(warnings.size(), 7);
    for (const QString &warning : warnings)
        QVERIFY(warning.startsWith(QLatin1String("Page has too many large pictures to show \"p")));
    // The next page begins at nothing.
    m_browser->setHtmlContent(QStringLiteral("<html><img src=\"p6.png\"></html>"));
    QVERIFY(messages.take().isEmpty());
    QTRY_VERIFY(isIdle());
    messages.take();
}

void PageSafetyTest::aPictureWiderThanThePageIsFittedIn()
{
    QImage image(1000, 500, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer bytes;
    image.save(&bytes, "PNG");
    const QString source = dataAddress(bytes.data());
    m_browser->setHtmlContent(QStringLiteral("<html><img src=\"%1\"></html>").arg(source));
    const int margins = 2 * int(m_browser->document()->documentMargin());
    const auto fittedPixels = [this, margins] {
        const qreal ratio = m_browser->devicePixelRatioF();
        const int width = m_browser->viewport()->width() - margins;
        return int(width * ratio) * int(width / 2 * ratio);
    };
    QCOMPARE(m_browser->horizontalScrollBar()->maximum(), 0);
    QCOMPARE(countPixels(m_browser.data(), Qt::red), fittedPixels());
    m_browser->resize(600, 400);
    QTRY_COMPARE(countPixels(m_browser.data(), Qt::red), fittedPixels());
    m_browser->resize(350, 300);
    QTRY_COMPARE(countPixels(m_browser.data(), Qt::red), fittedPixels());
    // Unless the page sets its width.
    m_browser->setHtmlContent(
        QStringLiteral("<html><img width=\"900\" src=\"%1\"></html>").arg(source));
    QVERIFY(m_browser->horizontalScrollBar()->maximum() > 500);
}

void PageSafetyTest::thePicturesOfAPageAreNotTooHighTogether_data()
{
    QTest::addColumn<QString>("attributes");
    addRow("their own height", "");
    addRow("by their width", "width=\"40\"");
}

void PageSafetyTest::thePicturesOfAPageAreNotTooHighTogether()
{
    QFETCH(const QString, attributes);
    QImage image(20, 40000, QImage::Format_Mono);
    image.fill(1);
    QBuffer bytes;
    image.save(&bytes, "PNG");
    const QString picture =
        QStringLiteral("<p><img %1 src=\"%2\">").arg(attributes, dataAddress(bytes.data()));
    m_browser->setHtmlContent("<html>" + picture.repeated(100));
    const double height = m_browser->document()->size().height();
    QVERIFY(height > 0.9 * kMaxPicturesHeight && height < 1.1 * kMaxPicturesHeight);
}

void PageSafetyTest::nothingIsReadFromAFolderThatIsNotTheUsersOwn_data()
{
    QTest::addColumn<QString>("link");
    addRow("the picture folder", "/kestrava_help/image");
    addRow("the folder around it", "/kestrava_help");
}

void PageSafetyTest::nothingIsReadFromAFolderThatIsNotTheUsersOwn()
{
    QFETCH(const QString, link);
    QTemporaryDir elsewhere;
    QVERIFY(QDir(elsewhere.path()).mkdir(QStringLiteral("image")));
    for (const char *name : {"/a.png", "/image/a.png"})
        QVERIFY(QFile::copy(secret(), elsewhere.path() + QLatin1String(name)));
    if (link.endsWith(QLatin1String("image")))
        QVERIFY(QDir().mkpath(m_host.tempFolder() + QLatin1String("/kestrava_help")));
    QVERIFY(QFile::link(elsewhere.path(), m_host.tempFolder() + link));
    for (const bool isLocal : {false, true}) {
        m_browser->setPageUrl(isLocal ? QUrl(QStringLiteral("file:///help/index.html")) : QUrl());
        m_browser->setHtmlContent(
            QStringLiteral("<html><base href=\"http://127.0.0.1:1/\"><img src=\"a.png\"></html>"));
        QTRY_VERIFY(isIdle());
        QCOMPARE(countPixels(m_browser.data(), Qt::red), 0);
        QCOMPARE(messages.take().size(), 1);
    }
    QVERIFY(QFile::remove(m_host.tempFolder() + link));
}

/// The text engine's own handler of pictures asks the disk for "secret@2x.png" at pixel ratio 2.
void PageSafetyTest::noAddressOfAPageIsAFileToTheLayout()
{
    m_host.addHelpFile(QStringLiteral("twice@2x.png"), pictureBytes({60, 60}, Qt::red));
    m_browser->setHtmlContent(QStringLiteral("<html><img src=\"twice.png\"><img src=\"%1\"></html>")
                                  .arg(m_host.helpPath() + QLatin1String("/twice.png")));
    QCOMPARE(countPixels(m_browser.data(), Qt::red), 0);
    QFile::remove(m_host.helpPath() + QLatin1String("/twice@2x.png"));
}

void PageSafetyTest::picturesAreOnlyFetchedFromTheWeb_data()
{
    QTest::addColumn<QString>("base");
    QTest::newRow("a file") << addressOf(m_host.helpPath()) + QLatin1Char('/');
    addRow("a path", m_host.helpPath() + QLatin1Char('/'));
    addRow("nothing", "");
    addRow("a resource", "qrc:/");
    addRow("data", "data:image/png;base64,");
    QTest::newRow("a file transfer") << "ftp://127.0.0.1/";
    QTest::newRow("unknown") << "gopher://127.0.0.1/";
    QTest::newRow("capitals") << QStringLiteral("FILE%1/").arg(addressOf(m_host.helpPath()).mid(4));
}

void PageSafetyTest::picturesAreOnlyFetchedFromTheWeb()
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

void PageSafetyTest::aLaterPageFromAFileGivesNoLeaveToAnEarlierOne()
{
    QString html = QStringLiteral("<html><base href=\"%1/\">").arg(addressOf(m_host.helpPath()));
    for (int i = 0; i < 100; ++i)
        html += QStringLiteral("<img src=\"%1secret.png\">").arg(QStringLiteral("./").repeated(i));
    m_browser->setHtmlContent(html);
    m_browser->setPageUrl(
        QUrl::fromLocalFile(m_host.helpPath() + QLatin1String("/page/index.html")));
    m_browser->setHtmlContent(QStringLiteral("<html>local</html>"));
    QTRY_VERIFY(isIdle());
    QVERIFY(QDir(m_host.pictureFolder()).isEmpty());
}

void PageSafetyTest::aPageFromAFileMayFetchFiles()
{
    m_browser->setPageUrl(
        QUrl::fromLocalFile(m_host.helpPath() + QLatin1String("/page/index.html")));
    m_browser->setHtmlContent(
        QStringLiteral("<html><base href=\"%1/\"><img src=\"secret.png\"></html>")
            .arg(addressOf(m_host.helpPath())));
    QTRY_VERIFY(isIdle());
    QCOMPARE(fileBytes(m_host.pictureFolder() + "/secret.png"), fileBytes(secret()));
}

void PageSafetyTest::aBrokenPictureIsMissing_data()
{
    QTest::addColumn<QByteArray>("bytes");
    addRow("empty", QByteArray());
    addRow("text", QByteArray("<html>an error page</html>"));
}

void PageSafetyTest::aBrokenPictureIsMissing()
{
    QFETCH(const QByteArray, bytes);
    TestServer server;
    server.setAnswer("/a.png", page(bytes));
    m_browser->setHtmlContent(QStringLiteral("<html><base href=\"%1\">x<img src=\"a.png\"></html>")
                                  .arg(server.url().toString()));
    QTRY_VERIFY(isIdle());
    QTRY_VERIFY(m_browser->document()->size().height() < 100);
    messages.take();
}

void PageSafetyTest::linksOfAPageFromTheNetworkOpenOutside_data()
{
    QTest::addColumn<QString>("link");
    QTest::addColumn<QString>("opened");
    addRow("the web", "http://127.0.0.1/a.html", "http://127.0.0.1/a.html");
    addRow("the secure web", "https://127.0.0.1/#x", "https://127.0.0.1/#x");
    addRow("a mail", "mailto:a@vemo.invalid", "mailto:a@vemo.invalid");
    addRow("beside the page", "b.html", "https://help.vemo.invalid/kb/b.html");
    addRow("the page's root", "/b.html", "https://help.vemo.invalid/b.html");
    addRow("an anchor of the page", "#below", "");
    addRow("a file", secretUrl(), "");
    for (const char *refused : {"qrc:/vemo", "c:/windows/system32/calc.exe", "javascript:alert(1)",
             "admin:x", "smb://host/share", "vscode://file/x", "ftp://host/x", "data:text/html,x",
             "about:blank"})
        addRow(refused, QString::fromLatin1(refused), "");
    addRow("a file's path opens the web's", rootPath(secret()),
        "https://help.vemo.invalid" + rootPath(secret()));
}

void PageSafetyTest::clickLink()
{
    QTextCursor start(m_browser->document());
    start.setPosition(1);
    QTest::mouseClick(m_browser->viewport(), Qt::LeftButton, Qt::NoModifier,
        m_browser->cursorRect(start).center() + QPoint(3, 0));
}

void PageSafetyTest::linksOfAPageFromTheNetworkOpenOutside()
{
    QFETCH(const QString, link);
    QFETCH(const QString, opened);
    m_browser->setPageUrl(QUrl(QStringLiteral("https://help.vemo.invalid/kb/page.html")));
    m_browser->setHtmlContent(
        QStringLiteral("<html><a href=\"%1\">a link to click</a></html>").arg(link));
    clickLink();
    QCOMPARE(m_opened, opened.isEmpty() ? QList<QUrl>() : QList<QUrl>({QUrl(opened)}));
    QCOMPARE(m_browser->toPlainText(), QStringLiteral("a link to click"));
    const bool isRefused = opened.isEmpty() && !link.startsWith(QLatin1Char('#'));
    const QString warning = QStringLiteral("Link is not opened \"%1\"").arg(link);
    QCOMPARE(messages.take(), isRefused ? QStringList(warning) : QStringList());
}

void PageSafetyTest::anAnchorScrollsEvenAfterALocalLink()
{
    m_browser->setSource(QUrl::fromLocalFile(m_host.helpPath() + "/page/other.html"));
    m_browser->setPageUrl(QUrl(QStringLiteral("https://help.vemo.invalid/kb/page.html")));
    const QString lines = QStringLiteral("<p>line</p>").repeated(100);
    m_browser->setHtmlContent(QStringLiteral("<html><a href=\"#below\">a link to click</a>%1<a "
                                             "name=\"below\">below</a>%1</html>")
                                  .arg(lines));
    clickLink();
    QCOMPARE(m_opened, QList<QUrl>());
    QVERIFY(m_browser->verticalScrollBar()->value() > 100);
    // Neither is a relative link one to a file.
    m_browser->setHtmlContent(
        QStringLiteral("<html><a href=\"b.html\">a link to click</a></html>"));
    clickLink();
    QCOMPARE(m_opened, QList<QUrl>({QUrl(QStringLiteral("https://help.vemo.invalid/kb/b.html"))}));
}

void PageSafetyTest::linksOfAPageFromAFileOpenInPlace()
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

VEMO_TEST_MAIN(PageSafetyTest)
#include "tst_pagesafety.moc"
