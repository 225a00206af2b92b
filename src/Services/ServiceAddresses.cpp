#include "Services/ServiceAddresses.h"

#include <QHostAddress>

namespace {

QUrl &endpointStorage()
{
    static QUrl endpoint(QStringLiteral(VANTORA_MCP_ENDPOINT), QUrl::StrictMode);
    return endpoint;
}

} // namespace

namespace ServiceAddresses {

QUrl mcpEndpoint() { return endpointStorage(); }

void setMcpEndpoint(const QUrl &endpoint) { endpointStorage() = endpoint; }

bool isAcceptableEndpoint(const QUrl &endpoint)
{
    if (!endpoint.isValid() || endpoint.host().isEmpty() || !endpoint.userInfo().isEmpty())
        return false;
    return endpoint.scheme() == u"https" || (endpoint.scheme() == u"http" && isLoopback(endpoint));
}

bool isLoopback(const QUrl &url)
{
    return url.host() == u"localhost" || QHostAddress(url.host()).isLoopback();
}

QString webSite() { return QStringLiteral(VANTORA_WEB_SITE); }

} // namespace ServiceAddresses
