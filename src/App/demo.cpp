#include "App/Application.h"
#include "Services/ServiceAddresses.h"
#include "sample_server/SampleServer.h"

#include <QGuiApplication>

#include <optional>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    SampleServer server;
    const std::optional<quint16> port = server.listen();
    if (!port) {
        qCritical("The sample server found no free port.");
        return 1;
    }
    ServiceAddresses::setMcpEndpoint(QUrl(u"http://127.0.0.1:%1/mcp"_s.arg(*port)));
    // Nobody may take invented fares for real ones.
    return runApplication(u"Vantora (örnek veri)"_s);
}
