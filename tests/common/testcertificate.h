// A throwaway self-signed certificate for 127.0.0.1, made by the openssl command
// into a folder the caller keeps alive. No client trusts it unless the test adds
// `certificate` to its CA list.
#pragma once

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>

struct TestCertificate {
    QString certPath;
    QString keyPath;
    QSslCertificate certificate;
    QSslKey key;

    bool make(const QString& dir)
    {
        certPath = QDir(dir).filePath(QStringLiteral("cert.pem"));
        keyPath = QDir(dir).filePath(QStringLiteral("key.pem"));
        // An EC key: quick to make, and both Qt's TLS backend and nginx take it.
        QProcess openssl;
        openssl.start(QStringLiteral("openssl"),
                      { "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1",
                        "-nodes", "-days", "2", "-subj", "/CN=127.0.0.1", "-addext",
                        "subjectAltName=IP:127.0.0.1", "-keyout", keyPath, "-out", certPath });
        if (!openssl.waitForFinished(30000) || openssl.exitStatus() != QProcess::NormalExit
            || openssl.exitCode() != 0)
            return false;
        QFile c(certPath), k(keyPath);
        if (!c.open(QIODevice::ReadOnly) || !k.open(QIODevice::ReadOnly))
            return false;
        certificate = QSslCertificate(c.readAll(), QSsl::Pem);
        key = QSslKey(k.readAll(), QSsl::Ec, QSsl::Pem);
        return !certificate.isNull() && !key.isNull();
    }

    QSslConfiguration serverConfiguration() const
    {
        QSslConfiguration conf = QSslConfiguration::defaultConfiguration();
        conf.setLocalCertificate(certificate);
        conf.setPrivateKey(key);
        conf.setPeerVerifyMode(QSslSocket::VerifyNone);
        return conf;
    }
};
