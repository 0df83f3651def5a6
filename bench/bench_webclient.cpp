// QWebClient against a plain QNetworkAccessManager with a QEventLoop of the
// same shape (a new manager per request, one wait), both talking to the same
// in-process server on 127.0.0.1: a thousand small form posts, and one 64 MB
// download into a file.
#include "loopbackhttpserver.h"

#include <LibBedrock.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTemporaryDir>
#include <QTimer>
#include <QUrlQuery>

#include <benchmark/benchmark.h>

namespace {

constexpr int Posts = 1000;
constexpr qint64 DownloadBytes = qint64(64) << 20;

LoopbackHttpServer* server = nullptr;

// What the library does around a request, written out plainly.
QByteArray plainRequest(QNetworkAccessManager& manager, const QUrl& url, const QByteArray* body)
{
    QNetworkRequest request(url);
    QNetworkReply* reply;
    if (body) {
        request.setHeader(QNetworkRequest::ContentTypeHeader,
                          QByteArray("application/x-www-form-urlencoded"));
        reply = manager.post(request, *body);
    } else {
        reply = manager.get(request);
    }
    QEventLoop loop;
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(20000, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    if (!reply->isFinished())
        loop.exec();
    const QByteArray answer = reply->error() == QNetworkReply::NoError ? reply->readAll() : "";
    reply->deleteLater();
    return answer;
}

void formAnswer()
{
    server->setAnswer(LoopbackHttpServer::status(200, "accepted", "OK"));
}

void downloadAnswer()
{
    server->setAnswer(LoopbackHttpServer::raw(
        "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(DownloadBytes) + "\r\n\r\n",
        DownloadBytes));
}

void PostsThroughClient(benchmark::State& state)
{
    formAnswer();
    const QByteArray url = server->url("/form");
    for (auto _ : state) {
        for (int i = 0; i < Posts; ++i) {
            QWebClient client(url.constData(), false);
            client.addQueryItem("sin", "046454286");
            client.addQueryItem("amount", "52345.68");
            QString response;
            if (!client.post(response, nullptr) || response != QLatin1String("accepted"))
                state.SkipWithError("post failed");
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    state.SetItemsProcessed(state.iterations() * Posts);
}

void PostsThroughPlainManager(benchmark::State& state)
{
    formAnswer();
    const QUrl url(QString::fromLatin1(server->url("/form")));
    for (auto _ : state) {
        for (int i = 0; i < Posts; ++i) {
            QNetworkAccessManager manager;
            QUrlQuery query;
            query.addQueryItem(QStringLiteral("sin"), QStringLiteral("046454286"));
            query.addQueryItem(QStringLiteral("amount"), QStringLiteral("52345.68"));
            const QByteArray body = query.query(QUrl::FullyEncoded).toUtf8();
            if (QString::fromUtf8(plainRequest(manager, url, &body)) != QLatin1String("accepted"))
                state.SkipWithError("post failed");
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    state.SetItemsProcessed(state.iterations() * Posts);
}

void DownloadThroughClient(benchmark::State& state)
{
    downloadAnswer();
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("download.bin"));
    const QByteArray url = server->url("/download");
    for (auto _ : state) {
        QWebClient client(url.constData(), false);
        if (!client.getDownloadFile(path) || QFile(path).size() != DownloadBytes)
            state.SkipWithError("download failed");
    }
    state.SetBytesProcessed(state.iterations() * DownloadBytes);
}

void DownloadThroughPlainManager(benchmark::State& state)
{
    downloadAnswer();
    const QUrl url(QString::fromLatin1(server->url("/download")));
    for (auto _ : state) {
        QNetworkAccessManager manager;
        if (plainRequest(manager, url, nullptr).size() != DownloadBytes)
            state.SkipWithError("download failed");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    state.SetBytesProcessed(state.iterations() * DownloadBytes);
}

} // namespace

BENCHMARK(PostsThroughClient)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(PostsThroughPlainManager)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(DownloadThroughClient)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(DownloadThroughPlainManager)->Unit(benchmark::kMillisecond)->UseRealTime();

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    LoopbackHttpServer loopback;
    if (!loopback.listen())
        return 1;
    server = &loopback;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
