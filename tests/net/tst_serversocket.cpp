#include "logcapture.h"
#include "qserversocket.h"

#include <QHostAddress>
#include <QPointer>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

#include <memory>

namespace {
QTcpServer* serverOf(QServerSocket& listener)
{
    return listener.findChild<QTcpServer*>();
}

quint16 portOf(QServerSocket& listener)
{
    QTcpServer* server = serverOf(listener);
    return server ? server->serverPort() : 0;
}

std::unique_ptr<QTcpSocket> connectClient(quint16 port)
{
    auto client = std::make_unique<QTcpSocket>();
    client->connectToHost(QHostAddress(QHostAddress::LocalHost), port);
    if (!client->waitForConnected(5000))
        return nullptr;
    return client;
}

// Every dataReceived, with the peer port read while the socket still lives.
class Recorder
{
public:
    explicit Recorder(QServerSocket& listener)
    {
        m_connection = QObject::connect(&listener, &QServerSocket::dataReceived,
                                        [this](QTcpSocket* socket, const QByteArray& data) {
                                            m_received.append({ socket, socket->peerPort(), data });
                                        });
    }
    ~Recorder() { QObject::disconnect(m_connection); }

    int count() const { return int(m_received.size()); }
    // What the latest signal carried for the server side of `client`.
    QByteArray lastFor(const QTcpSocket& client) const { return lastFor(client.localPort()); }
    // The same by the client's port, which a client that was dropped forgets.
    QByteArray lastFor(quint16 clientPort) const
    {
        for (qsizetype i = m_received.size() - 1; i >= 0; --i) {
            if (m_received.at(i).peerPort == clientPort)
                return m_received.at(i).data;
        }
        return QByteArray();
    }
    QTcpSocket* lastSocket() const
    {
        return m_received.isEmpty() ? nullptr : m_received.last().socket;
    }

private:
    struct Received {
        QTcpSocket* socket; // not followed once its client has left
        quint16 peerPort;
        QByteArray data;
    };
    QList<Received> m_received;
    QMetaObject::Connection m_connection;
};
} // namespace

class tst_ServerSocket : public QObject
{
    Q_OBJECT
private slots:
    void listensOnLoopbackOnly();
    void portTaken_data();
    void portTaken();
    void eachSignalCarriesAllSoFar();
    void clientsKeptApart();
    void leavingClientIsForgotten();
    void closeKeepsConnectedClients();
    void bytesPerClient_data();
    void bytesPerClient();
    void cleanup();
};

void tst_ServerSocket::cleanup()
{
    QServerSocket::p_for_maxBytesPerClient = 0;
}

void tst_ServerSocket::listensOnLoopbackOnly()
{
    LogCapture log("bedrock.net");
    QServerSocket listener(0);
    QTcpServer* server = serverOf(listener);
    QVERIFY(server);
    QVERIFY(server->isListening());
    QCOMPARE(server->serverAddress(), QHostAddress(QHostAddress::LocalHost));
    QVERIFY(server->serverPort() != 0);
    QCOMPARE(listener.serverPort(), int(server->serverPort()));
    QCOMPARE(log.messages(), QStringList({ "port:0 Listening:succ", "Listening: succ" }));
}

void tst_ServerSocket::portTaken_data()
{
    QTest::addColumn<int>("above");
    QTest::newRow("the port itself") << 0;
    QTest::newRow("port above 16 bits lands on the same port") << 65536;
}

void tst_ServerSocket::portTaken()
{
    QFETCH(int, above);
    QTcpServer occupant;
    QVERIFY(occupant.listen(QHostAddress::LocalHost, 0));
    const int port = occupant.serverPort() + above;

    LogCapture log("bedrock.net");
    QServerSocket listener(port);
    QVERIFY(!serverOf(listener)->isListening());
    QVERIFY(!listener.errorString().isEmpty());
    QCOMPARE(log.messages(),
             QStringList({ QStringLiteral("port:%1 Listening:fail").arg(port),
                           "Listening failed! Reason:" + listener.errorString() }));
}

void tst_ServerSocket::eachSignalCarriesAllSoFar()
{
    QServerSocket listener(0);
    Recorder received(listener);
    auto client = connectClient(portOf(listener));
    QVERIFY(client);

    client->write("abc");
    QTRY_COMPARE(received.lastFor(*client), QByteArray("abc"));
    const int afterFirst = received.count();
    client->write("defg");
    QTRY_COMPARE(received.lastFor(*client), QByteArray("abcdefg"));
    QVERIFY(received.count() > afterFirst);
}

