#include "qwebclient.h"

#include "loopbackhttpserver.h"
#include "nginxserver.h"
#include "slowtests.h"
#include "tempfiles.h"
#include "testcertificate.h"

#include <QDataStream>
#include <QElapsedTimer>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QPointer>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QSslConfiguration>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

// The request forms of the client, each called by `call` below.
enum class Form {
    Get,
    GetDownloadFile,
    Post,
    PostBasic,
    PostDownload,
    PostByMultiPart,
    Soap,
    SoapT2
};
Q_DECLARE_METATYPE(Form)
Q_DECLARE_METATYPE(LoopbackHttpServer::Answer)

using Answer = LoopbackHttpServer::Answer;

// Headers that the network stack adds by itself; a request may carry them
// besides those a row expects, and nothing else.
static const QByteArrayList frameworkHeaders
    = { "host",           "connection",  "accept-encoding", "user-agent", "accept-language",
        "content-length", "mime-version" };

static const char* cstr(const QByteArray& b)
{
    return b.isNull() ? nullptr : b.constData();
}

// One call of `form`; `a` and `b` are its two text arguments (credentials and
// scheme, user and secret, name and value, xml and attachment, or the path
// of a download). `response` changes as the call changes it; the stream of
// postAndExpectFileDownload comes back in it as Latin-1 text.
static bool call(QWebClient& client, Form form, const QByteArray& a, const QByteArray& b,
                 QString& response)
{
    switch (form) {
    case Form::Get:
        return client.get(response, cstr(a), cstr(b));
    case Form::GetDownloadFile:
        return client.getDownloadFile(QString::fromUtf8(a));
    case Form::Post:
        return client.post(response, cstr(a), cstr(b));
    case Form::PostBasic:
        return client.post(response, cstr(a));
    case Form::PostDownload: {
        QByteArray out;
        QDataStream stream(&out, QIODevice::WriteOnly);
        const bool ok = client.postAndExpectFileDownload(&stream) == 0;
        if (ok)
            response = QString::fromLatin1(out);
        return ok;
    }
    case Form::PostByMultiPart:
        return client.postByMultiPart(response, cstr(a), cstr(b));
    case Form::Soap: {
        std::string answer = response.toStdString();
        const bool ok
            = client.postSoapXML(std::string("<soap/>"), QStringLiteral("text/xml; charset=utf-8"),
                                 cstr(a), cstr(b), answer);
        response = QString::fromStdString(answer);
        return ok;
    }
    case Form::SoapT2:
        return client.callSoapT2(CString(QString::fromLatin1(a)), b.toStdString(), response);
    }
    return false;
}

class tst_WebClient : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanup();
    void authHeader_data();
    void authHeader();
    void requestBytes_data();
    void requestBytes();
    void answers_data();
    void answers();
    void waitLimit_data();
    void waitLimit();
    void neverAnswered();
    void stalledTlsHandshake_data();
    void stalledTlsHandshake();
    void replyCeiling_data();
    void replyCeiling();
    void downloadToFile_data();
    void downloadToFile();
    void downloadStream_data();
    void downloadStream();
    void uploadThatWontOpen_data();
    void uploadThatWontOpen();
    void certificateErrors_data();
    void certificateErrors();
    void canIgnoreSslError_data();
    void canIgnoreSslError();
    void clientOutlivesItsReply_data();
    void clientOutlivesItsReply();
    void nginxPeer_data();
    void nginxPeer();
    void updateProgressWritesWhatTheReplyHolds_data();
    void updateProgressWritesWhatTheReplyHolds();
    void replyFinishedLetsReplyAndManagerGo();

private:
    QTemporaryDir m_dir;
    TestCertificate m_cert;
    QString m_upload;
    QSslConfiguration m_defaultSsl;
    std::unique_ptr<NginxServer> m_nginx;
    QByteArray m_bigText;
    QByteArray m_bigBinary;
};

void tst_WebClient::initTestCase()
{
    // Every request here goes to 127.0.0.1 straight, whatever the environment says.
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    QVERIFY(m_dir.isValid());
    QVERIFY2(m_cert.make(m_dir.path()), "openssl could not make a certificate");
    m_upload = writeTempFile(m_dir, QStringLiteral("upload.txt"), "file\r\nbytes");
    QVERIFY(!m_upload.isEmpty());
    m_defaultSsl = QSslConfiguration::defaultConfiguration();
}

void tst_WebClient::cleanup()
{
    QWebClient::p_for_soapVerifyPeer = false;
    QWebClient::p_for_sslIgnoreParsedHost = false;
    QWebClient::p_for_timeoutFails = false;
    QWebClient::p_for_waitMsecs = 20000;
    QWebClient::p_for_maxReplyBytes = qint64(1) << 30;
    QSslConfiguration::setDefaultConfiguration(m_defaultSsl);
}

void tst_WebClient::authHeader_data()
{
    QTest::addColumn<QByteArray>("credentials");
    QTest::addColumn<QByteArray>("scheme");
    QTest::addColumn<QByteArray>("header"); // null: none set

    QTest::newRow("scheme first, one blank, then credentials")
        << QByteArray("abc") << QByteArray("Basic") << QByteArray("Basic abc");
    QTest::newRow("null credentials: nothing")
        << QByteArray() << QByteArray("Basic") << QByteArray();
    QTest::newRow("null scheme: nothing") << QByteArray("abc") << QByteArray() << QByteArray();
}

