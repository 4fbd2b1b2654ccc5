// SPDX-License-Identifier: MIT
#include "help/helphost.h"
#include "help/helplimits_p.h"
#include "help/imagedownloader_p.h"
#include "help/picturefolder_p.h"
#include "help/testserver.h"
#include "support/iswindows.h"
#include "support/vemotest.h"

#include <QLibrary>
#include <QNetworkAccessManager>

class ImageDownloaderTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void signalAndSlotHaveTheirNames();
    void isUnfinishedUntilTheAnswerComes();
    void theAnswersBodyBecomesTheFile_data();
    void theAnswersBodyBecomesTheFile();
    void aFailedDownloadKeepsTheEarlierFile_data();
    void aFailedDownloadKeepsTheEarlierFile();
    void anyAnswerWithoutAnErrorReplacesTheEarlierFile_data();
    void anyAnswerWithoutAnErrorReplacesTheEarlierFile();
    void silenceIsReportedAndTheDownloadGoesOn();
    void anAbortedDownloadFails();
    void aFileThatCannotBeWrittenIsNoError();
    void aPictureOverTheLimitFailsWithOneWarning_data();
    void aPictureOverTheLimitFailsWithOneWarning();
    void downloadsShareOneLimit();
    void aRefusedDownloadFailsLaterWithoutARequest();
    void emitsNothingIfDeletedAtAnyMoment_data();
    void emitsNothingIfDeletedAtAnyMoment();

private:
    QString file(const QString &name) const
    {
        return m_host.pictureFolder() + QLatin1Char('/') + name;
    }
    /// Fetches path into the file "a.png" and returns the result.
    int download(const QUrl &url);

    HelpHost m_host;
};

static constexpr qint64 kMebibyte = 1024 * 1024;

void ImageDownloaderTest::init()
{
    VemoTest::init();
    QVERIFY(preparePictureFolder());
    QFile::remove(file("a.png"));
}

int ImageDownloaderTest::download(const QUrl &url)
{
    ImageDownloader downloader(file("a.png"), url.toString());
    QSignalSpy finished(&downloader, SIGNAL(sigDownloadFinish(QString,int)));
    downloader.start();
    if (!finished.wait(30000) || finished.size() != 1 || !downloader.isFinished())
        return -99;
    const int result = finished.at(0).at(1).toInt();
    const bool isTheSame = result == downloader.result() && finished.at(0).at(0) == url.toString();
    return isTheSame ? result : -98;
}

void ImageDownloaderTest::signalAndSlotHaveTheirNames()
{
    const QMetaObject &meta = ImageDownloader::staticMetaObject;
    const QMetaMethod finish = meta.method(meta.indexOfSignal("sigDownloadFinish(QString,int)"));
    QCOMPARE(finish.parameterNames(), QList<QByteArray>({"url", "res"}));
    const QMetaMethod slot = meta.method(meta.indexOfSlot("slotFinishDownload(QNetworkReply*)"));
    QCOMPARE(slot.parameterNames(), QList<QByteArray>({"reply"}));
    QCOMPARE(slot.access(), QMetaMethod::Private);
}

void ImageDownloaderTest::isUnfinishedUntilTheAnswerComes()
{
    ImageDownloader downloader(file("a.png"), QStringLiteral("http://127.0.0.1/a.png"));
    QVERIFY(!downloader.isFinished());
    QCOMPARE(downloader.result(), 0);
    QVERIFY(!downloader.parent());
}

void ImageDownloaderTest::theAnswersBodyBecomesTheFile_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<QByteArray>("content");

    Answer chunked;
    chunked.bytes =
        "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n2\r\nde\r\n0\r\n\r\n";
    Answer endedByClosing;
    endedByClosing.bytes = "HTTP/1.1 200 OK\r\n\r\nuntil the end";
    Answer inPieces;
    inPieces.bytes = "HTTP/1.1 200 OK\r\nContent-Length: 30000\r\n\r\n";
    inPieces.tail = QByteArray(1000, 'x');
    inPieces.tailCount = 30;

    addRow("with a length", page("bytes"), QByteArray("bytes"));
    addRow("zero bytes inside", page(QByteArray("a\0b", 3)), QByteArray("a\0b", 3));
    addRow("empty", page(""), QByteArray(""));
    addRow("204", status("204 No Content"), QByteArray(""));
    addRow("chunked", chunked, QByteArray("abcde"));
    addRow("ended by closing", endedByClosing, QByteArray("until the end"));
    addRow("in pieces", inPieces, QByteArray(30000, 'x'));
    addRow("a redirect's own body", status("302 Found", "Location: /other\r\n", "moved"),
        QByteArray("moved"));
    addRow("5 MiB", page(QByteArray(5 * kMebibyte, 'y')), QByteArray(5 * kMebibyte, 'y'));
}

