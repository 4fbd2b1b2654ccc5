// SPDX-License-Identifier: MIT
// Pages over https by Schannel. The servers are those of scripts/with-tls-servers, because Windows
// has no openssl to make certificates with, and Wine can't use a key for a server.
#include "help/helphost.h"
#include "support/vemotest.h"

#include <vemo/BrowserWindow>

#include <QSslCertificate>
#include <QSslConfiguration>
#include <QTextBrowser>

class WindowsTlsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void pagesNeedACertificateThatIsTrusted_data();
    void pagesNeedACertificateThatIsTrusted();

private:
    HelpHost m_host;
    QStringList m_ports;
};

namespace {

/// Counts failures.
class CountingWindow : public BrowserWindow
{
public:
    int failures = 0;

protected:
    void fallbackOffline() override { ++failures; }
};

} // namespace

void WindowsTlsTest::initTestCase()
{
    m_ports = qEnvironmentVariable("VEMO_TLS_PORTS").split(' ', Qt::SkipEmptyParts);
    if (m_ports.isEmpty())
        QSKIP("There are no servers (scripts/with-tls-servers starts them)");
    QCOMPARE(m_ports.size(), 3);
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    QVERIFY(configuration.addCaCertificates(qEnvironmentVariable("VEMO_TLS_AUTHORITY")));
    QSslConfiguration::setDefaultConfiguration(configuration);
}

void WindowsTlsTest::pagesNeedACertificateThatIsTrusted_data()
{
    QTest::addColumn<int>("server");
    QTest::addColumn<QString>("text");
    addRow("good", 0, "secure");
    addRow("another host's", 1, "");
    addRow("an unknown authority's", 2, "");
}

void WindowsTlsTest::pagesNeedACertificateThatIsTrusted()
{
    QFETCH(const int, server);
    QFETCH(const QString, text);
    CountingWindow window;
    window.reload(QUrl(QStringLiteral("https://127.0.0.1:%1/page.html").arg(m_ports.at(server))));
    const auto *view = window.findChild<QTextBrowser *>();
    QTRY_VERIFY_WITH_TIMEOUT(
        window.failures > 0 || !view->toPlainText().isEmpty(), BrowserWindow::TIMEOUT);
    QCOMPARE(view->toPlainText(), text);
    QCOMPARE(window.failures, text.isEmpty() ? 1 : 0);
}

VEMO_TEST_MAIN(WindowsTlsTest)
#include "tst_windowstls.moc"
