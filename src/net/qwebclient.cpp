#include "qwebclient.h"

#include "encodings.h"

#include <QDataStream>
#include <QEventLoop>
#include <QFile>
#include <QHostAddress>
#include <QHttpPart>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QSslConfiguration>
#include <QTimer>
#include <QUrl>

#include <vector>

bool QWebClient::p_for_soapVerifyPeer = false;
bool QWebClient::p_for_sslIgnoreParsedHost = false;
bool QWebClient::p_for_timeoutFails = false;
int QWebClient::p_for_waitMsecs = 20000;
qint64 QWebClient::p_for_maxReplyBytes = qint64(1) << 30;

namespace {

QString text(char const* s)
{
    return s ? QString::fromUtf8(s) : QString();
}

QByteArray bytes(char const* s)
{
    return s ? QByteArray(s) : QByteArray();
}

// "Authorization" with "Accept: application/json", as every form that sends
// a caller's credentials does.
void addAuthAndAccept(QNetworkRequest& request, char const* credentials, char const* scheme)
{
    if (!credentials || !scheme)
        return;
    requestAddAuthHeader(request, credentials, scheme);
    request.setRawHeader("Accept", "application/json");
}

void verifyNoPeer(QNetworkRequest& request)
{
    if (QWebClient::p_for_soapVerifyPeer)
        return;
    QSslConfiguration ssl = request.sslConfiguration();
    ssl.setPeerVerifyMode(QSslSocket::VerifyNone);
    request.setSslConfiguration(ssl);
}

// A reply still running when its call returns (the wait ended on its limit)
// is stopped: nothing reads it any more, and it must not go on uploading from
// parts and files that the call is about to close.
void stopIfRunning(QNetworkReply* reply)
{
    if (reply && reply->isRunning())
        reply->abort();
}

} // namespace

void requestAddAuthHeader(QNetworkRequest& request, char const* credentials, char const* scheme)
{
    if (!credentials || !scheme)
        return;
    request.setRawHeader(
        "Authorization",
        QStringLiteral("%1 %2").arg(text(scheme), text(credentials)).toLocal8Bit());
}

QWebClient::QWebClient(char const* url, bool forceMultiPart)
    : m_multiPart(QHttpMultiPart::FormDataType)
    , m_url(bytes(url))
    , m_forceMultiPart(forceMultiPart)
{ }

QWebClient::QWebClient(char const* url, char const* filePath, char const* fileName,
                       char const* fieldName)
    : m_multiPart(QHttpMultiPart::FormDataType)
    , m_url(bytes(url))
    , m_filePath(text(filePath))
    , m_fileName(text(fileName))
    , m_fieldName(text(fieldName))
{ }

QWebClient::~QWebClient()
{
    if (m_manager) {
        m_manager->disconnect();
        // At once rather than later: its replies may still refer to the
        // multi-part member, which goes before the client's children do.
        delete m_manager;
        m_manager = nullptr;
    }
    // A reply that took the multi-part member as its child must not delete it.
    m_multiPart.setParent(nullptr);
}

bool QWebClient::useMultiPart()
{
    return !m_fileName.isEmpty() || m_forceMultiPart;
}

void QWebClient::addQueryItem(char const* name, char const* value)
{
    if (useMultiPart()) {
        // Nothing is escaped: the caller's name and bytes go as they are.
        QHttpPart part;
        part.setHeader(QNetworkRequest::ContentDispositionHeader,
                       QString(QStringLiteral("form-data; name=\"") + text(name) + u'"'));
        part.setBody(bytes(value));
        m_multiPart.append(part);
    } else {
        m_query.addQueryItem(text(name), text(value));
    }
}

QNetworkAccessManager* QWebClient::newManager()
{
    m_manager = new QNetworkAccessManager(this);
    return m_manager;
}

QNetworkRequest QWebClient::newRequest(QByteArray const& url) const
{
    return QNetworkRequest(QUrl(QString::fromUtf8(url), QUrl::TolerantMode));
}

