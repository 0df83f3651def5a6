#include "logcapture.h"
#include "qserversocket.h"

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

std::unique_ptr<QTcpSocket> connectClient(QServerSocket& listener)
{
    auto client = std::make_unique<QTcpSocket>();
    client->connectToHost(QHostAddress(QHostAddress::LocalHost), quint16(listener.serverPort()));
    return client->waitForConnected(5000) ? std::move(client) : nullptr;
}

// What the latest dataReceived for `client` carried.
QByteArray latest(const QSignalSpy& received, const QTcpSocket& client)
{
    for (qsizetype i = received.size() - 1; i >= 0; --i) {
        if (received.at(i).at(0).value<QTcpSocket*>()->peerPort() == client.localPort())
            return received.at(i).at(1).toByteArray();
    }
    return QByteArray();
}
} // namespace

class tst_ServerSocket : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qRegisterMetaType<QTcpSocket*>(); }
    void cleanup() { QServerSocket::p_for_maxBytesPerClient = 0; }

    void portTaken()
    {
        QTcpServer occupant;
        QVERIFY(occupant.listen(QHostAddress::LocalHost, 0));
        LogCapture log("bedrock.net");
        QServerSocket listener(occupant.serverPort());
        QVERIFY(!serverOf(listener)->isListening());
        QVERIFY(!listener.errorString().isEmpty());
        QCOMPARE(log.messages(),
                 QStringList({ QStringLiteral("port:%1 Listening:fail").arg(occupant.serverPort()),
                               "Listening failed! Reason:" + listener.errorString() }));
    }

    // On loopback only. Each client has its own buffer and each signal carries
    // all of it so far; a client that sends nothing is never reported.
    void clientsKeptApart()
    {
        LogCapture log("bedrock.net");
        QServerSocket listener(0);
        QCOMPARE(log.messages(), QStringList({ "port:0 Listening:succ", "Listening: succ" }));
        QCOMPARE(serverOf(listener)->serverAddress(), QHostAddress(QHostAddress::LocalHost));
        QSignalSpy received(&listener, &QServerSocket::dataReceived);
        auto silent = connectClient(listener), first = connectClient(listener);
        auto second = connectClient(listener);
        QVERIFY(silent && first && second);
        second->write("b1");
        QTRY_COMPARE(latest(received, *second), QByteArray("b1"));
        first->write("abc");
        QTRY_COMPARE(latest(received, *first), QByteArray("abc"));
        first->write("defg");
        QTRY_COMPARE(latest(received, *first), QByteArray("abcdefg"));
        QCOMPARE(latest(received, *second), QByteArray("b1"));
        QCOMPARE(received.size(), 3);
    }

    // The cap counts everything a client has sent: up to it the client is
    // served, one byte past it the client is dropped.
    void bytesPerClient_data()
    {
        QTest::addColumn<qint64>("cap");
        QTest::addColumn<QList<int>>("sends");
        QTest::addColumn<bool>("dropped");
        QTest::newRow("no cap: a megabyte") << qint64(0) << QList<int> { 1 << 20 } << false;
        QTest::newRow("the cap in one send") << qint64(16) << QList<int> { 16 } << false;
        QTest::newRow("the cap over two sends") << qint64(16) << QList<int> { 10, 6 } << false;
        QTest::newRow("one byte past in one send") << qint64(16) << QList<int> { 17 } << true;
        QTest::newRow("one byte past the cap reached")
            << qint64(16) << QList<int> { 16, 1 } << true;
    }

    void bytesPerClient()
    {
        QFETCH(qint64, cap);
        QFETCH(QList<int>, sends);
        QFETCH(bool, dropped);
        QServerSocket::p_for_maxBytesPerClient = cap;
        QServerSocket listener(0);
        QSignalSpy received(&listener, &QServerSocket::dataReceived);
        auto client = connectClient(listener);
        QVERIFY(client);
        LogCapture log("bedrock.net");
        int total = 0;
        for (int size : sends) {
            if (total > 0) // let the server take the earlier bytes first
                QTRY_COMPARE(latest(received, *client).size(), total);
            client->write(QByteArray(size, 'x'));
            total += size;
        }
        QTRY_COMPARE(client->state(),
                     dropped ? QAbstractSocket::UnconnectedState : QAbstractSocket::ConnectedState);
        if (dropped) {
            QCOMPARE(log.messages(),
                     QStringList(
                         QStringLiteral("client sent more than %1 bytes: disconnected").arg(cap)));
            QVERIFY(received.isEmpty() || received.last().at(1).toByteArray().size() <= cap);
        } else {
            QTRY_COMPARE(latest(received, *client).size(), total);
            QVERIFY(log.messages().isEmpty());
        }
    }
};

QTEST_GUILESS_MAIN(tst_ServerSocket)
#include "tst_serversocket.moc"
