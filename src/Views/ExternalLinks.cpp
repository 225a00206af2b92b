#include "Views/ExternalLinks.h"

#include "Services/ServiceAddresses.h"

#include <QDesktopServices>

namespace {

/// An address that is not openable is ignored.
void open(const QUrl &url)
{
    if (ExternalLinks::isOpenable(url))
        QDesktopServices::openUrl(url);
}

} // namespace

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

void ExternalLinks::openWebSite() const
{
    open(QUrl(ServiceAddresses::webSite(), QUrl::StrictMode));
}

void ExternalLinks::openMcpServer() const
{
    QUrl root = ServiceAddresses::mcpEndpoint();
    root.setPath(QStringLiteral("/"));
    root.setQuery(QString());
    root.setFragment(QString());
    open(root);
}
