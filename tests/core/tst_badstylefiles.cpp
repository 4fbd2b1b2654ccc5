// SPDX-License-Identifier: MIT
#include <vemo/stylemanager.h>

#include "support/iswindows.h"
#include "support/testhost.h"
#include "support/vemotest.h"

namespace {

QByteArray allBytes()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    return bytes;
}

QByteArray utf16(const QString &text)
{
    return QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
}

QString storedSheet(const QString &key)
{
    return StyleManager::getInstance().getStyleSheet(key, true);
}

} // namespace

class BadStyleFilesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_host.start(ImageManager::LAZY_LOAD); }
    void theFilesAroundABadOneAreLoaded_data();
    void theFilesAroundABadOneAreLoaded();
    void aFileThatMayNotBeReadIsAnEmptyLine();
    void aLinkToNowhereDoesNotExist();
    void byteOrderMarksAreDroppedFromEveryFile();
    void carriageReturnsAreDropped_data();
    void carriageReturnsAreDropped();
    void bytesThatAreNoTextBecomeReplacementCharacters();
    void textGoesOnBehindANul();
    void keysMayBeAnyText_data();
    void keysMayBeAnyText();
    void pathsMayBeAnyText_data();
    void pathsMayBeAnyText();

private:
    void load(const QList<QByteArray> &texts);

    TestHost m_host;
};

void BadStyleFilesTest::load(const QList<QByteArray> &texts)
{
    std::vector<QString> paths;
    for (const QByteArray &text : texts)
        paths.push_back(m_host.writeFile(QString("%1.qss").arg(paths.size()), text));
    StyleManager::getInstance().initialize(paths);
}

void BadStyleFilesTest::theFilesAroundABadOneAreLoaded_data()
{
    QTest::addColumn<QByteArray>("bad");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one line break") << QByteArray("\n");
    QTest::newRow("no header") << QByteArray("QMenu { margin: 3px; }");
    QTest::newRow("every byte there is") << allBytes();
    QTest::newRow("zeros") << QByteArray(100000, 0);
    QTest::newRow("ones") << QByteArray(100000, '\xff');
    QTest::newRow("UTF-16") << utf16(QString(QChar(0xfeff)) + "==utf16==\nx\n");
    QTest::newRow("surrogates as if they were characters") << QByteArray("\xed\xa0\x80==x==\n");
    QTest::newRow("cut inside a character") << QByteArray("x \xf0\x9f\x98");
    QTest::newRow("an overlong slash") << QByteArray("\xc0\xaf\xc0\xaf x");
    QTest::newRow("a comment without an end") << QByteArray("/* x");
}

void BadStyleFilesTest::theFilesAroundABadOneAreLoaded()
{
    QFETCH(QByteArray, bad);
    load({"==before==\nx\n== ==\n", bad, "\n==after==\ny"});
    QCOMPARE(storedSheet("before"), QString("\nx"));
    QVERIFY(storedSheet("after").endsWith("\ny"));
}

void BadStyleFilesTest::aFileThatMayNotBeReadIsAnEmptyLine()
{
    const QString before = m_host.writeFile("before.qss", "==forbidden==\nx");
    const QString path = m_host.writeFile("forbidden.qss", "secret");
    const bool isForbidden = QFile::setPermissions(path, {});
    QVERIFY(isForbidden || kIsWindows); // There only lists of rights forbid it.
    if (!isForbidden || QFile(path).open(QIODevice::ReadOnly))
        QSKIP("This user may read every file");
    StyleManager::getInstance().initialize({before, path, m_host.writeFile("after.qss", "y")});
    QCOMPARE(storedSheet("forbidden"), QString("\nx\n\ny"));
}

void BadStyleFilesTest::aLinkToNowhereDoesNotExist()
{
    if (kIsWindows)
        QSKIP("Qt makes files that are shortcuts there, and users may not make links");
    const QString link = m_host.resourcePath() + "/link.qss";
    QVERIFY(QFile::link(m_host.resourcePath() + "/nowhere", link));
    StyleManager::getInstance().initialize({link});
    QCOMPARE(messages.take(), QStringList("file \"" + link + "\" not exist"));
}