void tst_WebClient::authHeader()
{
    QFETCH(QByteArray, credentials);
    QFETCH(QByteArray, scheme);
    QFETCH(QByteArray, header);

    QNetworkRequest request;
    requestAddAuthHeader(request, cstr(credentials), cstr(scheme));
    QCOMPARE(request.hasRawHeader("Authorization"), !header.isNull());
    QCOMPARE(request.rawHeader("Authorization"), header);
}

// The exact request of each form: request line, the headers the client sets
// (and no other header but the network stack's own), and the body.
void tst_WebClient::requestBytes_data()
{
    QTest::addColumn<Form>("form");
    QTest::addColumn<bool>("force");
    QTest::addColumn<QByteArray>("file"); // null: the first constructor
    QTest::addColumn<QByteArray>("fileName");
    QTest::addColumn<QByteArrayList>("items");
    QTest::addColumn<QByteArray>("a");
    QTest::addColumn<QByteArray>("b");
    QTest::addColumn<QByteArray>("requestLine");
    QTest::addColumn<QByteArrayList>("headers");
    QTest::addColumn<QByteArray>("body");

    const QByteArray none;
    const QByteArray form = "Content-Type: application/x-www-form-urlencoded";
    const QByteArray multipart
        = "Content-Type: multipart/form-data; boundary=\"----WebKitFormBoundary7MA4YWxkTrZu0gW\"";
    const QByteArray auth = "Authorization: Basic x";
    const QByteArray json = "Accept: application/json";
    const QByteArray soapHeaders = "SOAPAction: testest";
    const QByteArray soapType = "Content-Type: text/xml; charset=utf-8";
    const QByteArray soapLength = "Content-Length: 7";

    QTest::newRow("get, no credentials: no Authorization, no Accept")
        << Form::Get << false << none << none << QByteArrayList() << none << none
        << QByteArray("GET /r HTTP/1.1") << QByteArrayList() << QByteArray();
    QTest::newRow("get with credentials and scheme: scheme first, then Accept")
        << Form::Get << false << none << none << QByteArrayList() << QByteArray("tok")
        << QByteArray("Bearer") << QByteArray("GET /r HTTP/1.1")
        << QByteArrayList { "Authorization: Bearer tok", json } << QByteArray();
    QTest::newRow("get, credentials without scheme: neither header")
        << Form::Get << false << none << none << QByteArrayList() << QByteArray("tok") << none
        << QByteArray("GET /r HTTP/1.1") << QByteArrayList() << QByteArray();
    QTest::newRow("get, scheme without credentials: neither header")
        << Form::Get << false << none << none << QByteArrayList() << none << QByteArray("Basic")
        << QByteArray("GET /r HTTP/1.1") << QByteArrayList() << QByteArray();
    QTest::newRow("getDownloadFile adds no header")
        << Form::GetDownloadFile << false << none << none << QByteArrayList()
        << m_dir.filePath("request.bin").toUtf8() << none << QByteArray("GET /r HTTP/1.1")
        << QByteArrayList() << QByteArray();
    QTest::newRow("post(response, nullptr): url-encoded, no Authorization, no Accept")
        << Form::PostBasic << false << none << none
        << QByteArrayList { "a", "1", "b", "x y\xc3\xa9" } << none << none
        << QByteArray("POST /r HTTP/1.1") << QByteArrayList { form }
        << QByteArray("a=1&b=x%20y%C3%A9");
    QTest::newRow("post(response, \"x\"): Basic and x, one blank between")
        << Form::PostBasic << false << none << none << QByteArrayList { "a", "1" }
        << QByteArray("x") << none << QByteArray("POST /r HTTP/1.1")
        << QByteArrayList { form, auth, json } << QByteArray("a=1");
    QTest::newRow("post with a scheme of the caller's")
        << Form::Post << false << none << none << QByteArrayList { "a", "1" } << QByteArray("t")
        << QByteArray("Bearer") << QByteArray("POST /r HTTP/1.1")
        << QByteArrayList { form, "Authorization: Bearer t", json } << QByteArray("a=1");
    QTest::newRow("post, credentials without scheme: neither header")
        << Form::Post << false << none << none << QByteArrayList { "a", "1" } << QByteArray("t")
        << none << QByteArray("POST /r HTTP/1.1") << QByteArrayList { form } << QByteArray("a=1");
    QTest::newRow("forced multipart without a file: just the added parts")
        << Form::PostBasic << true << none << none << QByteArrayList { "a", "1", "b", "two" }
        << none << none << QByteArray("POST /r HTTP/1.1") << QByteArrayList { multipart }
        << QByteArray("------WebKitFormBoundary7MA4YWxkTrZu0gW\r\n"
                      "Content-Disposition: form-data; name=\"a\"\r\n\r\n1\r\n"
                      "------WebKitFormBoundary7MA4YWxkTrZu0gW\r\n"
                      "Content-Disposition: form-data; name=\"b\"\r\n\r\ntwo\r\n"
                      "------WebKitFormBoundary7MA4YWxkTrZu0gW--\r\n");
    QTest::newRow("multipart with credentials: Authorization and Accept")
        << Form::PostBasic << true << none << none << QByteArrayList { "a", "1" } << QByteArray("x")
        << none << QByteArray("POST /r HTTP/1.1") << QByteArrayList { multipart, auth, json }
        << QByteArray("------WebKitFormBoundary7MA4YWxkTrZu0gW\r\n"
                      "Content-Disposition: form-data; name=\"a\"\r\n\r\n1\r\n"
                      "------WebKitFormBoundary7MA4YWxkTrZu0gW--\r\n");
    QTest::newRow("upload: the file part comes after the added parts")
        << Form::PostBasic << false << QByteArray("upload.txt") << QByteArray("u.txt")
        << QByteArrayList { "a", "1" } << none << none << QByteArray("POST /r HTTP/1.1")
        << QByteArrayList { multipart }
        << QByteArray("------WebKitFormBoundary7MA4YWxkTrZu0gW\r\n"
                      "Content-Disposition: form-data; name=\"a\"\r\n\r\n1\r\n"
                      "------WebKitFormBoundary7MA4YWxkTrZu0gW\r\n"
                      "Content-Disposition: form-data; name=\"doc\"; filename=\"u.txt\"\r\n\r\n"
                      "file\r\nbytes\r\n"
                      "------WebKitFormBoundary7MA4YWxkTrZu0gW--\r\n");
    QTest::newRow("file path with an empty file name: url-encoded, file ignored")
        << Form::PostBasic << false << QByteArray("upload.txt") << QByteArray("")
        << QByteArrayList { "a", "1" } << none << none << QByteArray("POST /r HTTP/1.1")
        << QByteArrayList { form } << QByteArray("a=1");
    QTest::newRow("postAndExpectFileDownload, url-encoded: no Authorization, no Accept")
        << Form::PostDownload << false << none << none << QByteArrayList { "a", "1" } << none
        << none << QByteArray("POST /r HTTP/1.1") << QByteArrayList { form } << QByteArray("a=1");
    QTest::newRow("postAndExpectFileDownload uploads as post does")
        << Form::PostDownload << false << QByteArray("upload.txt") << QByteArray("u.txt")
        << QByteArrayList() << none << none << QByteArray("POST /r HTTP/1.1")
        << QByteArrayList { multipart }
        << QByteArray("------WebKitFormBoundary7MA4YWxkTrZu0gW\r\n"
                      "Content-Disposition: form-data; name=\"doc\"; filename=\"u.txt\"\r\n\r\n"
                      "file\r\nbytes\r\n"
                      "------WebKitFormBoundary7MA4YWxkTrZu0gW--\r\n");
    QTest::newRow("postByMultiPart: fixed query, no blank line of its own")
        << Form::PostByMultiPart << false << none << none << QByteArrayList() << QByteArray("field")
        << QByteArray("\r\nvalue") << QByteArray("POST /r?fn=1&md=2 HTTP/1.1")
        << QByteArrayList { "Content-Type: multipart/form-data; boundary=AaB03x",
                            "Content-Length: 78" }
        << QByteArray("--AaB03x\r\nContent-Disposition: form-data; name=\"field\";\r\n"
                      "\r\nvalue\r\n--AaB03x--\r\n");
    QTest::newRow("postByMultiPart, null value: nothing between the line ends")
        << Form::PostByMultiPart << false << none << none << QByteArrayList() << QByteArray("n")
        << none << QByteArray("POST /r?fn=1&md=2 HTTP/1.1")
        << QByteArrayList { "Content-Type: multipart/form-data; boundary=AaB03x",
                            "Content-Length: 67" }
        << QByteArray("--AaB03x\r\nContent-Disposition: form-data; name=\"n\";\r\n"
                      "\r\n--AaB03x--\r\n");
    QTest::newRow("SOAP: Basic of user:secret, no Accept")
        << Form::Soap << false << none << none << QByteArrayList() << QByteArray("user")
        << QByteArray("pass") << QByteArray("POST /r HTTP/1.1")
        << QByteArrayList { soapType, "Authorization: Basic dXNlcjpwYXNz", soapLength, soapHeaders }
        << QByteArray("<soap/>");
    QTest::newRow("SOAP: user with a null secret sends the Base64 of x:")
        << Form::Soap << false << none << none << QByteArrayList() << QByteArray("x") << none
        << QByteArray("POST /r HTTP/1.1")
        << QByteArrayList { soapType, "Authorization: Basic eDo=", soapLength, soapHeaders }
        << QByteArray("<soap/>");
    QTest::newRow("SOAP: the bearer word in capitals takes the Bearer path")
        << Form::Soap << false << none << none << QByteArrayList()
        << QByteArray("AUTHORIZATION_BEARER") << QByteArray("tok") << QByteArray("POST /r HTTP/1.1")
        << QByteArrayList { soapType, "Authorization: Bearer tok", json, soapLength, soapHeaders }
        << QByteArray("<soap/>");
    QTest::newRow("SOAP: null user, no Authorization")
        << Form::Soap << false << none << none << QByteArrayList() << none << QByteArray("pass")
        << QByteArray("POST /r HTTP/1.1") << QByteArrayList { soapType, soapLength, soapHeaders }
        << QByteArray("<soap/>");
    QTest::newRow("callSoapT2: multipart/related, the SOAP part first")
        << Form::SoapT2 << false << none << none << QByteArrayList() << QByteArray("<x/>")
        << QByteArray("attached") << QByteArray("POST /r HTTP/1.1")
        << QByteArrayList { "Content-Type: multipart/related; "
                            "boundary=\"MULTI-PARTS-FORM-DATA-BOUNDARY\"; type=\"text/xml\"; "
                            "start=\"<soapPart>\"",
                            soapHeaders }
        << QByteArray("--MULTI-PARTS-FORM-DATA-BOUNDARY\r\n"
                      "Content-Type: text/xml; charset=iso-8859-1\r\n"
                      "Content-Transfer-Encoding: 8bit\r\n"
                      "Content-ID: <soapPart>\r\n\r\n"
                      "<x/>\r\n"
                      "--MULTI-PARTS-FORM-DATA-BOUNDARY\r\n"
                      "Content-Type: text/plain; charset=iso-8859-1\r\n\r\n"
                      "attached\r\n"
                      "--MULTI-PARTS-FORM-DATA-BOUNDARY--\r\n");
}

