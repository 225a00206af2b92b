#pragma once

#include "Models/FlightOption.h"

#include <QObject>
#include <QQmlEngine>
#include <QUrl>

/// The one place from which addresses are opened in the user's browser.
class ExternalLinks : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// What the program that shows the window says, before it does. Until then nothing opens
    /// beside the booking links.
    static void setAddresses(const QUrl &webSite, const QUrl &mcpServer);

    /// The booking page of the flight, or the airline's web site when the flight has no usable one.
    Q_INVOKABLE void openBooking(const FlightOption &flight) const;
    Q_INVOKABLE void openWebSite() const;
    /// The root of the MCP server's host.
    Q_INVOKABLE void openMcpServer() const;

    /// True for http and https addresses with a host and without user information.
    static bool isOpenable(const QUrl &url);
};
