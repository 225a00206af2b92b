#include "App/Application.h"
#include "Services/ServiceAddresses.h"
#include "sample_server/SampleServer.h"

#include <QGuiApplication>
#include <QSemaphore>
#include <QThread>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// The sample server in a thread of its own, from start() until this object goes.
class ServerThread : public QThread
{
public:
    ~ServerThread() override
    {
        quit();
        wait();
    }

    /// Starts the server and returns its port; absent when there is none to be had.
    std::optional<quint16> listen()
    {
        start();
        m_listened.acquire();
        return m_port;
    }

protected:
    void run() override
    {
        SampleServer server;
        m_port = server.listen();
        m_listened.release();
        exec();
    }

private:
    QSemaphore m_listened;
    std::optional<quint16> m_port;
};

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    ServerThread server;
    const std::optional<quint16> port = server.listen();
    if (!port) {
        qCritical("The sample server found no free port.");
        return 1;
    }
    ServiceAddresses::setMcpEndpoint(QUrl(u"http://127.0.0.1:%1/mcp"_s.arg(*port)));
    // Nobody may take invented fares for real ones.
    return runApplication(u"Vantora (örnek veri)"_s);
}
