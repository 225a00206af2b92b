#include "Views/ExternalLinks.h"

#include <QDesktopServices>

namespace {

/// Browsers and the system's way to them take longer ones for a mistake.
constexpr qsizetype longestAddress = 8192;

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
    // What stands before an @ is there to look like the host.
    return url.isValid() && isWeb && !url.host().isEmpty() && url.userInfo().isEmpty();
}

void ExternalLinks::openBooking(const FlightOption &flight) const
{
    const QString link = flight.bookingURLText();
    const QUrl booking(link.left(longestAddress), QUrl::StrictMode);
    if (link.size() <= longestAddress && isOpenable(booking))
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
