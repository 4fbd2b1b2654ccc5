// SPDX-License-Identifier: MIT
#include "help/serverrows.h"

namespace {

constexpr int kMebibyte = 1024 * 1024;

const QByteArray kPage = "<html>online</html>";
const QString kOnline = QStringLiteral("online");

ServerRow row(const char *name, const Answer &answer, const QString &text = QString())
{
    ServerRow row;
    row.name = name;
    row.answer = answer;
    row.text = text;
    return row;
}

Answer raw(const QByteArray &bytes, Answer::End end = Answer::CLOSE)
{
    Answer answer;
    answer.bytes = bytes;
    answer.end = end;
    return answer;
}

Answer head(const QByteArray &lines, const QByteArray &body = kPage)
{
    return raw("HTTP/1.1 200 OK\r\n" + lines + "\r\n" + body);
}

Answer sized(const QByteArray &length)
{
    return head("Content-Length: " + length + "\r\n");
}

/// A block of zeros in gzip format, compressed to a thousandth of its size.
QByteArray gzip(const QByteArray &bytes)
{
    const QByteArray zlib = qCompress(bytes, 9);
    const QByteArray deflated = zlib.mid(6, zlib.size() - 10);
    quint32 crc = 0xFFFFFFFF;
    quint32 table[256];
    for (quint32 i = 0; i < 256; ++i) {
        table[i] = i;
        for (int bit = 0; bit < 8; ++bit)
            table[i] = (table[i] >> 1) ^ (table[i] & 1 ? 0xEDB88320 : 0);
    }
    for (const char byte : bytes)
        crc = (crc >> 8) ^ table[(crc ^ quint8(byte)) & 0xFF];
    QByteArray trailer;
    for (const quint32 number : {~crc, quint32(bytes.size())})
        for (int shift = 0; shift < 32; shift += 8)
            trailer += char(number >> shift);
    return QByteArray::fromHex("1f8b0800000000000003") + deflated + trailer;
}

Answer compressed(const QByteArray &body)
{
    return page(body, "Content-Encoding: gzip\r\n");
}

QByteArray pictures(int count, const QByteArray &before)
{
    QByteArray html = "<html>online";
    for (int i = 0; i < count; ++i)
        html += before + "<img src=\"p" + QByteArray::number(i) + ".png\">";
    return html;
}

} // namespace

QVector<ServerRow> statusRows()
{
    QVector<ServerRow> rows;
    for (const char *line :
        {"200 OK", "201 Created", "202 Accepted", "203 Other", "206 Partial", "299 x"})
        rows += row(line, status(line, {}, kPage), kOnline);
    for (const char *line : {"204 No Content", "205 Reset Content"})
        rows += row(line, status(line), QLatin1String(""));
    for (const char *line : {"400 Bad Request", "401 Unauthorized", "402 Pay", "403 Forbidden",
             "404 Not Found", "405 Not Allowed", "407 Proxy", "408 Timeout", "410 Gone",
             "418 Teapot", "429 Too Many", "451 x", "500 Server Error", "501 Not Implemented",
             "502 Bad Gateway", "503 Unavailable", "504 Timeout", "599 x"})
        rows += row(line, status(line, {}, kPage));
    rows += row("301 without a place", status("301 Moved", {}, kPage), kOnline);
    rows +=
        row("302 to https", status("302 x", "Location: https://127.0.0.1:1/\r\n", kPage), kOnline);
    rows +=
        row("302 to http", status("302 x", "Location: http://127.0.0.1:1/\r\n", kPage), kOnline);
    rows +=
        row("302 to a file", status("302 x", "Location: file:///etc/passwd\r\n", kPage), kOnline);
    rows += row("302 to itself", status("302 x", "Location: \r\n", kPage), kOnline);
    rows += row("307 to itself", status("307 x", "Location: ?\r\n", kPage), kOnline);
    rows +=
        row("308 to https", status("308 x", "Location: https://127.0.0.1:1/\r\n", kPage), kOnline);
    return rows;
}

QVector<ServerRow> lengthRows()
{
    const QByteArray chunked = "Transfer-Encoding: chunked\r\n";
    return {
        row("no length", head({}), kOnline),
        row("length too small", sized("12"), kOnline), // "<html>online" is all that counts.
        row("length too large", sized("100")),
        row("length of zero", sized("0"), QLatin1String("")),
        row("length beyond 64 bits", sized("99999999999999999999"), kOnline),
        row("length without a number", sized("many"), kOnline),
        row("chunked", head(chunked, "6\r\n<html>\r\n6\r\nonline\r\n0\r\n\r\n"), kOnline),
        row("chunked with a trailer", head(chunked, "6\r\nonline\r\n0\r\nX: y\r\n\r\n"), kOnline),
        row("chunked with an extension", head(chunked, "6;x=y\r\nonline\r\n0\r\n\r\n"), kOnline),
        row("no answer", raw({})),
        row("reset without an answer", raw({}, Answer::RESET)),
        row("closed inside the head", raw("HTTP/1.1 200 OK\r\nContent-Le")),
        row("closed inside the body", sized("1000")),
        row("reset inside the body",
            raw("HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\n<html>", Answer::RESET)),
    };
}

