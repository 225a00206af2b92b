#include "Services/HttpTransport.h"

#include "Services/HttpExchange.h"
#include "Services/McpError.h"
#include "Services/PlatformErrorText.h"

#include <QNetworkCookie>
#include <QNetworkCookieJar>

/// The exchanges that run, as children, and the cookies that they share.
class HttpTransport::Exchanges : public QNetworkCookieJar
{
public:
    void abortAll()
    {
        const auto exchanges = findChildren<HttpExchange *>(Qt::FindDirectChildrenOnly);
        for (HttpExchange *exchange : exchanges)
            exchange->abort(QAbstractSocket::OperationError, PlatformErrorText::applicationQuits());
    }

    /// Keeps the last few, and none that is long: all of them go out with every request.
    bool setCookiesFromUrl(const QList<QNetworkCookie> &cookies, const QUrl &url) override
    {
        constexpr qsizetype mostCookies = 20;
        constexpr qsizetype longestCookie = 1024;
        bool isTaken = false;
        for (const QNetworkCookie &cookie : cookies) {
            if (cookie.name().size() + cookie.value().size() <= longestCookie)
                isTaken |= QNetworkCookieJar::setCookiesFromUrl({ cookie }, url);
        }
        const QList<QNetworkCookie> kept = allCookies();
        if (kept.size() > mostCookies)
            setAllCookies(kept.last(mostCookies));
        return isTaken;
    }
};

HttpTransport::HttpTransport(const QUrl &url, const HttpLimits &limits)
    : m_url(url)
    , m_limits(limits)
    , m_exchanges(new Exchanges)
{
    m_exchanges->moveToThread(&m_thread);
    QObject::connect(&m_thread, &QThread::finished, m_exchanges, &QObject::deleteLater);
    m_thread.start();
}

HttpTransport::~HttpTransport() { stop(); }

QFuture<HttpAnswer> HttpTransport::post(const HttpHeaders &headers, const QByteArray &body)
{
    const HttpRequest request { .url = m_url, .headers = headers, .body = body };
    auto *exchange = new HttpExchange(request, m_limits);
    QFuture<HttpAnswer> answer = exchange->answer();
    if (m_isStopped) {
        delete exchange;
        return answer;
    }
    exchange->moveToThread(&m_thread);
    QMetaObject::invokeMethod(m_exchanges, [exchanges = m_exchanges, exchange] {
        exchange->setParent(exchanges);
        exchange->start(exchanges);
    });
    return answer;
}

void HttpTransport::stop()
{
    if (m_isStopped)
        return;
    m_isStopped = true;
    QMetaObject::invokeMethod(m_exchanges, &Exchanges::abortAll, Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
}
