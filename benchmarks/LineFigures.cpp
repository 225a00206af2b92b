// Searches over a line of 60 ms there and back, with HTTP/2 and TLS at its end. Prints how many
// round trips they take.

#include "benchmarks/Figures.h"
#include "benchmarks/FlightAnswers.h"
#include "support/ClientTesting.h"
#include "support/Http2Front.h"
#include "support/ToolAnswers.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int rounds = 5;
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

/// Two calls beside one another, as a search makes them; prints how many round trips they take.
void search(const char *name)
{
    QElapsedTimer clock;
    clock.start();
    const auto calendar = watch(VTRMCPClient::shared().callTool(calendarTool, {}));
    const auto flights = watch(VTRMCPClient::shared().callTool(flightsTool, {}));
    if (!settle(calendar).value || !settle(flights).value)
        qFatal("A search failed.");
    print(name, double(clock.nsecsElapsed()) / (2 * std::chrono::nanoseconds(delay)).count());
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    if (!Http2Front::isInstalled())
        qFatal("nghttpx is not installed (Debian: nghttp2-proxy).");
    ScriptedServer server;
    const ScriptedAnswer few = ScriptedAnswer::text(flightsReply(6));
    ScriptedAnswer answer = few;
    server.onToolCall = [&answer](const ReceivedRequest &request) {
        return request.tool() == flightsTool ? answer : ScriptedAnswer::content();
    };
    Http2Front front(server.endpoint());
    for (int run = 0; run < rounds; ++run) {
        DelayedLine line(static_cast<quint16>(front.endpoint().port()));
        VTRMCPClientTestAccess::replaceShared(line.endpoint(), trustingSettings());
        search("start");
        if (run > 0)
            continue;
        for (int later = 0; later < rounds; ++later)
            search("search");
        print("connections", line.connections);
        answer = ScriptedAnswer::text(flightsReply(440));
        for (int later = 0; later < rounds; ++later)
            search("large_search");
        answer = few;
    }
    VTRMCPClientTestAccess::destroyShared();
    return 0;
}
