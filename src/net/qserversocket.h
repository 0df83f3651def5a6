// QServerSocket: a TCP listener on the loopback address, through which another
// program on the same machine hands data to a running application.
#pragma once

#include "libbedrock_export.h"

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QString>

class QTcpServer;
class QTcpSocket;

/*
 * Listens from construction on 127.0.0.1 only, so no other machine can reach
 * it. There is no protocol: each time a client's bytes arrive, dataReceived
 * carries everything that client has sent since it connected (the buffer is
 * never cleared), together with the socket, to which the owner may write an
 * answer. A receiver that wants only the new bytes remembers how far it read.
 *
 * A failure to listen leaves the object alive and silent; the owner learns of
 * it from errorString() and from the "bedrock.net" log. The object and its
 * sockets belong to the thread that made it.
 */
class LIBBEDROCK_EXPORT QServerSocket : public QObject
{
    Q_OBJECT

public:
    // The port is cut to 16 bits; 0 lets the system choose one.
    explicit QServerSocket(int port, QObject* parent = nullptr);
    ~QServerSocket() override;

    // Stops accepting clients. Clients already connected stay connected.
    void close();
    QString errorString() const;
    // The port listened on: the one the system chose when constructed with 0.
    // 0 when not listening.
    int serverPort() const;

    // The most bytes one client may send in all. A client whose bytes would
    // take its buffer past it is disconnected and its buffer dropped, with an
    // info line in the log. Default 0: no limit, a client may send without end.
    // Set it before clients connect.
    static qint64 p_for_maxBytesPerClient;

Q_SIGNALS:
    void dataReceived(QTcpSocket* socket, QByteArray data);

public Q_SLOTS:
    void newConnection();
    void disconnected();
    void readyRead();

private:
    void forgetClient(QTcpSocket* socket);

    int m_port;
    QTcpServer* m_server; // child of this object
    QHash<QTcpSocket*, QByteArray*> m_buffers;
    // A counter per client, made at connection and freed at disconnection;
    // nothing reads it in between.
    QHash<QTcpSocket*, qint32*> m_sizes;
};