void tst_WebClient::requestBytes()
{
    QFETCH(Form, form);
    QFETCH(bool, force);
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, fileName);
    QFETCH(QByteArrayList, items);
    QFETCH(QByteArray, a);
    QFETCH(QByteArray, b);
    QFETCH(QByteArray, requestLine);
    QFETCH(QByteArrayList, headers);
    QFETCH(QByteArray, body);

    LoopbackHttpServer server;
    QVERIFY(server.listen());
    const QByteArray url = server.url("/r");
    std::unique_ptr<QWebClient> client(
        file.isNull() ? new QWebClient(url.constData(), force)
                      : new QWebClient(url.constData(), m_dir.filePath(file).toUtf8().constData(),
                                       fileName.constData(), "doc"));
    for (qsizetype i = 0; i + 1 < items.size(); i += 2)
        client->addQueryItem(items.at(i).constData(), items.at(i + 1).constData());
    QString response;
    QVERIFY(call(*client, form, a, b, response));
    QCOMPARE(server.requests().size(), 1);

    const QByteArray request = server.requests().at(0);
    const qsizetype end = request.indexOf("\r\n\r\n");
    QVERIFY(end > 0);
    QByteArrayList lines = request.left(end).split('\n');
    for (QByteArray& line : lines)
        line = line.trimmed();
    QCOMPARE(lines.takeFirst(), requestLine);
    QByteArrayList expectedNames;
    for (const QByteArray& header : headers) {
        QVERIFY2(lines.count(header) == 1, header.constData());
        expectedNames << header.left(header.indexOf(':')).toLower();
    }
    for (const QByteArray& line : lines) {
        const QByteArray name = line.left(line.indexOf(':')).toLower();
        QVERIFY2(expectedNames.contains(name) || frameworkHeaders.contains(name), line.constData());
    }
    QCOMPARE(request.mid(end + 4), body);
}