bool QWebClient::waitFor(QNetworkReply* reply)
{
    m_reply = reply;
    // Over loopback an endless body arrives at gigabytes a second: a reply
    // past the ceiling is aborted, which makes it fail. Checked on the headers
    // and on every arrival: downloadProgress is throttled to one signal per
    // 100 ms and its last one comes when the reply has already finished, so
    // a reply that arrives quickly would never be seen past the ceiling.
    const qint64 ceiling = p_for_maxReplyBytes;
    const auto check = [reply, ceiling] {
        const QVariant announced = reply->header(QNetworkRequest::ContentLengthHeader);
        if (ceiling > 0
            && (reply->bytesAvailable() > ceiling
                || (announced.isValid() && announced.toLongLong() > ceiling)))
            reply->abort();
    };
    const QMetaObject::Connection guard = connect(reply, &QNetworkReply::readyRead, reply, check);
    const QMetaObject::Connection headGuard
        = connect(reply, &QNetworkReply::metaDataChanged, reply, check);

    QEventLoop loop;
    connect(reply, SIGNAL(finished()), &loop, SLOT(quit()));
    // A precise timer: a coarse one, Qt's default for long intervals, may end
    // the wait up to 5% early.
    QTimer::singleShot(p_for_waitMsecs, Qt::PreciseTimer, &loop, SLOT(quit()));
    if (!reply->isFinished())
        loop.exec();
    disconnect(guard);
    disconnect(headGuard);

    if (!reply->isFinished() && p_for_timeoutFails) {
        reply->abort();
        return false;
    }
    // A wait that ended on the timer still reads NoError here: success with
    // whatever has arrived.
    return reply->error() == QNetworkReply::NoError;
}

// The wait, then the whole answer on success; the reply is left stopped.
bool QWebClient::awaitAnswer(QNetworkReply* reply, QByteArray& answer)
{
    const bool ok = waitFor(reply);
    if (ok)
        answer = reply->readAll();
    stopIfRunning(reply);
    return ok;
}

bool QWebClient::awaitText(QNetworkReply* reply, QString& response)
{
    QByteArray answer;
    const bool ok = awaitAnswer(reply, answer);
    if (ok)
        response = QString::fromUtf8(answer);
    return ok;
}

bool QWebClient::get(QString& response)
{
    return get(response, nullptr, nullptr);
}

bool QWebClient::get(QString& response, char const* credentials, char const* scheme)
{
    QNetworkRequest request = newRequest(m_url);
    addAuthAndAccept(request, credentials, scheme);
    // The reply stays with its manager, which goes with the client.
    return awaitText(newManager()->get(request), response);
}

bool QWebClient::getDownloadFile(QString const& path)
{
    QNetworkReply* reply = newManager()->get(newRequest(m_url));
    const bool ok = waitFor(reply);
    if (ok) {
        QFile file(path);
        if (file.open(QIODevice::WriteOnly)) {
            // In pieces straight from the reply's buffer: a body of many
            // megabytes is not gathered into one more copy first.
            std::vector<char> piece(std::size_t(1) << 20);
            for (qint64 got; (got = reply->read(piece.data(), qint64(piece.size()))) > 0;)
                file.write(piece.data(), got);
            file.flush();
            file.close();
        }
    }
    stopIfRunning(reply);
    return ok;
}

bool QWebClient::post(QString& response, char const* credentials)
{
    return credentials ? post(response, credentials, "Basic") : post(response, nullptr, nullptr);
}

bool QWebClient::post(QString& response, char const* credentials, char const* scheme)
{
    return sendFormPost(&response, credentials, scheme, false) == 0;
}

int QWebClient::postAndExpectFileDownload(QDataStream* out)
{
    m_downloadStream = out;
    return sendFormPost(nullptr, nullptr, nullptr, true);
}

