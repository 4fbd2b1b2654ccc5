// SPDX-License-Identifier: MIT
#include "help/testcertificates.h"

#include <QFile>
#include <QProcess>
#include <QSslCertificate>
#include <QSslKey>

namespace {

const char *const kNames[] = {"good", "wronghost", "expired", "future", "selfsigned", "unknown"};

const QByteArray kSettings = R"(
[req]
distinguished_name = name
[name]
[ca]
default_ca = authority
[authority]
dir = .
new_certs_dir = .
database = index.txt
rand_serial = yes
default_md = sha256
policy = policy
[policy]
commonName = supplied
[authority_extensions]
basicConstraints = critical, CA:TRUE
keyUsage = critical, keyCertSign
)";

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

TestCertificates::TestCertificates()
{
    const QString here = QStringLiteral("IP:127.0.0.1");
    const QStringList now {QStringLiteral("-days"), QStringLiteral("2")};
    const QStringList past {QStringLiteral("-startdate"), QStringLiteral("200101000000Z"),
        QStringLiteral("-enddate"), QStringLiteral("200201000000Z")};
    const QStringList future {QStringLiteral("-startdate"), QStringLiteral("20900101000000Z"),
        QStringLiteral("-enddate"), QStringLiteral("20900201000000Z")};
    writeFile(path(QStringLiteral("settings")), kSettings);
    makeAuthority(QStringLiteral("authority"));
    makeAuthority(QStringLiteral("stranger"));
    const QString authority = QStringLiteral("authority");
    makeCertificate(QString::fromLatin1(kNames[GOOD]), authority, here, now);
    makeCertificate(QString::fromLatin1(kNames[WRONG_HOST]), authority,
        QStringLiteral("DNS:vemo.invalid"), now);
    makeCertificate(QString::fromLatin1(kNames[EXPIRED]), authority, here, past);
    makeCertificate(QString::fromLatin1(kNames[NOT_YET_VALID]), authority, here, future);
    makeCertificate(QString::fromLatin1(kNames[SELF_SIGNED]), QString(), here, now);
    makeCertificate(
        QString::fromLatin1(kNames[UNKNOWN_AUTHORITY]), QStringLiteral("stranger"), here, now);
}

QSslConfiguration TestCertificates::server(Kind kind) const
{
    const QString name = QString::fromLatin1(kNames[kind]);
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    configuration.setLocalCertificate(
        QSslCertificate(readFile(path(name + QLatin1String(".pem")))));
    configuration.setPrivateKey(QSslKey(readFile(path(name + QLatin1String(".key"))), QSsl::Ec));
    return configuration;
}

void TestCertificates::trust() const
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.addCaCertificates(path(QStringLiteral("authority.pem")));
    QSslConfiguration::setDefaultConfiguration(configuration);
}

void TestCertificates::makeAuthority(const QString &name)
{
    writeFile(path(QStringLiteral("index.txt")), {});
    run({QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"),
        QStringLiteral("ec"), QStringLiteral("-pkeyopt"), QStringLiteral("ec_paramgen_curve:P-256"),
        QStringLiteral("-nodes"), QStringLiteral("-config"), QStringLiteral("settings"),
        QStringLiteral("-extensions"), QStringLiteral("authority_extensions"),
        QStringLiteral("-subj"), QStringLiteral("/CN=Vemo test ") + name, QStringLiteral("-days"),
        QStringLiteral("2"), QStringLiteral("-keyout"), name + QLatin1String(".key"),
        QStringLiteral("-out"), name + QLatin1String(".pem")});
}

/// If authority is empty, it is self-signed.
void TestCertificates::makeCertificate(
    const QString &name, const QString &authority, const QString &host, const QStringList &dates)
{
    writeFile(path(QStringLiteral("extensions")), "subjectAltName = " + host.toLatin1() + "\n");
    run({QStringLiteral("req"), QStringLiteral("-new"), QStringLiteral("-newkey"),
        QStringLiteral("ec"), QStringLiteral("-pkeyopt"), QStringLiteral("ec_paramgen_curve:P-256"),
        QStringLiteral("-nodes"), QStringLiteral("-config"), QStringLiteral("settings"),
        QStringLiteral("-subj"), QStringLiteral("/CN=Vemo test ") + name, QStringLiteral("-keyout"),
        name + QLatin1String(".key"), QStringLiteral("-out"), QStringLiteral("request")});
    const QStringList signer = authority.isEmpty()
        ? QStringList {QStringLiteral("-selfsign"), QStringLiteral("-keyfile"),
            name + QLatin1String(".key")}
        : QStringList {QStringLiteral("-cert"), authority + QLatin1String(".pem"),
            QStringLiteral("-keyfile"), authority + QLatin1String(".key")};
    run(QStringList {QStringLiteral("ca"), QStringLiteral("-batch"), QStringLiteral("-notext"),
            QStringLiteral("-config"), QStringLiteral("settings"), QStringLiteral("-in"),
            QStringLiteral("request"), QStringLiteral("-extfile"), QStringLiteral("extensions"),
            QStringLiteral("-out"), name + QLatin1String(".pem")}
        + signer + dates);
}

void TestCertificates::run(const QStringList &arguments)
{
    QProcess openssl;
    openssl.setWorkingDirectory(m_folder.path());
    openssl.start(QStringLiteral("openssl"), arguments);
    const bool isDone = openssl.waitForFinished() && openssl.exitCode() == 0;
    if (!isDone && m_is_valid)
        fprintf(stderr, "%s\n", openssl.readAllStandardError().constData());
    m_is_valid &= isDone;
}
