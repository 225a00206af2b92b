#pragma once

#include <QString>
#include <QUrl>

/// The addresses of the airline that the application knows, set when it is built.
namespace ServiceAddresses {

/// Where the MCP client posts.
QUrl mcpEndpoint();
/// Replaces the built-in endpoint. Only the first use of VTRMCPClient::shared() reads it.
void setMcpEndpoint(const QUrl &endpoint);
/// True for an https address, or http on a loopback host, without user information. The client
/// takes no other.
bool isAcceptableEndpoint(const QUrl &endpoint);
/// True when the host is this machine.
bool isLoopback(const QUrl &url);

/// Root of the airline's public web site; also where a flight without a link of its own is booked.
QString webSite();

} // namespace ServiceAddresses
