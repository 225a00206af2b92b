#include "Services/HttpTransport.h"

#include "Services/HttpExchange.h"
#include "Services/ServiceAddresses.h"
#include "Services/SystemProxy.h"

#include <curl/curl.h>

#include <algorithm>

HttpTransport::HttpTransport(const QUrl &url, const HttpSettings &settings)
    : m_url(url)
    , m_settings(settings)
    , m_share(curl_share_init(), &curl_share_cleanup)
    // Connections use what is shared until they end.
    , m_transfers(curl_multi_init(),
                  [share = m_share](CURLM *transfers) { curl_multi_cleanup(transfers); })
{
    curl_share_setopt(m_share.get(), CURLSHOPT_SHARE, CURL_LOCK_DATA_COOKIE);
    curl_share_setopt(m_share.get(), CURLSHOPT_SHARE, CURL_LOCK_DATA_SSL_SESSION);
    m_thread = std::thread([this] { run(); });
}

HttpTransport::~HttpTransport() { stop(); }

QFuture<HttpAnswer> HttpTransport::post(const HttpHeaders &headers, const QByteArray &body)
{
    QFuture<QByteArray> proxy = SystemProxy::none();
    if (!ServiceAddresses::isLoopback(m_url)) {
        // While one look-up runs no second one is started.
        if (m_proxy.isFinished()) {
            m_proxy = SystemProxy::lookUp(
                m_url, [transfers = m_transfers] { curl_multi_wakeup(transfers.get()); });
        }
        proxy = m_proxy;
    }
    auto exchange = std::make_unique<HttpExchange>(m_url, m_settings, proxy, headers, body);
    QFuture<HttpAnswer> answer = exchange->answer();
    const std::scoped_lock lock(m_mutex);
    if (m_isStopped)
        exchange->quit();
    else
        m_added.push_back(std::move(exchange));
    curl_multi_wakeup(m_transfers.get());
    return answer;
}

void HttpTransport::stop()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_isStopped = true;
    }
    curl_multi_wakeup(m_transfers.get());
    if (m_thread.joinable())
        m_thread.join();
    SystemProxy::abandon(m_proxy);
}

void HttpTransport::run()
{
    while (takeAdded()) {
        for (const auto &exchange : m_exchanges) {
            if (exchange->prepare(m_share.get(), !m_isHttp1))
                curl_multi_add_handle(m_transfers.get(), exchange->easy());
        }
        int underWay = 0;
        curl_multi_perform(m_transfers.get(), &underWay);
        takeResults();
        for (const auto &exchange : m_exchanges)
            exchange->checkTime();
        removeEnded();
        // libcurl 7.88 does not wait for the second of several addresses, and has to be woken.
        const int milliseconds = m_exchanges.empty() ? 3'600'000 : 50;
        curl_multi_poll(m_transfers.get(), nullptr, 0, milliseconds, nullptr);
    }
    for (const auto &exchange : m_exchanges)
        exchange->quit();
    removeEnded();
}

bool HttpTransport::takeAdded()
{
    const std::scoped_lock lock(m_mutex);
    std::move(m_added.begin(), m_added.end(), std::back_inserter(m_exchanges));
    m_added.clear();
    return !m_isStopped;
}

void HttpTransport::takeResults()
{
    int others = 0;
    while (const CURLMsg *message = curl_multi_info_read(m_transfers.get(), &others)) {
        CURL *easy = message->easy_handle;
        const CURLcode code = message->data.result;
        HttpExchange *exchange = nullptr;
        curl_easy_getinfo(easy, CURLINFO_PRIVATE, &exchange);
        curl_multi_remove_handle(m_transfers.get(), easy);
        m_isHttp1 = exchange->isHttp1();
        if (exchange->takeResult(code))
            curl_multi_add_handle(m_transfers.get(), easy);
    }
}

void HttpTransport::removeEnded()
{
    std::erase_if(m_exchanges, [this](const auto &exchange) {
        if (exchange->hasEnded())
            curl_multi_remove_handle(m_transfers.get(), exchange->easy());
        return exchange->hasEnded();
    });
}
