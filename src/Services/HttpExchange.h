#pragma once

#include "Services/HttpTransport.h"

#include <QPromise>

#include <curl/curl.h>

/// One POST. It ends exactly once, with an answer or an McpError. `proxy` is what
/// SystemProxy::lookUp() says; `settings` outlive the exchange.
class HttpExchange
{
public:
    HttpExchange(const QUrl &url, const HttpSettings &settings, const QFuture<QByteArray> &proxy,
                 const HttpHeaders &headers, const QByteArray &body);
    ~HttpExchange() { curl_easy_cleanup(m_easy); }
    Q_DISABLE_COPY_MOVE(HttpExchange)

    QFuture<HttpAnswer> answer() { return m_promise.future(); }
    CURL *easy() const { return m_easy; }
    bool hasEnded() const { return m_hasEnded; }
    /// Whether the answer, or what has arrived of it, is HTTP/1.
    bool isHttp1() const;

    /// Makes the handle for libcurl to perform. False as long as the proxy is not known, and when
    /// it has been made before.
    bool prepare(CURLSH *share, bool waitsForHttp2);
    /// Handles libcurl's result. True when the handle is to be performed again, after a redirect.
    bool takeResult(CURLcode code);
    /// Ends it if it has taken too long.
    void checkTime();
    /// Ends it since the application does.
    void quit();

private:
    using Clock = std::chrono::steady_clock;
    using Strings = std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)>;

    CURLcode takeHeadLine(QByteArrayView line);
    CURLcode takeBody(QByteArrayView bytes);
    CURLcode follow(const char *location);
    void fail(int code, const QString &text);
    QString failureText(CURLcode code) const;
    template<typename T>
    T info(CURLINFO which) const
    {
        T value {};
        curl_easy_getinfo(m_easy, which, &value);
        return value;
    }
    long status() const { return info<long>(CURLINFO_RESPONSE_CODE); }
    /// What libcurl calls with bytes of the answer.
    template<CURLcode (HttpExchange::*take)(QByteArrayView)>
    static size_t pass(const char *bytes, size_t, size_t size, void *exchange)
    {
        auto *self = static_cast<HttpExchange *>(exchange);
        self->m_refusal = (self->*take)({ bytes, qsizetype(size) });
        return self->m_refusal == CURLE_OK ? size : 0;
    }

    QUrl m_url;
    const HttpSettings &m_settings;
    const HttpLimits &m_limits = m_settings.limits;
    const QFuture<QByteArray> m_proxy;
    const HttpHeaders m_headers;
    const QByteArray m_body;
    std::vector<Strings> m_lists; ///< that libcurl reads
    CURL *m_easy = nullptr;
    QPromise<HttpAnswer> m_promise;
    HttpAnswer m_answer;
    qint64 m_headBytes = 0;
    int m_headLines = 0;
    bool m_isHeadWhole = false;
    bool m_hasEnded = false;
    int m_redirects = 0;
    CURLcode m_refusal = CURLE_OK; ///< why the answer was not read on
    const Clock::time_point m_start = Clock::now();
    Clock::time_point m_lastByte = m_start;
    curl_off_t m_bytesSeen = 0;
};