// Each client has its own buffer, and a client that sends nothing is never
// reported.
void tst_ServerSocket::clientsKeptApart()
{
    QServerSocket listener(0);
    Recorder received(listener);
    auto silent = connectClient(portOf(listener));
    QVERIFY(silent);
    QTRY_COMPARE(serverOf(listener)->findChildren<QTcpSocket*>().size(), 1);
    auto first = connectClient(portOf(listener));
    auto second = connectClient(portOf(listener));
    QVERIFY(first && second);

    first->write("a1");
    QTRY_COMPARE(received.lastFor(*first), QByteArray("a1"));
    second->write("b1");
    QTRY_COMPARE(received.lastFor(*second), QByteArray("b1"));
    first->write("a2");
    QTRY_COMPARE(received.lastFor(*first), QByteArray("a1a2"));
    QCOMPARE(received.lastFor(*second), QByteArray("b1"));
    QCOMPARE(received.count(), 3);
}

void tst_ServerSocket::leavingClientIsForgotten()
{
    QServerSocket listener(0);
    Recorder received(listener);
    auto client = connectClient(portOf(listener));
    QVERIFY(client);
    client->write("abc");
    QTRY_COMPARE(received.lastFor(*client), QByteArray("abc"));
    QPointer<QTcpSocket> serverSide = received.lastSocket();

    client->disconnectFromHost();
    QTRY_VERIFY(serverSide.isNull());

    // A new client starts from nothing, even at the old socket's address.
    auto next = connectClient(portOf(listener));
    QVERIFY(next);
    next->write("z");
    QTRY_COMPARE(received.lastFor(*next), QByteArray("z"));
}

void tst_ServerSocket::closeKeepsConnectedClients()
{
    QServerSocket listener(0);
    const quint16 port = portOf(listener);
    Recorder received(listener);
    auto client = connectClient(port);
    QVERIFY(client);
    QTRY_COMPARE(serverOf(listener)->findChildren<QTcpSocket*>().size(), 1);

    listener.close();
    QVERIFY(!serverOf(listener)->isListening());
    client->write("still here");
    QTRY_COMPARE(received.lastFor(*client), QByteArray("still here"));

    QTcpSocket late;
    QSignalSpy refused(&late, &QTcpSocket::errorOccurred);
    late.connectToHost(QHostAddress(QHostAddress::LocalHost), port);
    QVERIFY(refused.wait());
    QCOMPARE(refused.first().at(0).value<QAbstractSocket::SocketError>(),
             QAbstractSocket::ConnectionRefusedError);
}

// The cap counts everything a client has sent: up to it the client is served,
// one byte past it the client is dropped.
void tst_ServerSocket::bytesPerClient_data()
{
    QTest::addColumn<qint64>("cap");
    QTest::addColumn<QList<int>>("sends");
    QTest::addColumn<bool>("dropped");
    QTest::newRow("no cap: a megabyte is taken whole")
        << qint64(0) << QList<int> { 1 << 20 } << false;
    QTest::newRow("exactly the cap in one send") << qint64(16) << QList<int> { 16 } << false;
    QTest::newRow("exactly the cap over two sends") << qint64(16) << QList<int> { 10, 6 } << false;
    QTest::newRow("one byte past the cap in one send") << qint64(16) << QList<int> { 17 } << true;
    QTest::newRow("one byte past the cap after reaching it")
        << qint64(16) << QList<int> { 16, 1 } << true;
}

void tst_ServerSocket::bytesPerClient()
{
    QFETCH(qint64, cap);
    QFETCH(QList<int>, sends);
    QFETCH(bool, dropped);
    QServerSocket::p_for_maxBytesPerClient = cap;

    LogCapture log("bedrock.net");
    QServerSocket listener(0);
    Recorder received(listener);
    auto client = connectClient(portOf(listener));
    QVERIFY(client);
    const quint16 clientPort = client->localPort();
    log.clear();

    int total = 0;
    for (int size : sends) {
        if (total > 0) // let the server take the earlier bytes first
            QTRY_COMPARE(received.lastFor(*client).size(), total);
        client->write(QByteArray(size, 'x'));
        total += size;
    }
    if (dropped) {
        QTRY_COMPARE(client->state(), QAbstractSocket::UnconnectedState);
        QCOMPARE(
            log.messages(),
            QStringList(QStringLiteral("client sent more than %1 bytes: disconnected").arg(cap)));
        QVERIFY(received.lastFor(clientPort).size() <= cap);
    } else {
        QTRY_COMPARE(received.lastFor(*client).size(), total);
        QCOMPARE(client->state(), QAbstractSocket::ConnectedState);
        QVERIFY(log.messages().isEmpty());
    }
}

QTEST_GUILESS_MAIN(tst_ServerSocket)
#include "tst_serversocket.moc"
