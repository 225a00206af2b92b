#include "sample_server/SampleServer.h"

#include "sample_server/McpEndpoint.h"
#include "sample_server/StableRandom.h"

#include <QFile>
#include <QProcess>
#include <QQueue>
#include <QTcpServer>
#include <QTcpSocket>

#include <algorithm>

using namespace std::chrono_literals;
using namespace Sample;

namespace {

constexpr int mostConnections = 100;

/// One has to stay free: without any, QTcpServer tries to accept the next client without end.
bool isDescriptorLeft() { return QFile(QProcess::nullDevice()).open(QIODevice::ReadOnly); }

} // namespace

struct SampleServer::Private
{
    explicit Private(SampleServer *server);
    void accept();
    void makeRoom();
    void enqueue(HttpConnection *connection);
    void answerNext();
    void forget(HttpConnection *connection);
    std::chrono::milliseconds nextDelay();

    SampleServer *q;
    QTcpServer *tcp;
    QTimer *turn;
    QList<HttpConnection *> connections; ///< the one that asked last stands last
    QQueue<HttpConnection *> waiting; ///< for their answers to be computed
    McpEndpoint endpoint;
    Clock clock = [] { return QDateTime::currentDateTime(); };
    std::chrono::milliseconds delay = 0ms;
    std::chrono::milliseconds jitter = 0ms;
    quint64 answerCount = 0;
};

SampleServer::Private::Private(SampleServer *server)
    : q(server)
    , tcp(new QTcpServer(server))
    , turn(new QTimer(server))
    , endpoint([server](const QString &name, const QJsonObject &arguments) {
        Q_EMIT server->toolCalled(name, arguments);
    })
{
    QObject::connect(tcp, &QTcpServer::newConnection, server, [this] { accept(); });
    // One answer in each turn of the event loop: between two it notices who has left.
    QObject::connect(turn, &QTimer::timeout, server, [this] { answerNext(); });
}

void SampleServer::Private::accept()
{
    while (QTcpSocket *socket = tcp->nextPendingConnection()) {
        while (!connections.isEmpty()
               && (connections.size() >= mostConnections || !isDescriptorLeft()))
            makeRoom();
        auto *connection = new HttpConnection(socket, q);
        connections.append(connection);
        QObject::connect(connection, &HttpConnection::requestReceived, q,
                         [this, connection] { enqueue(connection); });
        QObject::connect(connection, &HttpConnection::closed, q, [this, connection] {
            forget(connection);
            connection->deleteLater();
        });
    }
}

/// Drops the connection that has been idle longest, or the oldest when all wait for an answer.
void SampleServer::Private::makeRoom()
{
    const auto idle = std::find_if(connections.cbegin(), connections.cend(),
                                   [](const auto *connection) { return !connection->isBusy(); });
    HttpConnection *dropped = idle == connections.cend() ? connections.first() : *idle;
    forget(dropped);
    delete dropped;
}

void SampleServer::Private::forget(HttpConnection *connection)
{
    connections.removeOne(connection);
    waiting.removeOne(connection);
}

void SampleServer::Private::enqueue(HttpConnection *connection)
{
    connections.removeOne(connection);
    connections.append(connection);
    waiting.enqueue(connection);
    turn->start();
}

void SampleServer::Private::answerNext()
{
    if (waiting.isEmpty())
        return turn->stop();
    HttpConnection *connection = waiting.dequeue();
    const HttpAnswer answer =
        endpoint.answer(connection->request(), { clock(), QStringLiteral(VANTORA_WEB_SITE) });
    QTimer::singleShot(nextDelay(), connection,
                       [connection, answer] { connection->answer(answer); });
}

std::chrono::milliseconds SampleServer::Private::nextDelay()
{
    return delay
        + std::chrono::milliseconds(
               stableRandom(u"jitter", ++answerCount).below(int(jitter.count()) + 1));
}

SampleServer::SampleServer()
    : d(std::make_unique<Private>(this))
{ }

SampleServer::~SampleServer() = default;

std::optional<quint16> SampleServer::listen(quint16 port)
{
    if (!d->tcp->listen(QHostAddress::LocalHost, port))
        return std::nullopt;
    return d->tcp->serverPort();
}

QString SampleServer::errorString() const { return d->tcp->errorString(); }

void SampleServer::setClock(const Clock &clock) { d->clock = clock; }

void SampleServer::setAnswerDelay(std::chrono::milliseconds delay, std::chrono::milliseconds jitter)
{
    d->delay = delay;
    d->jitter = jitter;
}

int SampleServer::sessionCount() const { return d->endpoint.sessionCount(); }