// What each form makes of an answer: the response on success, the old one
// kept on failure.
void tst_WebClient::answers_data()
{
    QTest::addColumn<Form>("form");
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<bool>("timeoutFails");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("response");

    const QString old = QStringLiteral("old");
    const Answer hello = LoopbackHttpServer::status(200, "h\xc3\xa9llo");
    const Answer error = LoopbackHttpServer::status(500, "broken");
    const QString helloText = QString::fromUtf8("h\xc3\xa9llo");

    QTest::newRow("get: 200 gives the body as UTF-8")
        << Form::Get << hello << false << true << helloText;
    QTest::newRow("get: 500 fails, old response kept")
        << Form::Get << error << false << false << old;
    QTest::newRow("post: 200 gives the body")
        << Form::PostBasic << hello << false << true << helloText;
    QTest::newRow("post: 500 fails, old response kept")
        << Form::PostBasic << error << false << false << old;
    QTest::newRow("postByMultiPart: 200 gives the body")
        << Form::PostByMultiPart << hello << false << true << helloText;
    QTest::newRow("postByMultiPart: 500 fails, old response kept")
        << Form::PostByMultiPart << error << false << false << old;
    QTest::newRow("postSoapXML: 200 gives the body")
        << Form::Soap << hello << false << true << helloText;
    QTest::newRow("postSoapXML: 500 fails, old response kept")
        << Form::Soap << error << false << false << old;
    QTest::newRow("callSoapT2: 200 gives the body")
        << Form::SoapT2 << hello << false << true << helloText;
    QTest::newRow("callSoapT2: 500 fails, old response kept")
        << Form::SoapT2 << error << false << false << old;
    QTest::newRow("answer trickled in pieces arrives whole")
        << Form::Get << LoopbackHttpServer::trickled(hello, 5, 20) << false << true << helloText;
    QTest::newRow("connection closed mid-answer fails")
        << Form::Get
        << LoopbackHttpServer::raw("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nten bytes.", 0,
                                   true)
        << false << false << old;
    QTest::newRow("no answer: success and empty after the wait")
        << Form::Get << LoopbackHttpServer::silence() << false << true << QString("");
    QTest::newRow("no answer, time-out made a failure: old response kept")
        << Form::Get << LoopbackHttpServer::silence() << true << false << old;
    QTest::newRow("half a body by the wait limit: success with what arrived")
        << Form::Get << LoopbackHttpServer::raw("HTTP/1.1 200 OK\r\nContent-Length: 8\r\n\r\nhalf")
        << false << true << QString("half");
    QTest::newRow("half a body, time-out made a failure: old response kept")
        << Form::PostBasic
        << LoopbackHttpServer::raw("HTTP/1.1 200 OK\r\nContent-Length: 8\r\n\r\nhalf") << true
        << false << old;
    QTest::newRow("garbage status line fails")
        << Form::Get << LoopbackHttpServer::raw("\x01\xff garbage\r\n\r\n", 0, true) << false
        << false << old;
    QTest::newRow("garbage header lines passed over: the body runs to the close")
        << Form::Get
        << LoopbackHttpServer::raw("HTTP/1.1 200 OK\r\nContent-Length: zz\r\n\x01\xff\r\n\r\nok", 0,
                                   true)
        << false << true << QString("ok");
}

