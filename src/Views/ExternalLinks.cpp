#include "Views/ExternalLinks.h"

#include <QDesktopServices>

namespace {

struct Addresses
{
    QUrl webSite;
    QUrl mcpServer;
};

Addresses &addresses()
{
    static Addresses addresses;
    return addresses;
}

/// An address that is not openable is ignored.
void open(const QUrl &url)
{
    if (ExternalLinks::isOpenable(url))
        QDesktopServices::openUrl(url);
}

} // namespace

void ExternalLinks::setAddresses(const QUrl &webSite, const QUrl &mcpServer)
{
    addresses() = { webSite, mcpServer };
}

bool ExternalLinks::isOpenable(const QUrl &url)
{
    const bool isWeb = url.scheme() == u"http" || url.scheme() == u"https";
    return url.isValid() && isWeb && !url.host().isEmpty();
}

void ExternalLinks::openBooking(const FlightOption &flight) const
{
    const QUrl booking(flight.bookingURLText(), QUrl::StrictMode);
    if (isOpenable(booking))
        open(booking);
    else
        openWebSite();
}

void ExternalLinks::openWebSite() const { open(addresses().webSite); }

void ExternalLinks::openMcpServer() const
{
    QUrl root = addresses().mcpServer;
    root.setPath(QStringLiteral("/"));
    root.setQuery(QString());
    root.setFragment(QString());
    open(root);
}