QVector<ServerRow> headRows()
{
    QByteArray many;
    for (int i = 0; i < 2000; ++i)
        many += "X-Header-" + QByteArray::number(i) + ": value\r\n";
    return {
        row("small letters", head("content-length: 19\r\n"), kOnline),
        row("2000 headers", head(many), kOnline),
        row("a header of 64 KiB", head("X: " + QByteArray(65536, 'x') + "\r\n"), kOnline),
        row("a header without a colon", head("nonsense\r\n"), kOnline),
        row("a cookie", head("Set-Cookie: a=b\r\n"), kOnline),
        row("a place, with 200", head("Location: https://127.0.0.1:1/\r\n"), kOnline),
        row("the type of a picture", head("Content-Type: image/png\r\n"), kOnline),
        row("another encoding's name", head("Content-Type: text/html; charset=utf-16\r\n"),
            kOnline),
        row("an attachment", head("Content-Disposition: attachment\r\n"), kOnline),
        row("version 1.0", raw("HTTP/1.0 200 OK\r\n\r\n" + kPage), kOnline),
        row("line feeds alone", raw("HTTP/1.1 200 OK\n\n" + kPage), kOnline),
        row("continue first", raw("HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\n\r\n" + kPage),
            kOnline),
        row("another protocol", raw("SSH-2.0-server\r\n\r\n")),
        row("no protocol at all", raw(kPage + "\r\n\r\n")),
    };
}

QVector<ServerRow> bodyRows()
{
    const QByteArray zeros(kMebibyte * 40, '\0');
    ServerRow bomb = row("a gzip bomb of 40 MiB", compressed(gzip(zeros)));
    ServerRow large = row("33 MiB", page(QByteArray(33 * kMebibyte, 'x')));
    bomb.warning = large.warning = "Too much data from";
    ServerRow tables =
        row("40 tables inside each other", page(QByteArray("<table><tr><td>").repeated(40)));
    ServerRow tags = row("5000 tags inside each other", page(QByteArray("<div>").repeated(5000)));
    ServerRow slow = row("100,000 pictures in one paragraph", page(pictures(100000, {})));
    tables.warning = tags.warning = "Page is nested too deeply";
    slow.warning = "Page takes too long to show";
    return {
        slow,
        bomb,
        large,
        tables,
        tags,
        row("empty", page({}), QLatin1String("")),
        row("plain text", page("a < b"), QStringLiteral("a < b")),
        row("gzip", compressed(gzip(kPage)), kOnline),
        row("broken gzip", compressed(QByteArray::fromHex("1f8b08000000000000030102030405"))),
        row("not gzip at all", compressed(kPage)),
        row("invalid UTF-8", page("<html>online\xFF</html>"), kOnline + QChar(0xFFFD)),
        row("UTF-16", page(QByteArray("\xFE\xFF\0o\0n", 6)),
            QString(2, QChar(0xFFFD)) + QChar(0) + "o" + QChar(0) + "n"),
        row("a byte order mark", page("\xEF\xBB\xBF" + kPage), kOnline),
        row("an unterminated tag", page("<html>online<img src=\"a"), kOnline),
        row("an unterminated attribute", page("<html>online<p class=\"a>text</p>"), kOnline),
        row("an unterminated comment", page("<html>online<!-- text"), kOnline),
        row("a million brackets", page("<html>online" + QByteArray(1000000, '<')), kOnline),
        row("900 tags inside each other",
            page("<html>" + QByteArray("<div>").repeated(900) + "online"), kOnline),
        row("12 tables inside each other",
            page("<html>" + QByteArray("<table><tr><td>").repeated(12) + "online"), kOnline),
        row("10000 pictures", page(pictures(10000, "<p>")), kOnline),
        row("10000 pictures to fetch",
            page("<html><base href=\"http://127.0.0.1:1/\">" + pictures(10000, "<p>").mid(6)),
            kOnline),
        row("1000 pictures in one paragraph", page(pictures(1000, {})), kOnline),
        row("a column span of 10^8",
            page("<html><table><tr><td colspan=\"100000000\">online</table>"), kOnline),
        row("a picture of 10^9 pixels' width",
            page("<html>online<img width=\"1000000000\" src=\"a\">"), kOnline),
        row("script", page("<html><script>while (true);</script>online"), kOnline),
    };
}

QVector<ServerRow> certificateRows()
{
    QVector<ServerRow> rows {row("good certificate", page(kPage), kOnline),
        row("certificate of another host", page(kPage)), row("expired certificate", page(kPage)),
        row("certificate of the future", page(kPage)), row("self-signed certificate", page(kPage)),
        row("certificate of an unknown authority", page(kPage))};
    for (int i = 0; i < rows.size(); ++i)
        rows[i].certificate = TestCertificates::Kind(i);
    return rows;
}

QVector<ServerRow> endlessRows()
{
    Answer slowHead = raw("HTTP/1.1 200 OK\r\nX: ");
    Answer slowBody = raw("HTTP/1.1 200 OK\r\n\r\n<html>");
    slowHead.tail = slowBody.tail = "x";
    slowHead.tailCount = slowBody.tailCount = -1;
    slowHead.tailPause = slowBody.tailPause = 1000;
    Answer slowButDone = raw("HTTP/1.1 200 OK\r\n\r\n<html>onlin");
    slowButDone.tail = "e";
    slowButDone.tailCount = 1;
    slowButDone.tailPause = 3000;
    Answer redirects = status("302 x", "Location: /cgi/knowledgebase/\r\n", "moved");
    return {
        row("silence", raw({}, Answer::KEEP_OPEN)),
        row("silence after the head",
            raw("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\n", Answer::KEEP_OPEN)),
        row("silence inside the body",
            raw("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\n<html>", Answer::KEEP_OPEN)),
        row("silence inside a chunk",
            raw("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n9\r\n<html>",
                Answer::KEEP_OPEN)),
        row("one byte of the head a second", slowHead),
        row("one byte of the body a second", slowBody),
        row("done after three seconds", slowButDone, kOnline),
        row("redirects forever", redirects, QStringLiteral("moved")),
    };
}
