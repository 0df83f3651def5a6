// Debian's nginx, run by a test as a peer that nobody here wrote: plain HTTP and
// HTTPS on two free loopback ports, serving `root`, with its pid, logs and
// temporary files in `dir`, and `extra` added to the server block. The process
// is killed when the object goes.
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>

class NginxServer
{
public:
    static QString program() { return QStringLiteral("/usr/sbin/nginx"); }
    static bool installed() { return QFileInfo(program()).isExecutable(); }

    ~NginxServer()
    {
        if (m_process.state() != QProcess::NotRunning) {
            m_process.kill();
            m_process.waitForFinished(5000);
        }
    }

    bool start(const QString& dir, const QString& root, const QString& certPath,
               const QString& keyPath, const QByteArray& extra = QByteArray())
    {
        m_httpPort = freePort();
        m_httpsPort = freePort();
        const QDir d(dir);
        for (const char* sub : { "body", "proxy", "fastcgi", "uwsgi", "scgi" })
            d.mkpath(QString::fromLatin1(sub));
        // In the foreground and as one process (it runs as root here), so the
        // test can kill it by its own handle.
        const QString conf
            = QStringLiteral("daemon off;\nmaster_process off;\nuser root;\nworker_processes 1;\n"
                             "pid %1/nginx.pid;\nerror_log %1/error.log;\n"
                             "events { worker_connections 64; }\n"
                             "http {\n"
                             "  access_log %1/access.log;\n"
                             "  client_body_temp_path %1/body;\n  proxy_temp_path %1/proxy;\n"
                             "  fastcgi_temp_path %1/fastcgi;\n  uwsgi_temp_path %1/uwsgi;\n"
                             "  scgi_temp_path %1/scgi;\n"
                             "  default_type application/octet-stream;\n"
                             "  server {\n"
                             "    listen 127.0.0.1:%2;\n    listen 127.0.0.1:%3 ssl;\n"
                             "    ssl_certificate %4;\n    ssl_certificate_key %5;\n"
                             "    root %6;\n%7\n"
                             "  }\n}\n")
                  .arg(d.absolutePath(), QString::number(m_httpPort), QString::number(m_httpsPort),
                       certPath, keyPath, root, QString::fromUtf8(extra));
        QFile file(d.filePath(QStringLiteral("nginx.conf")));
        if (!m_httpPort || !m_httpsPort || !file.open(QIODevice::WriteOnly)
            || file.write(conf.toUtf8()) != conf.toUtf8().size())
            return false;
        file.close();
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(program(),
                        { "-p", dir, "-c", file.fileName(), "-e", d.filePath("error.log") });
        return m_process.waitForStarted(5000);
    }

    // True once the HTTP and HTTPS ports both take a connection.
    bool accepts() const
    {
        for (quint16 port : { m_httpPort, m_httpsPort }) {
            QTcpSocket socket;
            socket.connectToHost(QHostAddress::LocalHost, port);
            if (!socket.waitForConnected(200))
                return false;
        }
        return true;
    }

    QByteArray url(const QByteArray& scheme, const QByteArray& path) const
    {
        const quint16 port = scheme == "https" ? m_httpsPort : m_httpPort;
        return scheme + "://127.0.0.1:" + QByteArray::number(port) + path;
    }

private:
    // A port the system just gave out and took back; nginx binds it a moment later.
    static quint16 freePort()
    {
        QTcpServer probe;
        return probe.listen(QHostAddress::LocalHost, 0) ? probe.serverPort() : 0;
    }

    QProcess m_process;
    quint16 m_httpPort = 0;
    quint16 m_httpsPort = 0;
};
