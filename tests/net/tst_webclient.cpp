#include "qwebclient.h"

#include "loopbackhttpserver.h"
#include "nginxserver.h"
#include "slowtests.h"
#include "tempfiles.h"
#include "testcertificate.h"

#include <QNetworkProxy>
#include <QSslConfiguration>
#include <QtTest>

#include <memory>

// The request forms of the client, each called by `call` below.
enum class Form { Get, GetDownloadFile, PostBasic, PostDownload, ByMultiPart, Soap, SoapT2 };
Q_DECLARE_METATYPE(Form)
Q_DECLARE_METATYPE(LoopbackHttpServer::Answer)

using Answer = LoopbackHttpServer::Answer;
using Server = LoopbackHttpServer;
using Bytes = QByteArrayList;

// How a client and its exchange are set up. Forced: a forced multi-part client; Upload,
// NoName, MissingUpload: an upload named "u.txt", with an empty name, or whose file won't
// open. TimeoutFails, ParsedHost, VerifyPeer: the switches of those names; Ceiling: at most
// 64 KiB a reply. Tls: the server speaks TLS with a certificate nobody trusts; Https: the URL
// says https; Prefix: the URL starts "https://192.168." (in its user-info); Unsent: no request
// reaches the server; Slow: the wait limit left as it starts. Nginx serves /big.txt to get,
// /big.bin to getDownloadFile; Trusted: its certificate trusted; Private: under /private/, which it
// refuses.
constexpr int Forced = 1 << 0, Upload = 1 << 1, NoName = 1 << 2, MissingUpload = 1 << 3,
              TimeoutFails = 1 << 4, ParsedHost = 1 << 5, VerifyPeer = 1 << 6, Ceiling = 1 << 7,
              Tls = 1 << 8, Https = 1 << 9, Prefix = 1 << 10, Unsent = 1 << 11, Nginx = 1 << 12,
              Trusted = 1 << 13, Private = 1 << 14, Slow = 1 << 15;

// Headers the network stack adds by itself; a request may carry these besides its row's.
static const Bytes frameworkHeaders
    = { "host",           "connection",  "accept-encoding", "user-agent", "accept-language",
        "content-length", "mime-version" };

class tst_WebClient : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    TestCertificate m_cert;
    QString m_upload;
    QSslConfiguration m_defaultSsl;
    std::unique_ptr<NginxServer> m_nginx;
    QByteArray m_bigText; // valid UTF-8, for get
    QByteArray m_bigBinary; // any bytes, for a file

    static void exchangeColumns()
    {
        QTest::addColumn<Form>("form");
        QTest::addColumn<int>("setup");
        QTest::addColumn<Answer>("answer");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<QString>("response");
    }

    static const char* cstr(const QByteArray& b) { return b.isNull() ? nullptr : b.constData(); }

    // A client of `url` as `setup` says, holding the query items a=1 and b="x yé".
    std::unique_ptr<QWebClient> client(const QByteArray& url, int setup)
    {
        const QByteArray file
            = (setup & MissingUpload ? m_dir.filePath("missing.txt") : m_upload).toUtf8();
        auto c = setup & (Upload | NoName | MissingUpload)
            ? std::make_unique<QWebClient>(url.constData(), file.constData(),
                                           setup & NoName ? "" : "u.txt", "doc")
            : std::make_unique<QWebClient>(url.constData(), bool(setup & Forced));
        c->addQueryItem("a", "1");
        c->addQueryItem("b", "x y\xc3\xa9");
        return c;
    }

    // One call of `form` with its two text arguments `a` and `b`; `response` changes as the
    // call changes it. A download comes back in it as Latin-1, after the nonzero code of
    // postAndExpectFileDownload.
    bool call(QWebClient& client, Form form, const QByteArray& a, const QByteArray& b,
              QString& response)
    {
        switch (form) {
        case Form::Get:
            return client.get(response, cstr(a), cstr(b));
        case Form::GetDownloadFile: {
            const QString path = a.isNull() ? m_dir.filePath("download.bin") : QString::fromUtf8(a);
            QFile::remove(path);
            const bool ok = client.getDownloadFile(path);
            QFile file(path);
            if (file.open(QIODevice::ReadOnly))
                response = QString::fromLatin1(file.readAll());
            return ok;
        }
        case Form::PostBasic:
            return client.post(response, cstr(a));
        case Form::PostDownload: {
            QByteArray out;
            QDataStream stream(&out, QIODevice::WriteOnly);
            const int code = client.postAndExpectFileDownload(&stream);
            if (code || !out.isEmpty())
                response = (code ? QString::number(code) : QString()) + QString::fromLatin1(out);
            return code == 0;
        }
        case Form::ByMultiPart:
            return client.postByMultiPart(response, cstr(a), cstr(b));
        case Form::Soap: {
            std::string answer = response.toStdString();
            const bool ok = client.postSoapXML(std::string("<soap/>"),
                                               QStringLiteral("text/xml; charset=utf-8"), cstr(a),
                                               cstr(b), answer);
            response = QString::fromStdString(answer);
            return ok;
        }
        case Form::SoapT2:
            return client.callSoapT2(CString(QString::fromLatin1(a)), b.toStdString(), response);
        }
        return false;
    }