void ImageDownloaderTest::theAnswersBodyBecomesTheFile()
{
    QFETCH(const Answer, answer);
    TestServer server;
    server.setAnswer("/a.png", answer);
    QCOMPARE(download(server.url("/a.png")), 0);
    QVERIFY(QFile::exists(file("a.png")));
    const QByteArray content = fileBytes(file("a.png"));
    QTEST(content, "content");
}

void ImageDownloaderTest::aFailedDownloadKeepsTheEarlierFile_data()
{
    QTest::addColumn<Answer>("answer");

    Answer tooShort;
    tooShort.bytes = "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf";
    Answer reset = tooShort;
    reset.end = Answer::RESET;

    addRow("404", status("404 Not Found", {}, "not this one"));
    addRow("401", status("401 Unauthorized"));
    addRow("500", status("500 Internal Server Error", {}, "nor this one"));
    addRow("closed before its length", tooShort);
    addRow("reset", reset);
    addRow("no answer", Answer());
}

void ImageDownloaderTest::aFailedDownloadKeepsTheEarlierFile()
{
    QFETCH(const Answer, answer);
    if (answer.end == Answer::RESET && kIsWindows && QLibrary::resolve("ntdll", "wine_get_version"))
        QSKIP("With Wine 8.0 a QTcpSocket often does not hear that its connection was reset");
    writePicture(file("a.png"), "earlier");
    TestServer server;
    server.setAnswer("/a.png", answer);
    QCOMPARE(download(server.url("/a.png")), -1);
    QCOMPARE(fileBytes(file("a.png")), QByteArray("earlier"));
}

/// A reply without a content length.
static Answer untilClosing(const QByteArray &body)
{
    Answer answer;
    answer.bytes = "HTTP/1.1 200 OK\r\n\r\n" + body;
    return answer;
}

/// One chunk, with the mark that ends all chunks or broken off without it.
static Answer chunked(const QByteArray &body, bool isEnded)
{
    Answer answer;
    answer.bytes = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n"
        + QByteArray::number(body.size(), 16) + "\r\n" + body + (isEnded ? "\r\n0\r\n\r\n" : "");
    return answer;
}

void ImageDownloaderTest::anyAnswerWithoutAnErrorReplacesTheEarlierFile_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<QByteArray>("taken");

    const QByteArray whole = pictureBytes({20, 20}, Qt::blue);
    const QByteArray half = whole.left(whole.size() / 2);
    const QByteArray icon = QByteArray::fromHex("00000100010001010000010018003000000016000000");
    // "<html>" in the gzip format.
    const QByteArray packed =
        QByteArray::fromHex("1f8b0800000000000003b3c928c9cdb10300410c43c706000000");
    addRow("a format without an end, chunked", chunked(icon, true), icon);
    addRow("a page, chunked", chunked("<html>", true), QByteArray("<html>"));
    addRow("a page, compressed", page(packed, "Content-Encoding: gzip\r\n"), QByteArray("<html>"));
    addRow("a picture, chunked", chunked(whole, true), whole);
    addRow("a picture, without a length", untilClosing(whole), whole);
    addRow("half, without a length", untilClosing(half), half);
    addRow("half, with the half's length", page(half), half);
    addRow("nothing, without a length", untilClosing({}), QByteArray(""));
}

void ImageDownloaderTest::anyAnswerWithoutAnErrorReplacesTheEarlierFile()
{
    QFETCH(const Answer, answer);
    QFETCH(const QByteArray, taken);
    writePicture(file("a.png"), pictureBytes({10, 10}, Qt::red));
    TestServer server;
    server.setAnswer("/a.png", answer);
    QCOMPARE(download(server.url("/a.png")), 0);
    QCOMPARE(fileBytes(file("a.png")), taken);
}

void ImageDownloaderTest::silenceIsReportedAndTheDownloadGoesOn()
{
    const QScopedValueRollback<int> shorter(ImageDownloader::maxSilence(), 20);
    Answer late;
    late.bytes = "HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\n";
    late.tail = "bytes";
    late.tailCount = 1;
    late.tailPause = 500;
    TestServer server;
    server.setAnswer("/a.png", late);
    ImageDownloader downloader(file("a.png"), server.url("/a.png").toString());
    QSignalSpy silent(&downloader, SIGNAL(sigSilent()));
    QSignalSpy finished(&downloader, SIGNAL(sigDownloadFinish(QString,int)));
    downloader.start();
    QVERIFY(silent.wait());
    QVERIFY(finished.isEmpty());
    QVERIFY(finished.wait());
    QCOMPARE(downloader.result(), 0);
    QCOMPARE(fileBytes(file("a.png")), QByteArray("bytes"));
}

