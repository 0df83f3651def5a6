// An HTTP/1.1 server on 127.0.0.1, port 0, for tests of network code: it records
// the raw bytes of every request and answers each as the test sets. It runs on
// the test's own thread and never blocks, so a client waiting in a nested event
// loop is served meanwhile. A request ends after its headers and Content-Length
// bytes of body.
#pragma once

#include <QSslConfiguration>
#include <QSslServer>
#include <QTcpServer>
#include <QTcpSocket>

#include <memory>

class LoopbackHttpServer
{
public:
    struct Answer {
        QByteArray bytes; // status line, headers and body, sent as they are
        qint64 filler = 0; // then as many 'x' bytes, written as the peer takes them; -1: endless
        bool close = false; // close the connection after the last byte
        bool silent = false; // read the request and never answer
    };

    // A complete answer with a Content-Length.
    static Answer status(int code, const QByteArray& body, const QByteArray& reason = "X")
    {
        Answer a;
        a.bytes = "HTTP/1.1 " + QByteArray::number(code) + ' ' + reason
            + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
        return a;
    }

    // Any bytes, then `filler` bytes of 'x' (-1: endless), then a close if asked.
    static Answer raw(const QByteArray& bytes, qint64 filler = 0, bool close = false)
    {
        return Answer { bytes, filler, close, false };
    }
    static Answer silence() { return Answer { {}, 0, false, true }; }

    LoopbackHttpServer()
        : m_server(new QTcpServer)
    { }
    explicit LoopbackHttpServer(const QSslConfiguration& tls)
    {
        auto* server = new QSslServer;
        server->setSslConfiguration(tls);
        m_server.reset(server);
    }

    bool listen()
    {
        // Over TLS a connection comes out once its handshake is done.
        QObject::connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, m_server.get(),
                         [this] {
                             while (QTcpSocket* socket = m_server->nextPendingConnection())
                                 serve(socket);
                         });
        return m_server->listen(QHostAddress::LocalHost, 0);
    }
    quint16 port() const { return m_server->serverPort(); }
    QByteArray url(const QByteArray& path = "/") const
    {
        const bool tls = qobject_cast<QSslServer*>(m_server.get());
        return (tls ? "https://127.0.0.1:" : "http://127.0.0.1:") + QByteArray::number(port())
            + path;
    }

    // The answer to every request from now on; 200 "ok" until set.
    void setAnswer(const Answer& answer) { m_answer = answer; }
    const QList<QByteArray>& requests() const { return m_requests; }
    int open() const { return m_open; } // connections not yet closed by either side

private:
    struct Connection {
        QByteArray in;
        qint64 fillerLeft = 0;
        bool closeAtEnd = false;
    };

    using Conn = std::shared_ptr<Connection>;

    void serve(QTcpSocket* socket)
    {
        ++m_open;
        const Conn conn = std::make_shared<Connection>();
        QObject::connect(socket, &QTcpSocket::disconnected, socket, [this, socket] {
            --m_open;
            socket->deleteLater();
        });
        QObject::connect(socket, &QTcpSocket::readyRead, socket,
                         [this, socket, conn] { onRead(socket, conn); });
        QObject::connect(socket, &QTcpSocket::bytesWritten, socket,
                         [socket, conn] { fill(socket, *conn); });
        if (socket->bytesAvailable())
            onRead(socket, conn);
    }

    void onRead(QTcpSocket* socket, const Conn& conn)
    {
        conn->in += socket->readAll();
        for (;;) {
            const qsizetype end = conn->in.indexOf("\r\n\r\n");
            if (end < 0)
                return;
            const qsizetype size = end + 4 + contentLength(conn->in.left(end));
            if (conn->in.size() < size)
                return;
            m_requests.append(conn->in.left(size));
            conn->in.remove(0, size);
            answer(socket, conn);
        }
    }

    static qsizetype contentLength(const QByteArray& head)
    {
        for (const QByteArray& line : head.split('\n')) {
            const qsizetype colon = line.indexOf(':');
            if (colon > 0 && line.left(colon).trimmed().toLower() == "content-length")
                return line.mid(colon + 1).trimmed().toLongLong();
        }
        return 0;
    }

    void answer(QTcpSocket* socket, const Conn& conn)
    {
        if (m_answer.silent)
            return;
        socket->write(m_answer.bytes);
        conn->fillerLeft = m_answer.filler;
        conn->closeAtEnd = m_answer.close;
        fill(socket, *conn);
    }

    // Writes filler while the peer keeps up, so an endless body costs no memory here.
    static void fill(QTcpSocket* socket, Connection& conn)
    {
        static const QByteArray chunk(64 * 1024, 'x');
        while (conn.fillerLeft != 0 && socket->bytesToWrite() < 4 * chunk.size()
               && socket->state() == QAbstractSocket::ConnectedState) {
            const qint64 n
                = conn.fillerLeft < 0 ? chunk.size() : qMin<qint64>(conn.fillerLeft, chunk.size());
            socket->write(chunk.constData(), n);
            if (conn.fillerLeft > 0)
                conn.fillerLeft -= n;
        }
        if (conn.fillerLeft == 0 && conn.closeAtEnd) {
            conn.closeAtEnd = false;
            socket->disconnectFromHost();
        }
    }

    Answer m_answer = status(200, "ok", "OK");
    QList<QByteArray> m_requests;
    int m_open = 0;
    // Last, so its sockets go while the counters they update still exist.
    std::unique_ptr<QTcpServer> m_server;
};