private slots:
    void initTestCase()
    {
        QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
        QVERIFY(m_dir.isValid());
        QVERIFY2(m_cert.make(m_dir.path()), "openssl could not make a certificate");
        m_upload = writeTempFile(m_dir, QStringLiteral("upload.txt"), "file\r\nbytes");
        QVERIFY(!m_upload.isEmpty());
        m_defaultSsl = QSslConfiguration::defaultConfiguration();
        QRandomGenerator random(20250101);
        for (int i = 0; i < 3 << 20; ++i) {
            m_bigBinary += char(random.bounded(256));
            m_bigText += i % 64 == 63 ? '\n' : char('a' + random.bounded(26));
        }
    }

    void cleanup()
    {
        QWebClient::p_for_soapVerifyPeer = false;
        QWebClient::p_for_sslIgnoreParsedHost = false;
        QWebClient::p_for_timeoutFails = false;
        QWebClient::p_for_waitMsecs = 20000;
        QWebClient::p_for_maxReplyBytes = qint64(1) << 30;
        QSslConfiguration::setDefaultConfiguration(m_defaultSsl);
    }

    // The exact request of each form: request line, the headers the client sets (and no
    // other but the network stack's own), and the body.
    void requestBytes_data()
    {
        QTest::addColumn<Form>("form");
        QTest::addColumn<int>("setup");
        QTest::addColumn<Bytes>("args"); // `a` and `b` of `call`
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<Bytes>("headers");
        QTest::addColumn<QByteArray>("body");

        const QByteArray none, get = "GET /r HTTP/1.1", post = "POST /r HTTP/1.1";
        const QByteArray form = "Content-Type: application/x-www-form-urlencoded";
        const QByteArray encoded = "a=1&b=x%20y%C3%A9", json = "Accept: application/json";
        const QByteArray dashes = "------WebKitFormBoundary7MA4YWxkTrZu0gW", soapBody = "<soap/>";
        const QByteArray multipart
            = "Content-Type: multipart/form-data; boundary=\"" + dashes.mid(2) + '"';
        const QByteArray disposition = "\r\nContent-Disposition: form-data; name=";
        const QByteArray parts = dashes + disposition + "\"a\"\r\n\r\n1\r\n" + dashes + disposition
            + "\"b\"\r\n\r\nx y\xc3\xa9\r\n";
        const QByteArray end = dashes + "--\r\n", basic = "Authorization: Basic x";
        const Bytes soap { "Content-Type: text/xml; charset=utf-8", "Content-Length: 7",
                           "SOAPAction: testest" };

        QTest::newRow("get: scheme first, then Accept")
            << Form::Get << 0 << Bytes { "tok", "Bearer" } << get
            << Bytes { "Authorization: Bearer tok", json } << none;
        QTest::newRow("get: credentials without scheme")
            << Form::Get << 0 << Bytes { "tok", none } << get << Bytes() << none;
        QTest::newRow("getDownloadFile, unwritable path: still true")
            << Form::GetDownloadFile << 0 << Bytes { m_dir.filePath("no/get.bin").toUtf8(), none }
            << get << Bytes() << none;
        QTest::newRow("post(response, nullptr): url-encoded")
            << Form::PostBasic << 0 << Bytes { none, none } << post << Bytes { form } << encoded;
        QTest::newRow("post(response, \"x\"): Basic x")
            << Form::PostBasic << 0 << Bytes { "x", none } << post << Bytes { form, basic, json }
            << encoded;
        QTest::newRow("forced multipart with credentials: just the added parts")
            << Form::PostBasic << +Forced << Bytes { "x", none } << post
            << Bytes { multipart, basic, json } << parts + end;
        QTest::newRow("upload: the file part last")
            << Form::PostBasic << +Upload << Bytes { none, none } << post << Bytes { multipart }
            << parts + dashes + disposition + "\"doc\"; filename=\"u.txt\"\r\n\r\nfile\r\nbytes\r\n"
                + end;
        QTest::newRow("upload, empty file name: url-encoded")
            << Form::PostBasic << +NoName << Bytes { none, none } << post << Bytes { form }
            << encoded;
        QTest::newRow("postAndExpectFileDownload")
            << Form::PostDownload << 0 << Bytes { none, none } << post << Bytes { form } << encoded;
        QTest::newRow("postByMultiPart: fixed query, no blank line of its own")
            << Form::ByMultiPart << 0 << Bytes { "f", "\r\nvalue" }
            << QByteArray("POST /r?fn=1&md=2 HTTP/1.1")
            << Bytes { "Content-Type: multipart/form-data; boundary=AaB03x", "Content-Length: 74" }
            << QByteArray("--AaB03x\r\nContent-Disposition: form-data; name=\"f\";\r\n"
                          "\r\nvalue\r\n--AaB03x--\r\n");
        QTest::newRow("SOAP: Basic user:secret, no Accept")
            << Form::Soap << 0 << Bytes { "user", "pass" } << post
            << soap + Bytes { "Authorization: Basic dXNlcjpwYXNz" } << soapBody;
        QTest::newRow("SOAP: null secret, Base64 of x:")
            << Form::Soap << 0 << Bytes { "x", none } << post
            << soap + Bytes { "Authorization: Basic eDo=" } << soapBody;
        QTest::newRow("SOAP: the bearer word in capitals")
            << Form::Soap << 0 << Bytes { "AUTHORIZATION_BEARER", "tok" } << post
            << soap + Bytes { "Authorization: Bearer tok", json } << soapBody;
        const QByteArray mb = "--MULTI-PARTS-FORM-DATA-BOUNDARY";
        QTest::newRow("callSoapT2: multipart/related, SOAP part first")
            << Form::SoapT2 << 0 << Bytes { "<x/>", "attached" } << post
            << Bytes { "Content-Type: multipart/related; boundary=\"" + mb.mid(2)
                           + "\"; type=\"text/xml\"; start=\"<soapPart>\"",
                       "SOAPAction: testest" }
            << mb
                + "\r\nContent-Type: text/xml; charset=iso-8859-1\r\nContent-Transfer-Encoding: "
                  "8bit\r\nContent-ID: <soapPart>\r\n\r\n<x/>\r\n"
                + mb + "\r\nContent-Type: text/plain; charset=iso-8859-1\r\n\r\nattached\r\n" + mb
                + "--\r\n";
    }

    void requestBytes()
    {
        QFETCH(Form, form);
        QFETCH(Bytes, args);
        QFETCH(int, setup);
        QFETCH(Bytes, headers);
        Server server;
        QVERIFY(server.listen());
        QString response;
        QVERIFY(call(*client(server.url("/r"), setup), form, args.at(0), args.at(1), response));
        QCOMPARE(server.requests().size(), 1);

        const QByteArray request = server.requests().at(0);
        const qsizetype end = request.indexOf("\r\n\r\n");
        Bytes lines = request.left(end).replace("\r", "").split('\n');
        QTEST(lines.takeFirst(), "line");
        lines.removeIf([&](const QByteArray& line) {
            return !headers.contains(line)
                && frameworkHeaders.contains(line.left(line.indexOf(':')).toLower());
        });
        std::sort(lines.begin(), lines.end());
        std::sort(headers.begin(), headers.end());
        QCOMPARE(lines, headers);
        QTEST(request.mid(end + 4), "body");
    }

    // One call against a server: the result, the response (the old one kept on failure),
    // within the wait limit (1 s, 5 s with nginx); a wait that ends on the limit is success
    // with what arrived unless made a failure.
    void exchange_data()
    {
        exchangeColumns();

        const QString old = "old", text = QString::fromUtf8("h\xc3\xa9llo");
        const Answer hello = Server::status(200, "h\xc3\xa9llo"), error = Server::status(500, "x");
        const Answer ok = Server::status(200, "ok"), silence = Server::silence();
        const QByteArray head = "HTTP/1.1 200 OK\r\nContent-Length: ";
        const QByteArray unannounced = "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n";
        const QByteArray bin("\0\xff\r\nbin", 7);
        const QString x64k(65536, 'x');
        const Form get = Form::Get, file = Form::GetDownloadFile, post = Form::PostBasic;
        const Form stream = Form::PostDownload, soap = Form::Soap;
        QTest::newRow("get: 200, UTF-8") << get << 0 << hello << true << text;
        QTest::newRow("get: 500") << get << 0 << error << false << old;
        QTest::newRow("postSoapXML: 200") << soap << 0 << hello << true << text;
        QTest::newRow("closed mid-answer")
            << get << 0 << Server::raw(head + "100\r\n\r\nten", 0, true) << false << old;
        QTest::newRow("no answer: success, empty") << get << 0 << silence << true << "";
        QTest::newRow("no answer, time-out a failure")
            << post << +TimeoutFails << silence << false << old;
        QTest::newRow("half a body: success with it")
            << get << 0 << Server::raw(head + "8\r\n\r\nhalf") << true << "half";
        QTest::newRow("garbage status line")
            << get << 0 << Server::raw("\x01\xff garbage\r\n\r\n", 0, true) << false << old;
        QTest::newRow("stalled TLS handshake") << get << Https + Unsent << silence << true << "";

        // The most bytes a reply may bring, arrived or announced. One byte of an announced
        // body arrives: only the announced length can end that before the wait limit.
        QTest::newRow("arrived: 64 KiB")
            << get << +Ceiling << Server::raw(unannounced, 65536, true) << true << x64k;
        QTest::newRow("arrived: one byte over")
            << get << +Ceiling << Server::raw(unannounced, 65537, true) << false << old;
        QTest::newRow("announced: 64 KiB")
            << get << +Ceiling << Server::raw(head + "65536\r\n\r\n", 65536) << true << x64k;
        QTest::newRow("announced: one byte over")
            << get << +Ceiling << Server::raw(head + "65537\r\n\r\n", 1) << false << old;

        QTest::newRow("file: the body")
            << file << 0 << Server::status(200, bin) << true << QString::fromLatin1(bin);
        QTest::newRow("file: 500, none") << file << 0 << error << false << old;
        QTest::newRow("stream: 32-bit length, the bytes")
            << stream << 0 << Server::status(200, "abc") << true
            << QString::fromLatin1("\0\0\0\3abc", 7);
        QTest::newRow("stream: 99, nothing") << stream << 0 << error << false << "99";
        QTest::newRow("upload that won't open: false")
            << post << MissingUpload + Unsent << ok << false << old;
        QTest::newRow("upload that won't open: 106")
            << stream << MissingUpload + Unsent << ok << false << "106";

        // A certificate nobody trusts: only post and postAndExpectFileDownload may pass it,
        // for an address of a private network; the SOAP forms don't check unless asked.
        const int tls = Tls, unsent = Tls + Unsent, prefixed = Tls + Prefix;
        QTest::newRow("tls: post, prefix") << post << prefixed << ok << true << "ok";
        QTest::newRow("tls: post") << post << unsent << ok << false << old;
        QTest::newRow("tls: download, prefix")
            << stream << prefixed << ok << true << QString::fromLatin1("\0\0\0\2ok", 6);
        QTest::newRow("tls: download") << stream << unsent << ok << false << "99";
        QTest::newRow("tls: get, prefix") << get << prefixed + Unsent << ok << false << old;
        QTest::newRow("tls: getDownloadFile, prefix")
            << file << prefixed + Unsent << ok << false << old;
        QTest::newRow("tls: postByMultiPart, prefix")
            << Form::ByMultiPart << prefixed + Unsent << ok << false << old;
        QTest::newRow("tls: parsed host, prefix in user-info")
            << post << prefixed + ParsedHost + Unsent << ok << false << old;
        QTest::newRow("tls: postSoapXML") << soap << tls << ok << true << "ok";
        QTest::newRow("tls: postSoapXML, peer verified")
            << soap << unsent + VerifyPeer << ok << false << old;
        QTest::newRow("tls: callSoapT2") << Form::SoapT2 << tls << ok << true << "ok";
        QTest::newRow("tls: callSoapT2, peer verified")
            << Form::SoapT2 << unsent + VerifyPeer << ok << false << old;

        // A server nobody here wrote, over HTTP and HTTPS, with megabytes.
        const QString bigText = QString::fromUtf8(m_bigText);
        const QString bigBinary = QString::fromLatin1(m_bigBinary);
        const int trusted = Nginx + Https + Trusted;
        QTest::newRow("nginx: get") << get << +Nginx << ok << true << bigText;
        QTest::newRow("nginx: getDownloadFile") << file << +Nginx << ok << true << bigBinary;
        QTest::newRow("nginx: https get") << get << trusted << ok << true << bigText;
        QTest::newRow("nginx: https getDownloadFile") << file << trusted << ok << true << bigBinary;
        QTest::newRow("nginx: https get, untrusted") << get << Nginx + Https << ok << false << old;
        QTest::newRow("nginx: refused") << get << Nginx + Private << ok << false << old;
    }

    void exchange()
    {
        QFETCH(Form, form);
        QFETCH(int, setup);
        QFETCH(Answer, answer);
        const int wait = setup & Nginx ? 5000 : setup & Slow ? 20000 : 1000;
        if (!(setup & Slow))
            QWebClient::p_for_waitMsecs = wait;
        QWebClient::p_for_timeoutFails = setup & TimeoutFails;
        QWebClient::p_for_sslIgnoreParsedHost = setup & ParsedHost;
        QWebClient::p_for_soapVerifyPeer = setup & VerifyPeer;
        if (setup & Ceiling)
            QWebClient::p_for_maxReplyBytes = 65536;

        Server server = setup & Tls ? Server(m_cert.serverConfiguration()) : Server();
        QVERIFY(server.listen());
        server.setAnswer(answer);
        QByteArray url = (setup & (Tls | Https) ? "https://" : "http://")
            + QByteArray(setup & Prefix ? "192.168.0.1@" : "")
            + "127.0.0.1:" + QByteArray::number(server.port()) + "/";
        if (setup & Nginx) {
            if (!NginxServer::installed())
                QSKIP("nginx is not installed");
            if (!m_nginx) {
                QVERIFY(QDir(m_dir.path()).mkpath("www/private"));
                for (const QString dir : { "www/", "www/private/" }) {
                    QVERIFY(!writeTempFile(m_dir, dir + "big.txt", m_bigText).isEmpty());
                    QVERIFY(!writeTempFile(m_dir, dir + "big.bin", m_bigBinary).isEmpty());
                }
                m_nginx = std::make_unique<NginxServer>();
                QVERIFY(m_nginx->start(m_dir.filePath("nginx"), m_dir.filePath("www"),
                                       m_cert.certPath, m_cert.keyPath,
                                       "    location /private/ { deny all; }"));
                QTRY_VERIFY(m_nginx->accepts());
            }
            if (setup & Trusted) {
                QSslConfiguration conf = QSslConfiguration::defaultConfiguration();
                conf.addCaCertificate(m_cert.certificate);
                QSslConfiguration::setDefaultConfiguration(conf);
            }
            url = m_nginx->url(setup & Https ? "https" : "http",
                               QByteArray(setup & Private ? "/private" : "")
                                   + (form == Form::Get ? "/big.txt" : "/big.bin"));
        }
        auto c = client(url, setup);
        QString response = QStringLiteral("old");
        QElapsedTimer clock;
        clock.start();
        QTEST(call(*c, form, QByteArray(), QByteArray(), response), "ok");
        const qint64 elapsed = clock.elapsed();
        QTEST(response, "response");
        QVERIFY2(elapsed < wait + 2000, "held past the wait limit");
        if (answer.silent)
            QVERIFY2(elapsed >= wait, QByteArray::number(elapsed).constData());
        // Left set only when the upload would not open.
        QCOMPARE(c->m_downloadStream != nullptr,
                 form == Form::PostDownload && (setup & MissingUpload));
        if (setup & Nginx)
            return;
        // No request keeps running after its call; a stalled TLS connection goes with its
        // client at the latest.
        if (answer.silent && !(setup & Https))
            QTRY_COMPARE(server.open(), 0);
        c.reset();
        QTRY_COMPARE(server.open(), 0);
        // Whatever a failed upload might have sent would come before this.
        if (setup & MissingUpload)
            QVERIFY(client(server.url("/next"), 0)->get(response));
        if (answer.silent || (setup & Unsent))
            QCOMPARE(server.requests().size(),
                     (setup & (Unsent | MissingUpload)) == Unsent ? 0 : 1);
    }

    // The wait limit the client starts with.
    void neverAnswered_data()
    {
        exchangeColumns();
        QTest::newRow("20 s") << Form::Get << +Slow << Server::silence() << true << "";
    }

    void neverAnswered()
    {
        BEDROCK_SLOW_TEST();
        exchange();
    }

    // Decided on the URL's text, or with the switch on its parsed host; nothing is sent.
    void canIgnoreSslError_data()
    {
        QTest::addColumn<QString>("url");
        QTest::addColumn<bool>("parsedHost");
        QTest::addColumn<bool>("expected");
        QTest::newRow("text: case-sensitive") << "HTTPS://192.168.1.10/" << false << false;
        QTest::newRow("parsed: 192.168.0.0") << "https://192.168.0.0/" << true << true;
        QTest::newRow("parsed: 192.168.255.255") << "https://192.168.255.255/" << true << true;
        QTest::newRow("parsed: one below") << "https://192.167.255.255/" << true << false;
        QTest::newRow("parsed: one above") << "https://192.169.0.0/" << true << false;
        QTest::newRow("parsed: host name") << "https://192.168.example.com/" << true << false;
    }

    void canIgnoreSslError()
    {
        QFETCH(QString, url);
        QFETCH(bool, parsedHost);
        QWebClient::p_for_sslIgnoreParsedHost = parsedHost;
        QTEST(QWebClient(url.toLatin1().constData(), false).canIgnoreSslError(), "expected");
    }

    // Kept past its reply's deletion and reused, an upload client must end calmly (the
    // sanitized run sees any use of freed memory).
    void clientOutlivesItsReply()
    {
        Server server;
        QVERIFY(server.listen());
        auto c = client(server.url(), Upload);
        QString response;
        QVERIFY(c->post(response, nullptr));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        c->post(response, nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        c.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

QTEST_MAIN(tst_WebClient)
#include "tst_webclient.moc"