void tst_WebClient::answers()
{
    QFETCH(Form, form);
    QFETCH(Answer, answer);
    QFETCH(bool, timeoutFails);
    QFETCH(bool, ok);
    QFETCH(QString, response);

    LoopbackHttpServer server;
    QVERIFY(server.listen());
    server.setAnswer(answer);
    QWebClient::p_for_waitMsecs = 500;
    QWebClient::p_for_timeoutFails = timeoutFails;
    QWebClient client(server.url().constData(), false);
    QString got = QStringLiteral("old");
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(call(client, form, QByteArray(), QByteArray(), got), ok);
    QCOMPARE(got, response);
    QVERIFY2(clock.elapsed() < 2500, "held past the wait limit");
}

// The wait limit holds, no request keeps running after its call, and a
// wait that ends on the limit is success with nothing unless made a failure.
void tst_WebClient::waitLimit_data()
{
    QTest::addColumn<int>("waitMsecs");
    QTest::addColumn<Form>("form");
    QTest::addColumn<bool>("timeoutFails");
    QTest::addColumn<bool>("ok");

    QTest::newRow("short limit") << 200 << Form::Get << false << true;
    QTest::newRow("longer limit") << 700 << Form::Get << false << true;
    QTest::newRow("time-out made a failure") << 300 << Form::PostBasic << true << false;
}

void tst_WebClient::waitLimit()
{
    QFETCH(int, waitMsecs);
    QFETCH(Form, form);
    QFETCH(bool, timeoutFails);
    QFETCH(bool, ok);

    LoopbackHttpServer server;
    QVERIFY(server.listen());
    server.setAnswer(LoopbackHttpServer::silence());
    QWebClient::p_for_waitMsecs = waitMsecs;
    QWebClient::p_for_timeoutFails = timeoutFails;
    QWebClient client(server.url().constData(), false);
    QString response;
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(call(client, form, QByteArray(), QByteArray(), response), ok);
    const qint64 elapsed = clock.elapsed();
    QVERIFY2(elapsed >= waitMsecs, QByteArray::number(elapsed).constData());
    QVERIFY2(elapsed < waitMsecs + 2000, QByteArray::number(elapsed).constData());
    QCOMPARE(server.requests().size(), 1);
    QTRY_COMPARE(server.open(), 0);
}

void tst_WebClient::neverAnswered()
{
    BEDROCK_SLOW_TEST();
    LoopbackHttpServer server;
    QVERIFY(server.listen());
    server.setAnswer(LoopbackHttpServer::silence());
    QWebClient client(server.url().constData(), false);
    QString response = QStringLiteral("old");
    QElapsedTimer clock;
    clock.start();
    QVERIFY(client.get(response));
    QCOMPARE(response, QString(""));
    QVERIFY(clock.elapsed() >= 20000);
    QVERIFY(clock.elapsed() < 25000);
}

// An https request to a server that takes the connection and never speaks TLS.
void tst_WebClient::stalledTlsHandshake_data()
{
    QTest::addColumn<Form>("form");
    QTest::addColumn<bool>("timeoutFails");
    QTest::addColumn<bool>("ok");

    QTest::newRow("get: success and empty after the wait") << Form::Get << false << true;
    QTest::newRow("time-out made a failure") << Form::Get << true << false;
}

void tst_WebClient::stalledTlsHandshake()
{
    QFETCH(Form, form);
    QFETCH(bool, timeoutFails);
    QFETCH(bool, ok);

    LoopbackHttpServer server;
    QVERIFY(server.listen());
    server.setAnswer(LoopbackHttpServer::silence());
    QWebClient::p_for_waitMsecs = 300;
    QWebClient::p_for_timeoutFails = timeoutFails;
    auto client = std::make_unique<QWebClient>(
        ("https://127.0.0.1:" + QByteArray::number(server.port()) + "/").constData(), false);
    QString response = QStringLiteral("old");
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(call(*client, form, QByteArray(), QByteArray(), response), ok);
    QCOMPARE(response, ok ? QString("") : QString("old"));
    QVERIFY(clock.elapsed() < 2300);
    // The stalled connection goes with the client at the latest.
    client.reset();
    QTRY_COMPARE(server.open(), 0);
}

// The most bytes a reply may bring, announced or arrived.
void tst_WebClient::replyCeiling_data()
{
    QTest::addColumn<qint64>("ceiling"); // -1: the default
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<bool>("ok");

    const QByteArray unannounced = "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n";
    QTest::newRow("arrived: exactly the ceiling passes")
        << qint64(65536) << LoopbackHttpServer::raw(unannounced, 65536, true) << true;
    QTest::newRow("arrived: one byte over the ceiling fails")
        << qint64(65536) << LoopbackHttpServer::raw(unannounced, 65537, true) << false;
    QTest::newRow("announced: exactly the ceiling passes")
        << qint64(65536)
        << LoopbackHttpServer::raw("HTTP/1.1 200 OK\r\nContent-Length: 65536\r\n\r\n", 65536)
        << true;
    // One byte arrives and the rest never does: only the announced length
    // can end this before the wait limit, which would be success.
    QTest::newRow("announced: one byte over fails before the body arrives")
        << qint64(65536)
        << LoopbackHttpServer::raw("HTTP/1.1 200 OK\r\nContent-Length: 65537\r\n\r\n", 1) << false;
    QTest::newRow("endless body stopped by the ceiling")
        << qint64(1 << 20) << LoopbackHttpServer::raw("HTTP/1.1 200 OK\r\n\r\n", -1) << false;
    QTest::newRow("several hundred megabytes announced")
        << qint64(8 << 20)
        << LoopbackHttpServer::raw("HTTP/1.1 200 OK\r\nContent-Length: 400000000\r\n\r\n",
                                   400000000)
        << false;
    QTest::newRow("default ceiling takes a body past a small one")
        << qint64(-1) << LoopbackHttpServer::raw(unannounced, 65537, true) << true;
}

