#pragma once

#include "Models/FlightOption.h"

#include <QElapsedTimer>
#include <QObject>
#include <QQmlEngine>
#include <QUrl>

/// The one place from which addresses are opened in the user's browser. A page that is asked for
/// again within a second of the last time is not opened again.
class ExternalLinks : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// Called before the window is loaded. Until then only booking links open.
    static void setAddresses(const QUrl &webSite, const QUrl &mcpServer);

    Q_INVOKABLE void openBooking(const FlightOption &flight);
    Q_INVOKABLE void openWebSite();
    /// The root of the MCP server's host.
    Q_INVOKABLE void openMcpServer();

    /// The booking page of the flight, or the airline's web site when the flight has no usable one.
    static QUrl bookingPage(const FlightOption &flight);
    /// True for http and https addresses with a host and without user information.
    static bool isOpenable(const QUrl &url);

private:
    /// An address that is not openable is ignored, and so is one that was opened within the last
    /// second: repeated keys and clicks open one page.
    void open(const QUrl &url);

    QUrl m_last;
    QElapsedTimer m_sinceLast;
};
