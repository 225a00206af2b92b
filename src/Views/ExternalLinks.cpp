#include "Views/ExternalLinks.h"

#include <QDesktopServices>

#include <chrono>

namespace {

/// Browsers refuse longer ones, and so may what starts them.
constexpr qsizetype longestAddress = 8192;

/// Until the same page may be opened again.
constexpr std::chrono::milliseconds shortestPause = std::chrono::seconds(1);

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

} // namespace

void ExternalLinks::setAddresses(const QUrl &webSite, const QUrl &mcpServer)
{
    addresses() = { webSite, mcpServer };
}

bool ExternalLinks::isOpenable(const QUrl &url)
{
    const bool isWeb = url.scheme() == u"http" || url.scheme() == u"https";
    // User information could be mistaken for the host.
    return url.isValid() && isWeb && !url.host().isEmpty() && url.userInfo().isEmpty();
}

void ExternalLinks::open(const QUrl &url)
{
    const bool isRepeated =
        url == m_last && m_sinceLast.isValid() && !m_sinceLast.hasExpired(shortestPause.count());
    m_last = url;
    m_sinceLast.start();
    if (!isRepeated && isOpenable(url))
        QDesktopServices::openUrl(url);
}

QUrl ExternalLinks::bookingPage(const FlightOption &flight)
{
    const QString link = flight.bookingURLText();
    const QUrl booking(link.left(longestAddress), QUrl::StrictMode);
    return link.size() <= longestAddress && isOpenable(booking) ? booking : addresses().webSite;
}

void ExternalLinks::openBooking(const FlightOption &flight) { open(bookingPage(flight)); }

void ExternalLinks::openWebSite() { open(addresses().webSite); }

void ExternalLinks::openMcpServer()
{
    QUrl root = addresses().mcpServer;
    root.setPath(QStringLiteral("/"));
    root.setQuery(QString());
    root.setFragment(QString());
    open(root);
}
