#include "sample_server/SampleServer.h"

#include "sample_server/HttpServerCompat.h"
#include "sample_server/McpEndpoint.h"
#include "sample_server/RequestCheck.h"
#include "sample_server/StableRandom.h"

#include <QHttpServer>
#include <QTcpServer>
#include <QThreadPool>
#include <QTimer>

#include <unordered_map>

using namespace Qt::StringLiterals;
using namespace Sample;

struct SampleServer::Private
{
    explicit Private(SampleServer *server);
    void serve(const QHttpServerRequest &request, const HttpServerCompat::Send &send);
    void finish(quint64 key, const HttpAnswer &answer);
    std::chrono::milliseconds answerDelay(quint64 key) const;

    SampleServer *q;
    // A child, so that it changes threads together with the server.
    QHttpServer *http;
    McpEndpoint endpoint;
    ToolContext context { {}, QStringLiteral(VANTORA_WEB_SITE) };
    Clock clock = [] { return QDateTime::currentDateTime(); };
    std::chrono::milliseconds delay { 0 };
    std::chrono::milliseconds jitter { 0 };
    QString errorString;

    // What waits for its answer.
    std::unordered_map<quint64, HttpServerCompat::Send> pending;
    quint64 lastKey = 0;
    QThreadPool workers;
};

SampleServer::Private::Private(SampleServer *server)
    : q(server)
    , http(new QHttpServer(server))
{
    HttpServerCompat::setHandlers(
        http, u"/mcp"_s,
        [this](const QHttpServerRequest &request, const HttpServerCompat::Send &send) {
            serve(request, send);
        },
        [](const QHttpServerRequest &, const HttpServerCompat::Send &send) {
            send(RequestCheck::errorAnswer(HttpAnswer::Status::NotFound, JsonRpc::InvalidRequest,
                                           u"Burada bir şey yok; sunucu /mcp adresinde."_s));
        });
    endpoint.setToolCallObserver([this](const QJsonObject &params) {
        Q_EMIT q->toolCalled(params.value("name"_L1).toString(),
                             params.value("arguments"_L1).toObject());
    });
}

void SampleServer::Private::serve(const QHttpServerRequest &request,
                                  const HttpServerCompat::Send &send)
{
    const quint64 key = ++lastKey;
    pending.emplace(key, send);

    context.now = clock();
    auto reception = endpoint.receive(request, context, std::chrono::steady_clock::now());
    if (const auto *answer = std::get_if<HttpAnswer>(&reception)) {
        finish(key, *answer);
        return;
    }
    workers.start([this, key, job = std::get<McpEndpoint::Job>(std::move(reception))] {
        QMetaObject::invokeMethod(
            q, [this, key, answer = job()] { finish(key, answer); }, Qt::QueuedConnection);
    });
}

void SampleServer::Private::finish(quint64 key, const HttpAnswer &answer)
{
    const auto send = [this, key, answer] {
        const auto entry = pending.extract(key);
        if (!entry.empty())
            entry.mapped()(answer);
    };
    const std::chrono::milliseconds held = answerDelay(key);
    if (held.count() > 0)
        QTimer::singleShot(held, q, send);
    else
        send();
}

std::chrono::milliseconds SampleServer::Private::answerDelay(quint64 key) const
{
    if (jitter.count() <= 0)
        return delay;
    return delay
        + std::chrono::milliseconds(stableRandom(u"jitter", key).below(int(jitter.count()) + 1));
}

SampleServer::SampleServer(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>(this))
{ }

SampleServer::~SampleServer()
{
    d->workers.clear();
    d->workers.waitForDone();
    // Its handlers use the private part, which goes first otherwise.
    delete d->http;
}

std::optional<quint16> SampleServer::listen(quint16 port)
{
    auto tcp = std::make_unique<QTcpServer>();
    if (!tcp->listen(QHostAddress::LocalHost, port)) {
        d->errorString = tcp->errorString();
        return std::nullopt;
    }
    const quint16 chosen = tcp->serverPort();
    if (!HttpServerCompat::bind(d->http, std::move(tcp)))
        return std::nullopt;
    return chosen;
}

QString SampleServer::errorString() const { return d->errorString; }

void SampleServer::setClock(const Clock &clock) { d->clock = clock; }

void SampleServer::setWebSite(const QString &webSite)
{
    d->context.webSite = webSite.endsWith(u'/') ? webSite.chopped(1) : webSite;
}

void SampleServer::setAnswerDelay(std::chrono::milliseconds delay, std::chrono::milliseconds jitter)
{
    d->delay = delay;
    d->jitter = jitter;
}

void SampleServer::setSessionIdleTimeout(std::chrono::milliseconds timeout)
{
    d->endpoint.sessions().setIdleTimeout(timeout);
}

void SampleServer::setMaximumSessionCount(int count)
{
    d->endpoint.sessions().setMaximumCount(count);
}

int SampleServer::sessionCount()
{
    return d->endpoint.sessions().count(std::chrono::steady_clock::now());
}
