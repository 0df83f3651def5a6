// QWebClient: the library's HTTP client, one endpoint and one request per object.
#pragma once

#include "cstring.h"
#include "libbedrock_export.h"

#include <QByteArray>
#include <QHttpMultiPart>
#include <QList>
#include <QNetworkReply>
#include <QObject>
#include <QSslError>
#include <QString>
#include <QUrlQuery>

#include <string>

class QDataStream;
class QNetworkAccessManager;
class QNetworkRequest;

/*
 * Build a client for one endpoint, add query items, make one request, destroy
 * the client. Every request blocks its caller in a private event loop (so the
 * caller's other events are served meanwhile) until the reply finishes or the
 * wait limit, p_for_waitMsecs, runs out, and answers with a plain result.
 *
 * A wait that ends on the limit is not a failure by default: the call reports
 * success with whatever the reply delivered until then, possibly nothing.
 * Callers read an empty answer as the sign of a lost service. No request keeps
 * running after its call returns.
 *
 * The client speaks no words of its own and logs nothing. `char const*`
 * arguments may be null (taken as empty text) and are read as UTF-8; the URL
 * comes from the caller, always.
 *
 * The statics below harden the client; each is off (or at its documented
 * default) unless the application sets it, once, before making requests.
 */
class LIBBEDROCK_EXPORT QWebClient : public QObject
{
    Q_OBJECT

public:
    QWebClient(char const* url, bool forceMultiPart);
    // An upload client: the file at `filePath` goes as a multipart part named
    // `fieldName`, with `fileName` as its file name, when `fileName` is not empty.
    QWebClient(char const* url, char const* filePath, char const* fileName, char const* fieldName);
    ~QWebClient() override;

    bool useMultiPart();
    void addQueryItem(char const* name, char const* value);

    bool get(QString& response);
    // GET expecting text. With both `credentials` and `scheme` given, the
    // request carries "Authorization: <scheme> <credentials>" and
    // "Accept: application/json".
    bool get(QString& response, char const* credentials, char const* scheme);
    // GET into a file. A file that will not open is skipped silently: the
    // result tells only how the network went.
    bool getDownloadFile(QString const& path);
    // Form post, url-encoded or multipart; with `credentials`, Basic authorization.
    bool post(QString& response, char const* credentials);
    bool post(QString& response, char const* credentials, char const* scheme);
    // Form post whose answer goes to `out` as one length-prefixed block
    // (32-bit length, then the bytes): 0 for success, 99 for a network failure,
    // 106 when the upload file will not open.
    int postAndExpectFileDownload(QDataStream* out);
    // Posts a single-field multipart body built byte for byte, boundary
    // "AaB03x", to the URL with "?fn=1&md=2" added.
    bool postByMultiPart(QString& response, char const* name, char const* value);
    // SOAP post. `user` "authorization_bearer" (any case) sends `secret` as a
    // Bearer token; any other user sends Basic authorization of "user:secret".
    // The peer is not verified unless p_for_soapVerifyPeer is set.
    bool postSoapXML(std::string const& body, QString const& contentType, char const* user,
                     char const* secret, std::string& response);
    bool postSoapXML(QByteArray const& body, QString const& contentType, char const* user,
                     char const* secret, std::string& response);
    // SOAP with one attachment, as multipart/related.
    bool callSoapT2(CString const& xml, std::string const& attachment, QString& response);
    // Whether `post` may ignore a certificate error for this URL: by default
    // when the URL text starts with "https://192.168.". That text test is weak
    // (a user-info part or a host name passes it); see p_for_sslIgnoreParsedHost.
    bool canIgnoreSslError();

    // Verify the peer's certificate on the two SOAP paths too. Default false:
    // they send with peer verification off.
    static bool p_for_soapVerifyPeer;
    // Decide canIgnoreSslError on the parsed URL: an https URL whose host is an
    // address in 192.168.0.0/16. Default false: the text prefix decides.
    static bool p_for_sslIgnoreParsedHost;
    // A wait that ends on its limit aborts the request and reports failure.
    // Default false: the call reports success with what arrived.
    static bool p_for_timeoutFails;
    // The wait limit of every request, in milliseconds. Default 20000.
    static int p_for_waitMsecs;
    // The most bytes a reply may bring (its announced length or what arrived);
    // past it the request is aborted and the call fails. Default 1 GiB.
    static qint64 p_for_maxReplyBytes;

public Q_SLOTS:
    // For an application to connect to a reply of its own: deletes the reply
    // and the client's current manager later.
    void replyFinished(QNetworkReply* reply);
    void onError(QNetworkReply::NetworkError code);
    void onSslError(const QList<QSslError>& errors);
    // Writes what the current reply holds to the download stream, if one is set.
    void onUpdateProgress(qint64 received, qint64 total);

public:
    QNetworkAccessManager* m_manager = nullptr; // of the latest request; a child of the client
    QNetworkReply* m_reply = nullptr;
    QUrlQuery m_query;
    QHttpMultiPart m_multiPart;
    QByteArray m_url;
    QString m_filePath;
    QString m_fileName;
    QString m_fieldName;
    bool m_forceMultiPart = false;
    QDataStream* m_downloadStream = nullptr; // not owned; set during postAndExpectFileDownload

private:
    QNetworkAccessManager* newManager();
    QNetworkRequest newRequest(QByteArray const& url) const;
    bool waitFor(QNetworkReply* reply);
    bool awaitAnswer(QNetworkReply* reply, QByteArray& answer);
    bool awaitText(QNetworkReply* reply, QString& response);
    int sendFormPost(QString* response, char const* credentials, char const* scheme,
                     bool expectDownload);
};

// Sets "Authorization: <scheme> <credentials>" when both are given; otherwise
// does nothing. Note the order of the arguments: credentials first.
LIBBEDROCK_EXPORT void requestAddAuthHeader(QNetworkRequest& request, char const* credentials,
                                            char const* scheme);
