// Searches over a line of 60 ms there and back, with HTTP/2 and TLS at its end. Prints how many
// round trips they take.

#include "benchmarks/Figures.h"
#include "benchmarks/FlightAnswers.h"
#include "support/ClientTesting.h"
#include "support/Http2Front.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTcpServer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto delay = 30ms; ///< each way

/// Forwards what it receives, after the delay. A connection opens as late as on a real line: the
/// first bytes wait for another round trip.
class DelayedLine : public QTcpServer
{
public:
    explicit DelayedLine(quint16 port)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this, port] {
            auto *near = nextPendingConnection();
            auto *far = new QTcpSocket(near);
            ++connections;
            far->connectToHost(QHostAddress::LocalHost, port);
            connect(near, &QTcpSocket::disconnected, near, &QObject::deleteLater);
            connect(far, &QTcpSocket::disconnected, near, &QTcpSocket::disconnectFromHost);
            handOn(near, far, 2 * delay);
            handOn(far, near, 0ms);
        });
    }
    QUrl endpoint() const { return QUrl(u"https://127.0.0.1:%1/mcp"_s.arg(serverPort())); }

    int connections = 0;

private:
    static void handOn(QTcpSocket *from, QTcpSocket *to, std::chrono::milliseconds opening)
    {
        QElapsedTimer age;
        age.start();
        connect(from, &QTcpSocket::readyRead, to, [from, to, opening, age] {
            const QByteArray bytes = from->readAll();
            const auto rest = opening - std::chrono::milliseconds(age.elapsed());
            QTimer::singleShot(delay + std::max(rest, 0ms), Qt::PreciseTimer, to,
                               [to, bytes] { to->write(bytes); });
        });
    }
};

/// Two calls beside one another, as a search makes them.
double searchSeconds()
{
    QElapsedTimer clock;
    clock.start();
    const auto calendar =
        watch(VTRMCPClient::shared().callTool(u"find_flight_price_calendar"_s, {}));
    const auto flights = watch(VTRMCPClient::shared().callTool(u"search_flights"_s, {}));
    if (!settle(calendar).value || !settle(flights).value)
        qFatal("A search failed.");
    return double(clock.nsecsElapsed()) / 1e9;
}

double medianSearch(int count)
{
    QList<double> seconds;
    for (int search = 0; search < count; ++search)
        seconds.append(searchSeconds());
    return median(seconds);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    if (!Http2Front::isInstalled())
        qFatal("nghttpx is not installed (Debian: nghttp2-proxy).");
    ScriptedServer server;
    const ScriptedAnswer few = ScriptedAnswer::text(flightsReply(6));
    const ScriptedAnswer many = ScriptedAnswer::text(flightsReply(440));
    ScriptedAnswer answer = few;
    server.onToolCall = [&answer](const ReceivedRequest &request) {
        return request.tool() == u"search_flights"_s ? answer : ScriptedAnswer::content();
    };
    Http2Front front(server.endpoint());
    const double roundTrip = 2 * std::chrono::duration<double>(delay).count();
    QList<double> starts;
    for (int run = 0; run < 5; ++run) {
        DelayedLine line(static_cast<quint16>(front.endpoint().port()));
        VTRMCPClientTestAccess::replaceShared(line.endpoint(), trustingSettings());
        starts.append(searchSeconds() / roundTrip);
        if (run > 0)
            continue;
        print("search", medianSearch(5) / roundTrip);
        print("connections", line.connections);
        answer = many;
        print("large_search", medianSearch(5) / roundTrip);
        answer = few;
    }
    print("start", median(starts));
    VTRMCPClientTestAccess::destroyShared();
    return 0;
}
