#include "qserversocket.h"

#include "logging_p.h"

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>

#include <limits>

qint64 QServerSocket::p_for_maxBytesPerClient = 0;

QServerSocket::QServerSocket(int port, QObject* parent)
    : QObject(parent)
    , m_port(port)
    , m_server(new QTcpServer(this))
{
    connect(m_server, SIGNAL(newConnection()), this, SLOT(newConnection()));

    // Loopback only: the listener is for programs on this machine.
    const bool ok = m_server->listen(QHostAddress::LocalHost, quint16(port));
    qCInfo(lcBedrockNet, "port:%d Listening:%s", m_port, ok ? "succ" : "fail");
    if (ok)
        qCInfo(lcBedrockNet, "Listening: succ");
    else
        qCCritical(lcBedrockNet, "Listening failed! Reason:%s",
                   qUtf8Printable(m_server->errorString()));
}

QServerSocket::~QServerSocket()
{
    // The sockets still connected go with the server, our child; by then no
    // connection reaches this object any more, so their buffers are freed here.
    qDeleteAll(m_buffers);
    qDeleteAll(m_sizes);
}

void QServerSocket::close()
{
    m_server->close();
}

QString QServerSocket::errorString() const
{
    return m_server->errorString();
}

int QServerSocket::serverPort() const
{
    return m_server->serverPort();
}

void QServerSocket::newConnection()
{
    const qint64 cap = p_for_maxBytesPerClient;
    while (m_server->hasPendingConnections()) {
        QTcpSocket* socket = m_server->nextPendingConnection();
        if (!socket)
            break;
        connect(socket, SIGNAL(readyRead()), this, SLOT(readyRead()));
        connect(socket, SIGNAL(disconnected()), this, SLOT(disconnected()));
        // With a cap, the socket itself never holds more than one byte past
        // it, so an oversized send is caught before it is all in memory.
        if (cap > 0 && cap < std::numeric_limits<qint64>::max())
            socket->setReadBufferSize(cap + 1);
        // A socket at the address of one already gone replaces its entries.
        forgetClient(socket);
        m_buffers.insert(socket, new QByteArray);
        m_sizes.insert(socket, new qint32(0));
    }
}

void QServerSocket::disconnected()
{
    auto* socket = qobject_cast<QTcpSocket*>(sender());
    if (!socket || socket->parent() != m_server)
        return;
    forgetClient(socket);
    socket->deleteLater();
}

// Frees a client's buffer and counter and removes their entries. Leaving the
// entries behind with freed values would give any later lookup a dangling
// pointer; a socket at a reused address finds no entry either way.
void QServerSocket::forgetClient(QTcpSocket* socket)
{
    delete m_buffers.take(socket);
    delete m_sizes.take(socket);
}

void QServerSocket::readyRead()
{
    auto* socket = qobject_cast<QTcpSocket*>(sender());
    QByteArray* buffer = socket ? m_buffers.value(socket) : nullptr;
    if (!buffer)
        return;

    const qint64 cap = p_for_maxBytesPerClient;
    while (socket->bytesAvailable() > 0) {
        if (cap > 0 && socket->bytesAvailable() > cap - buffer->size()) {
            qCInfo(lcBedrockNet, "client sent more than %lld bytes: disconnected",
                   static_cast<long long>(cap));
            forgetClient(socket);
            // abort() emits disconnected() at once, which schedules the
            // socket's deletion; the buffer is already gone.
            socket->abort();
            return;
        }
        buffer->append(socket->readAll());
    }
    // The signal takes its own copy: a receiver may disconnect the client,
    // which frees the buffer.
    emit dataReceived(socket, *buffer);
}