void BadStyleFilesTest::byteOrderMarksAreDroppedFromEveryFile()
{
    load({"\xef\xbb\xbf==first marked==\nx", "\xef\xbb\xbf==second marked==\ny"});
    QCOMPARE(storedSheet("firstmarked"), QString("\nx"));
    QCOMPARE(storedSheet("secondmarked"), QString("\ny"));
}

void BadStyleFilesTest::carriageReturnsAreDropped_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("at line ends") << QByteArray("==cr==\r\nx\r\ny\r\n");
    QTest::newRow("after a comment") << QByteArray("==cr==\r\nx// c\r\n\r\ny\r\n");
    QTest::newRow("anywhere") << QByteArray("\r==c\rr==\n\rx\n\r\ry");
}

void BadStyleFilesTest::carriageReturnsAreDropped()
{
    QFETCH(QByteArray, text);
    load({text + "\n==end=="});
    QCOMPARE(storedSheet("cr").trimmed(), QString("x\ny"));
}

void BadStyleFilesTest::bytesThatAreNoTextBecomeReplacementCharacters()
{
    load({"==gr\xfcn==\nx \xff y"});
    const QChar replacement(0xfffd);
    QCOMPARE(storedSheet(QString("gr%1n").arg(replacement)), QString("\nx %1 y").arg(replacement));
}

void BadStyleFilesTest::textGoesOnBehindANul()
{
    load({QByteArray("==nul==\nx\0y\n==behind nul==\nz", 28)});
    QCOMPARE(storedSheet("nul"), QString("\nx%1y").arg(QChar(0)));
    QCOMPARE(storedSheet("behindnul"), QString("\nz"));
}

void BadStyleFilesTest::keysMayBeAnyText_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("German") << QString::fromUtf8("Schaltfläche");
    QTest::newRow("Chinese") << QString::fromUtf8("按钮");
    QTest::newRow("right to left") << QString::fromUtf8("زر");
    QTest::newRow("beyond the basic plane") << QString::fromUtf8("😀🏳️‍🌈");
    QTest::newRow("NUL") << QString("a%1b").arg(QChar(0));
    QTest::newRow("controls") << QString("\x01\x7f\t");
    QTest::newRow("a no-break space") << QString("a%1b").arg(QChar(0xa0));
    QTest::newRow("a byte order mark") << QString("a%1b").arg(QChar(0xfeff));
    QTest::newRow("not a character") << QString(QChar(0xffff));
    QTest::newRow("100,000 letters") << QString(100000, 'k');
}

void BadStyleFilesTest::keysMayBeAnyText()
{
    QFETCH(QString, key);
    load({"== " + key.toUtf8() + " ==\nx"});
    QCOMPARE(getStyleSheet(key), QString("\nx"));
}

void BadStyleFilesTest::pathsMayBeAnyText_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no text") << "";
    QTest::newRow("Chinese") << QString::fromUtf8("/没有/文件.qss");
    QTest::newRow("beyond the basic plane") << QString::fromUtf8("/😀.qss");
    QTest::newRow("a lone surrogate") << "/no/such/" + QString(QChar(0xd800));
    QTest::newRow("NUL") << QString("/etc%1").arg(QChar(0));
    QTest::newRow("longer than any path") << "/" + QString(5000, 'x');
    QTest::newRow("no such resource") << ":/no/such/file.qss";
    QTest::newRow("a file in place of a folder") << "/dev/null/x.qss";
}

void BadStyleFilesTest::pathsMayBeAnyText()
{
    QFETCH(QString, path);
    StyleManager::getInstance().initialize({path, m_host.writeFile("x.qss", "==path==\nx")});
    const QStringList warnings = messages.take();
    // For a NUL Qt logs a warning of its own before ours.
    QCOMPARE(warnings.size(), path.contains(QChar(0)) ? 2 : 1);
    QVERIFY(warnings.last().startsWith("file \"") && warnings.last().endsWith("\" not exist"));
    QCOMPARE(storedSheet("path"), QString("\nx"));
}

VEMO_TEST_MAIN(BadStyleFilesTest)
#include "tst_badstylefiles.moc"
