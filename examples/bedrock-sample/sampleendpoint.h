// A stand-in for the filing service: a listener on the loopback address that
// answers one SOAP post and remembers what it received.
#pragma once

#include <LibBedrock.h>

#include <QByteArray>
#include <QTcpSocket>

struct SampleEndpoint {
    QServerSocket listener { 0 };
    QByteArray received;

    SampleEndpoint()
    {
        QObject::connect(&listener, &QServerSocket::dataReceived, &listener,
                         [this](QTcpSocket* socket, const QByteArray& data) {
                             // Each signal carries all the client sent so far:
                             // answer once the body announced is all in.
                             const qsizetype end = data.indexOf("\r\n\r\n");
                             if (!received.isEmpty() || end < 0
                                 || data.size() < end + 4 + contentLength(data.left(end)))
                                 return;
                             received = data;
                             const QByteArray ack = "<ack>received</ack>";
                             socket->write("HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\n"
                                           "Content-Length: "
                                           + QByteArray::number(ack.size())
                                           + "\r\nConnection: close\r\n\r\n" + ack);
                             socket->disconnectFromHost();
                         });
    }

    QByteArray url() const
    {
        return "http://127.0.0.1:" + QByteArray::number(listener.serverPort()) + "/netfile";
    }

    static qsizetype contentLength(const QByteArray& head)
    {
        for (const QByteArray& line : head.split('\n')) {
            if (line.toLower().startsWith("content-length:"))
                return line.mid(15).trimmed().toLongLong();
        }
        return 0;
    }
};