void tst_WebClient::replyCeiling()
{
    QFETCH(qint64, ceiling);
    QFETCH(Answer, answer);
    QFETCH(bool, ok);

    LoopbackHttpServer server;
    QVERIFY(server.listen());
    server.setAnswer(answer);
    QWebClient::p_for_waitMsecs = 1000;
    if (ceiling >= 0)
        QWebClient::p_for_maxReplyBytes = ceiling;
    QWebClient client(server.url().constData(), false);
    QString response;
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(client.get(response), ok);
    if (ok)
        QCOMPARE(response, QString(answer.filler, u'x'));
    QVERIFY(clock.elapsed() < 3000);
}

void tst_WebClient::downloadToFile_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<bool>("written");

    const Answer body = LoopbackHttpServer::status(200, QByteArray("\0\xff\r\nbin", 7));
    QTest::newRow("good server: the body lands in the file")
        << body << QString("out.bin") << true << true;
    QTest::newRow("unwritable path with a good server: still true")
        << body << QString("no such folder/out.bin") << true << false;
    QTest::newRow("server error: false and no file")
        << LoopbackHttpServer::status(500, "x") << QString("error.bin") << false << false;
}

void tst_WebClient::downloadToFile()
{
    QFETCH(Answer, answer);
    QFETCH(QString, name);
    QFETCH(bool, ok);
    QFETCH(bool, written);

    LoopbackHttpServer server;
    QVERIFY(server.listen());
    server.setAnswer(answer);
    QWebClient client(server.url().constData(), false);
    const QString path = m_dir.filePath(name);
    QCOMPARE(client.getDownloadFile(path), ok);
    QFile file(path);
    QCOMPARE(file.open(QIODevice::ReadOnly), written);
    if (written)
        QCOMPARE(file.readAll(), QByteArray("\0\xff\r\nbin", 7));
}

void tst_WebClient::downloadStream_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("out");

    QTest::newRow("success: 0, the 32-bit length, then the bytes")
        << LoopbackHttpServer::status(200, "abc") << 0 << QByteArray("\0\0\0\3abc", 7);
    QTest::newRow("network failure: 99 and nothing written")
        << LoopbackHttpServer::status(500, "abc") << 99 << QByteArray();
}

void tst_WebClient::downloadStream()
{
    QFETCH(Answer, answer);
    QFETCH(int, code);
    QFETCH(QByteArray, out);

    LoopbackHttpServer server;
    QVERIFY(server.listen());
    server.setAnswer(answer);
    QWebClient client(server.url().constData(), false);
    client.addQueryItem("a", "1");
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    QCOMPARE(client.postAndExpectFileDownload(&stream), code);
    QCOMPARE(bytes, out);
    QCOMPARE(client.m_downloadStream, nullptr);
}

void tst_WebClient::uploadThatWontOpen_data()
{
    QTest::addColumn<bool>("download");
    QTest::newRow("post: false") << false;
    QTest::newRow("postAndExpectFileDownload: 106") << true;
}

void tst_WebClient::uploadThatWontOpen()
{
    QFETCH(bool, download);

    LoopbackHttpServer server;
    QVERIFY(server.listen());
    {
        QWebClient client(server.url("/upload").constData(),
                          m_dir.filePath("missing.txt").toUtf8().constData(), "m.txt", "doc");
        QString response = QStringLiteral("old");
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        if (download)
            QCOMPARE(client.postAndExpectFileDownload(&stream), 106);
        else
            QVERIFY(!client.post(response, "x"));
        QCOMPARE(response, QString("old"));
        QVERIFY(bytes.isEmpty());
    }
    // Whatever the failed call might have sent would reach the server before
    // this one: the server sees only this.
    QWebClient next(server.url("/next").constData(), false);
    QString response;
    QVERIFY(next.get(response));
    QCOMPARE(server.requests().size(), 1);
    QVERIFY(server.requests().at(0).startsWith("GET /next "));
}

// A certificate nobody trusts: only post and postAndExpectFileDownload may
// pass it, for an address of a private network; the SOAP forms don't check.
void tst_WebClient::certificateErrors_data()
{
    QTest::addColumn<Form>("form");
    QTest::addColumn<bool>("prefix"); // URL text starts with "https://192.168." (in user-info)
    QTest::addColumn<bool>("parsedHost");
    QTest::addColumn<bool>("soapVerifyPeer");
    QTest::addColumn<bool>("ok");

    QTest::newRow("post with the 192.168. prefix passes")
        << Form::PostBasic << true << false << false << true;
    QTest::newRow("post without the prefix fails")
        << Form::PostBasic << false << false << false << false;
    QTest::newRow("postAndExpectFileDownload with the prefix passes")
        << Form::PostDownload << true << false << false << true;
    QTest::newRow("postAndExpectFileDownload without the prefix fails")
        << Form::PostDownload << false << false << false << false;
    QTest::newRow("get fails with the prefix") << Form::Get << true << false << false << false;
    QTest::newRow("getDownloadFile fails with the prefix")
        << Form::GetDownloadFile << true << false << false << false;
    QTest::newRow("postByMultiPart fails with the prefix")
        << Form::PostByMultiPart << true << false << false << false;
    QTest::newRow("parsed host: the prefix in user-info no longer passes")
        << Form::PostBasic << true << true << false << false;
    QTest::newRow("postSoapXML does not verify the peer")
        << Form::Soap << false << false << false << true;
    QTest::newRow("postSoapXML verifies the peer when asked")
        << Form::Soap << false << false << true << false;
    QTest::newRow("callSoapT2 does not verify the peer")
        << Form::SoapT2 << false << false << false << true;
    QTest::newRow("callSoapT2 verifies the peer when asked")
        << Form::SoapT2 << false << false << true << false;
}