void ImageDownloaderTest::anAbortedDownloadFails()
{
    Answer silent;
    silent.end = Answer::KEEP_OPEN;
    TestServer server;
    server.setAnswer("/a.png", silent);
    ImageDownloader downloader(file("a.png"), server.url("/a.png").toString());
    QSignalSpy finished(&downloader, SIGNAL(sigDownloadFinish(QString,int)));
    downloader.abort(); // Nothing runs.
    QVERIFY(finished.isEmpty());
    downloader.start();
    QTRY_COMPARE(server.requests().size(), 1);
    downloader.abort();
    QCOMPARE(finished.size(), 1);
    QCOMPARE(downloader.result(), -1);
}

void ImageDownloaderTest::aFileThatCannotBeWrittenIsNoError()
{
    TestServer server;
    server.setAnswer("/a.png", page("bytes"));
    QVERIFY(QDir().mkpath(file("a.png")));
    QCOMPARE(download(server.url("/a.png")), 0);
    QVERIFY(QFileInfo(file("a.png")).isDir());
    QVERIFY(QDir().rmdir(file("a.png")));
}

void ImageDownloaderTest::aPictureOverTheLimitFailsWithOneWarning_data()
{
    QTest::addColumn<qint64>("size");
    QTest::addColumn<bool>("isTaken");
    addRow("64 MiB", 64 * kMebibyte, true);
    addRow("one byte more", 64 * kMebibyte + 1, false);
    addRow("forever", qint64(-1), false);
}

void ImageDownloaderTest::aPictureOverTheLimitFailsWithOneWarning()
{
    QFETCH(const qint64, size);
    QFETCH(const bool, isTaken);
    Answer answer;
    answer.bytes =
        "HTTP/1.1 200 OK\r\n\r\n" + QByteArray(size < 0 ? 0 : int(size % kMebibyte), 'x');
    answer.tail = QByteArray(kMebibyte, 'x');
    answer.tailCount = size < 0 ? -1 : int(size / kMebibyte);
    TestServer server;
    server.setAnswer("/a.png", answer);
    const QUrl url = server.url("/a.png");
    QCOMPARE(download(url), isTaken ? 0 : -1);
    QCOMPARE(QFileInfo(file("a.png")).size(), isTaken ? size : 0);
    const QString warning = QStringLiteral("Too much data from \"%1\"").arg(url.toString());
    QCOMPARE(messages.take(), isTaken ? QStringList() : QStringList(warning));
}

void ImageDownloaderTest::downloadsShareOneLimit()
{
    QCOMPARE(kMaxBufferedBytes, 256 * kMebibyte);
    TestServer server;
    server.setAnswer("/a.png", page(QByteArray(int(kMebibyte), 'x')));
    const QUrl url = server.url("/a.png");
    const QSharedPointer<qint64> buffered(new qint64(kMaxBufferedBytes - kMebibyte));
    for (const bool isTooMuch : {false, true}) {
        *buffered += isTooMuch;
        const qint64 others = *buffered;
        ImageDownloader downloader(file("a.png"), url.toString());
        downloader.shareBuffers(buffered);
        QSignalSpy finished(&downloader, SIGNAL(sigDownloadFinish(QString,int)));
        downloader.start();
        QVERIFY(finished.wait());
        QCOMPARE(downloader.result(), isTooMuch ? -1 : 0);
        QCOMPARE(messages.take().size(), isTooMuch ? 1 : 0);
        QCOMPARE(*buffered, others); // It takes no more room.
    }
}

void ImageDownloaderTest::aRefusedDownloadFailsLaterWithoutARequest()
{
    TestServer server;
    ImageDownloader downloader(file("a.png"), server.url("/a.png").toString());
    QSignalSpy finished(&downloader, SIGNAL(sigDownloadFinish(QString,int)));
    downloader.refuse();
    QVERIFY(finished.isEmpty());
    QVERIFY(finished.wait());
    QCOMPARE(finished.at(0), QVariantList({server.url("/a.png").toString(), -1}));
    QVERIFY(server.requests().isEmpty());
}

void ImageDownloaderTest::emitsNothingIfDeletedAtAnyMoment_data()
{
    QTest::addColumn<bool>("waitForTheRequest");
    addRow("at once", false);
    addRow("while the server answers", true);
}

void ImageDownloaderTest::emitsNothingIfDeletedAtAnyMoment()
{
    QFETCH(const bool, waitForTheRequest);
    Answer answer;
    answer.bytes = "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf";
    answer.end = Answer::KEEP_OPEN;
    TestServer server;
    server.setAnswer("/a.png", answer);
    auto *downloader = new ImageDownloader(file("a.png"), server.url("/a.png").toString());
    QSignalSpy finished(downloader, SIGNAL(sigDownloadFinish(QString,int)));
    downloader->start();
    if (waitForTheRequest)
        QTRY_COMPARE(server.requests().size(), 1);
    delete downloader;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QVERIFY(finished.isEmpty());
    QVERIFY(!QFile::exists(file("a.png")));
}

VEMO_TEST_MAIN(ImageDownloaderTest)
#include "tst_imagedownloader.moc"
