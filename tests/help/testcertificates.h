// SPDX-License-Identifier: MIT
#pragma once

#include <QSslConfiguration>
#include <QTemporaryDir>

/// Certificates made for this run with the openssl command, and the authority that signs them.
class TestCertificates
{
public:
    enum Kind { GOOD, WRONG_HOST, EXPIRED, NOT_YET_VALID, SELF_SIGNED, UNKNOWN_AUTHORITY };

    TestCertificates();

    /// False if there is no openssl command; the test must then be skipped.
    bool isValid() const { return m_is_valid; }

    /// The configuration of a server on 127.0.0.1.
    QSslConfiguration server(Kind kind) const;

    /// Makes all later connections of this process trust the authority.
    void trust() const;

private:
    void makeAuthority(const QString &name);
    void makeCertificate(const QString &name, const QString &authority, const QString &host,
        const QStringList &dates);
    void run(const QStringList &arguments);
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
    bool m_is_valid = true;
};