void tst_WebClient::certificateErrors()
{
    QFETCH(Form, form);
    QFETCH(bool, prefix);
    QFETCH(bool, parsedHost);
    QFETCH(bool, soapVerifyPeer);
    QFETCH(bool, ok);

    LoopbackHttpServer server(m_cert.serverConfiguration());
    QVERIFY(server.listen());
    QWebClient::p_for_waitMsecs = 2000;
    QWebClient::p_for_sslIgnoreParsedHost = parsedHost;
    QWebClient::p_for_soapVerifyPeer = soapVerifyPeer;
    // The text passes the prefix test while the request goes to 127.0.0.1.
    const QByteArray url = (prefix ? "https://192.168.0.1@127.0.0.1:" : "https://127.0.0.1:")
        + QByteArray::number(server.port()) + "/";
    QWebClient client(url.constData(), false);
    QString response = QStringLiteral("old");
    const QByteArray path = m_dir.filePath("tls.bin").toUtf8();
    QCOMPARE(call(client, form, form == Form::GetDownloadFile ? path : QByteArray(), QByteArray(),
                  response),
             ok);
    QCOMPARE(server.requests().size(), ok ? 1 : 0);
}

void tst_WebClient::canIgnoreSslError_data()
{
    QTest::addColumn<QByteArray>("url");
    QTest::addColumn<bool>("parsedHost");
    QTest::addColumn<bool>("expected");

    QTest::newRow("text: 192.168 address passes")
        << QByteArray("https://192.168.1.10/") << false << true;
    QTest::newRow("text: user-info passes, the weakness")
        << QByteArray("https://192.168.0.1@127.0.0.1/") << false << true;
    QTest::newRow("text: host name passes, the weakness")
        << QByteArray("https://192.168.example.com/") << false << true;
    QTest::newRow("text: case-sensitive") << QByteArray("HTTPS://192.168.1.10/") << false << false;
    QTest::newRow("text: plain http does not pass")
        << QByteArray("http://192.168.1.10/") << false << false;
    QTest::newRow("text: 192.169 does not pass")
        << QByteArray("https://192.169.1.10/") << false << false;
    QTest::newRow("text: address after user-info does not pass")
        << QByteArray("https://u@192.168.1.10/") << false << false;

    QTest::newRow("parsed: lowest address of 192.168.0.0/16 passes")
        << QByteArray("https://192.168.0.0/") << true << true;
    QTest::newRow("parsed: highest address passes")
        << QByteArray("https://192.168.255.255/") << true << true;
    QTest::newRow("parsed: one below the range fails")
        << QByteArray("https://192.167.255.255/") << true << false;
    QTest::newRow("parsed: one above the range fails")
        << QByteArray("https://192.169.0.0/") << true << false;
    QTest::newRow("parsed: address after user-info passes")
        << QByteArray("https://u@192.168.1.10/") << true << true;
    QTest::newRow("parsed: prefix in user-info does not pass")
        << QByteArray("https://192.168.0.1@127.0.0.1/") << true << false;
    QTest::newRow("parsed: host name does not pass")
        << QByteArray("https://192.168.example.com/") << true << false;
    QTest::newRow("parsed: plain http does not pass")
        << QByteArray("http://192.168.1.10/") << true << false;
}

void tst_WebClient::canIgnoreSslError()
{
    QFETCH(QByteArray, url);
    QFETCH(bool, parsedHost);
    QFETCH(bool, expected);

    QWebClient::p_for_sslIgnoreParsedHost = parsedHost;
    QWebClient client(url.constData(), false); // decides on the text; nothing is sent
    QCOMPARE(client.canIgnoreSslError(), expected);
}

// Outside the one-request contract, but sound: the client kept past the
// deferred deletion of its reply, then a second request on it, which may end
// either way but must end.
void tst_WebClient::clientOutlivesItsReply_data()
{
    QTest::addColumn<bool>("upload");
    QTest::newRow("forced multipart") << false;
    QTest::newRow("upload") << true;
}