// The form post of `post` (response set, credentials honoured) and of
// postAndExpectFileDownload (answer to m_downloadStream, no credentials).
int QWebClient::sendFormPost(QString* response, char const* credentials, char const* scheme,
                             bool expectDownload)
{
    QNetworkAccessManager* manager = newManager();
    QNetworkRequest request = newRequest(m_url);
    QFile* upload = nullptr;
    QNetworkReply* reply = nullptr;
    const bool multiPart = useMultiPart();
    if (multiPart) {
        if (!m_filePath.isEmpty()) {
            upload = new QFile(m_filePath, &m_multiPart);
            if (!upload->open(QIODevice::ReadOnly)) {
                delete upload;
                delete manager;
                m_manager = nullptr;
                return 106;
            }
            QHttpPart part;
            part.setHeader(QNetworkRequest::ContentDispositionHeader,
                           QStringLiteral("form-data; name=\"%1\"; filename=\"%2\"")
                               .arg(m_fieldName, m_fileName));
            part.setBodyDevice(upload);
            m_multiPart.append(part);
        }
        if (!expectDownload)
            addAuthAndAccept(request, credentials, scheme);
        m_multiPart.setBoundary("----WebKitFormBoundary7MA4YWxkTrZu0gW");
        reply = manager->post(request, &m_multiPart);
        m_multiPart.setParent(reply);
    } else {
        const QByteArray body = m_query.query(QUrl::FullyEncoded).toUtf8();
        request.setHeader(QNetworkRequest::ContentTypeHeader,
                          QByteArray("application/x-www-form-urlencoded"));
        if (!expectDownload)
            addAuthAndAccept(request, credentials, scheme);
        reply = manager->post(request, body);
    }
    connect(reply, &QNetworkReply::errorOccurred, this, &QWebClient::onError);
    connect(reply, SIGNAL(sslErrors(const QList<QSslError>&)), this,
            SLOT(onSslError(const QList<QSslError>&)));

    QByteArray answer;
    const bool ok = awaitAnswer(reply, answer);
    if (ok && expectDownload && m_downloadStream)
        *m_downloadStream << answer;
    else if (ok && response)
        *response = QString::fromUtf8(answer);
    reply->deleteLater();
    // The multi-part member was the reply's child for the request; it leaves
    // before the deferred deletion, so keeping the client past it is safe.
    if (multiPart)
        m_multiPart.setParent(nullptr);
    if (upload) {
        // Closed now and deleted with the multi-part, which keeps the part: a
        // second request on this client then finds no bytes in it (an empty
        // body) rather than reading a deleted file.
        upload->close();
    }
    if (expectDownload) {
        m_downloadStream = nullptr;
        return ok ? 0 : 99;
    }
    return ok ? 0 : 1;
}

bool QWebClient::postByMultiPart(QString& response, char const* name, char const* value)
{
    // One line end after the disposition and no empty line: a caller that
    // needs the blank line starts `value` with it.
    const QByteArray body = "--AaB03x\r\nContent-Disposition: form-data; name=\"" + bytes(name)
        + "\";\r\n" + bytes(value) + "\r\n--AaB03x--\r\n";
    QNetworkRequest request = newRequest(m_url + "?fn=1&md=2");
    request.setHeader(QNetworkRequest::ContentTypeHeader,
                      QByteArray("multipart/form-data; boundary=AaB03x"));
    request.setHeader(QNetworkRequest::ContentLengthHeader, QByteArray::number(body.size()));
    QNetworkReply* reply = newManager()->post(request, body);
    const bool ok = awaitText(reply, response);
    reply->deleteLater();
    return ok;
}

bool QWebClient::postSoapXML(std::string const& body, QString const& contentType, char const* user,
                             char const* secret, std::string& response)
{
    return postSoapXML(QByteArray(body.data(), qsizetype(body.size())), contentType, user, secret,
                       response);
}