void tst_WebClient::clientOutlivesItsReply()
{
    QFETCH(bool, upload);

    LoopbackHttpServer server;
    QVERIFY(server.listen());
    QWebClient::p_for_waitMsecs = 1000;
    std::unique_ptr<QWebClient> client(upload ? new QWebClient(server.url().constData(),
                                                               m_upload.toUtf8().constData(),
                                                               "u.txt", "doc")
                                              : new QWebClient(server.url().constData(), true));
    client->addQueryItem("a", "1");
    QString response;
    QVERIFY(client->post(response, nullptr));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    client->post(response, nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    client.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// The slots an application connects to a reply of its own.
void tst_WebClient::updateProgressWritesWhatTheReplyHolds_data()
{
    QTest::addColumn<bool>("streamSet");
    QTest::addColumn<QByteArray>("written");
    QTest::newRow("a stream set: one length-prefixed block")
        << true << QByteArray("\0\0\0\4body", 8);
    QTest::newRow("no stream: the bytes are read and dropped") << false << QByteArray();
}

void tst_WebClient::updateProgressWritesWhatTheReplyHolds()
{
    QFETCH(bool, streamSet);
    QFETCH(QByteArray, written);
    LoopbackHttpServer server;
    QVERIFY(server.listen());
    server.setAnswer(LoopbackHttpServer::status(200, "body"));
    QNetworkAccessManager manager;
    QNetworkReply* reply = manager.get(QNetworkRequest(QUrl(QString::fromLatin1(server.url()))));
    QSignalSpy finished(reply, &QNetworkReply::finished);
    QVERIFY(finished.wait());

    QWebClient client(server.url().constData(), false);
    QByteArray out;
    QDataStream stream(&out, QIODevice::WriteOnly);
    client.m_reply = reply;
    client.m_downloadStream = streamSet ? &stream : nullptr;
    client.onUpdateProgress(0, 0);
    QCOMPARE(out, written);
    QCOMPARE(reply->bytesAvailable(), 0);
}

void tst_WebClient::replyFinishedLetsReplyAndManagerGo()
{
    LoopbackHttpServer server;
    QVERIFY(server.listen());
    QWebClient client(server.url().constData(), false);
    QString response;
    QVERIFY(client.get(response));
    const QPointer<QNetworkAccessManager> manager = client.m_manager;
    const QPointer<QNetworkReply> reply = client.m_reply;
    QVERIFY(manager && reply);
    client.replyFinished(reply);
    QVERIFY(!client.m_manager);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!manager);
    QVERIFY(!reply);
}

// A server nobody here wrote, over HTTP and HTTPS.
void tst_WebClient::nginxPeer_data()
{
    QTest::addColumn<QByteArray>("scheme");
    QTest::addColumn<Form>("form");
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<bool>("trusted");
    QTest::addColumn<bool>("ok");

    QTest::newRow("http: get of a few megabytes")
        << QByteArray("http") << Form::Get << QByteArray("/big.txt") << false << true;
    QTest::newRow("http: getDownloadFile of a few megabytes")
        << QByteArray("http") << Form::GetDownloadFile << QByteArray("/big.bin") << false << true;
    QTest::newRow("https: get, certificate trusted")
        << QByteArray("https") << Form::Get << QByteArray("/big.txt") << true << true;
    QTest::newRow("https: getDownloadFile, certificate trusted")
        << QByteArray("https") << Form::GetDownloadFile << QByteArray("/big.bin") << true << true;
    QTest::newRow("https: get fails on an untrusted certificate")
        << QByteArray("https") << Form::Get << QByteArray("/big.txt") << false << false;
    QTest::newRow("http: a request the server refuses fails")
        << QByteArray("http") << Form::Get << QByteArray("/private/big.txt") << false << false;
    QTest::newRow("https: a request the server refuses fails")
        << QByteArray("https") << Form::GetDownloadFile << QByteArray("/private/big.bin") << true
        << false;
}

void tst_WebClient::nginxPeer()
{
    QFETCH(QByteArray, scheme);
    QFETCH(Form, form);
    QFETCH(QByteArray, path);
    QFETCH(bool, trusted);
    QFETCH(bool, ok);

    if (!NginxServer::installed())
        QSKIP("nginx is not installed");
    if (!m_nginx) {
        // Text that is valid UTF-8 for get, any bytes for the file.
        QRandomGenerator random(20250101);
        for (int i = 0; i < 3 << 20; ++i) {
            m_bigBinary += char(random.bounded(256));
            m_bigText += i % 64 == 63 ? '\n' : char('a' + random.bounded(26));
        }
        QDir(m_dir.path()).mkpath("www/private");
        for (const QString& name : { QString("www/big.txt"), QString("www/private/big.txt") })
            QVERIFY(!writeTempFile(m_dir, name, m_bigText).isEmpty());
        for (const QString& name : { QString("www/big.bin"), QString("www/private/big.bin") })
            QVERIFY(!writeTempFile(m_dir, name, m_bigBinary).isEmpty());
        QDir(m_dir.path()).mkpath("nginx");
        m_nginx = std::make_unique<NginxServer>();
        QVERIFY(m_nginx->start(m_dir.filePath("nginx"), m_dir.filePath("www"), m_cert.certPath,
                               m_cert.keyPath, "    location /private/ { deny all; }"));
        QTRY_VERIFY(m_nginx->accepts());
    }
    if (trusted) {
        QSslConfiguration conf = QSslConfiguration::defaultConfiguration();
        conf.addCaCertificate(m_cert.certificate);
        QSslConfiguration::setDefaultConfiguration(conf);
    }
    QWebClient::p_for_waitMsecs = 5000;
    QWebClient client(m_nginx->url(scheme, path).constData(), false);
    QString response = QStringLiteral("old");
    const QString file = m_dir.filePath("nginx-download.bin");
    QFile::remove(file);
    QCOMPARE(call(client, form, file.toUtf8(), QByteArray(), response), ok);
    if (form == Form::Get) {
        QCOMPARE(response == QString::fromUtf8(m_bigText), ok);
        if (!ok)
            QCOMPARE(response, QString("old"));
    } else {
        QFile out(file);
        QCOMPARE(out.open(QIODevice::ReadOnly), ok);
        if (ok)
            QVERIFY(out.readAll() == m_bigBinary);
    }
}

QTEST_MAIN(tst_WebClient)
#include "tst_webclient.moc"