bool QWebClient::postSoapXML(QByteArray const& body, QString const& contentType, char const* user,
                             char const* secret, std::string& response)
{
    QNetworkRequest request = newRequest(m_url);
    request.setHeader(QNetworkRequest::ContentTypeHeader, contentType);
    if (user && qstricmp(user, "authorization_bearer") == 0) {
        requestAddAuthHeader(request, secret, "Bearer");
        request.setRawHeader("Accept", "application/json");
    } else if (user) {
        const QByteArray pair = QString(text(user) + u':' + text(secret)).toUtf8();
        std::vector<char> encoded(size_t(std::max(1, Base64encode_len(int(pair.size())))), '\0');
        Base64encode(encoded.data(), pair.constData(), int(pair.size()));
        requestAddAuthHeader(request, encoded.data(), "Basic");
    }
    request.setHeader(QNetworkRequest::ContentLengthHeader, body.size());
    request.setRawHeader("SOAPAction", "testest");
    verifyNoPeer(request);

    QNetworkReply* reply = newManager()->post(request, body);
    QByteArray answer;
    const bool ok = awaitAnswer(reply, answer);
    if (ok)
        response.assign(answer.constData(), size_t(answer.size()));
    reply->deleteLater();
    return ok;
}

bool QWebClient::callSoapT2(CString const& xml, std::string const& attachment, QString& response)
{
    QNetworkRequest request = newRequest(m_url);
    request.setHeader(QNetworkRequest::ContentTypeHeader,
                      QByteArray("multipart/related; boundary=\"MULTI-PARTS-FORM-DATA-BOUNDARY\"; "
                                 "type=\"text/xml\"; start=\"<soapPart>\""));
    request.setRawHeader("SOAPAction", "testest");
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    verifyNoPeer(request);

    QHttpPart soap;
    soap.setHeader(QNetworkRequest::ContentTypeHeader, QByteArray("text/xml; charset=iso-8859-1"));
    soap.setRawHeader("Content-Transfer-Encoding", "8bit");
    soap.setRawHeader("Content-ID", "<soapPart>");
    soap.setBody(xml.toLocal8Bit());
    m_multiPart.append(soap);
    QHttpPart attached;
    attached.setHeader(QNetworkRequest::ContentTypeHeader,
                       QByteArray("text/plain; charset=iso-8859-1"));
    attached.setBody(QByteArray(attachment.data(), qsizetype(attachment.size())));
    m_multiPart.append(attached);
    m_multiPart.setBoundary("MULTI-PARTS-FORM-DATA-BOUNDARY");

    QNetworkReply* reply = newManager()->post(request, &m_multiPart);
    const bool ok = awaitText(reply, response);
    reply->deleteLater();
    return ok;
}

bool QWebClient::canIgnoreSslError()
{
    if (!p_for_sslIgnoreParsedHost)
        return m_url.startsWith("https://192.168.");
    // The host as the request will use it, not the text: a user-info part or
    // a name like "192.168.example.com" does not pass.
    const QUrl url(QString::fromUtf8(m_url), QUrl::TolerantMode);
    QHostAddress host;
    return url.scheme() == QLatin1String("https") && host.setAddress(url.host())
        && host.isInSubnet(QHostAddress(QStringLiteral("192.168.0.0")), 16);
}

void QWebClient::replyFinished(QNetworkReply* reply)
{
    if (reply)
        reply->deleteLater();
    if (m_manager) {
        m_manager->disconnect();
        m_manager->deleteLater();
        m_manager = nullptr;
    }
}

void QWebClient::onError(QNetworkReply::NetworkError)
{
    // The error is read from the reply once the wait is over.
}

void QWebClient::onSslError(const QList<QSslError>&)
{
    if (canIgnoreSslError() && m_reply)
        m_reply->ignoreSslErrors();
}

void QWebClient::onUpdateProgress(qint64, qint64)
{
    if (!m_reply)
        return;
    const QByteArray got = m_reply->readAll();
    if (m_downloadStream)
        *m_downloadStream << got;
}
