#include "Services/HttpTransport.h"

#include "Services/McpError.h"
#include "Services/PlatformErrorText.h"
#include "Services/ServiceAddresses.h"

#include <QLocale>
#include <QNetworkProxy>
#include <QPromise>

#include <curl/curl.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#ifdef Q_OS_LINUX
#include <netinet/in.h>
#include <netinet/tcp.h>
#endif

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;
using Transfers = std::shared_ptr<CURLM>;
/// Without a value the system asks for a proxy that cannot tunnel.
using ProxyLookup = std::shared_future<std::optional<QNetworkProxy>>;

/// Asks the system on a thread that nothing waits for, since the system may fetch a script and
/// block for as long as that takes. The thread owns what it uses.
ProxyLookup lookUpProxy(const QUrl &url, const Transfers &asker)
{
    std::packaged_task<std::optional<QNetworkProxy>()> task(
        [url]() -> std::optional<QNetworkProxy> {
            const auto proxies = QNetworkProxyFactory::proxyForQuery(QNetworkProxyQuery(url));
            for (const QNetworkProxy &proxy : proxies) {
                if (proxy.capabilities() & QNetworkProxy::TunnelingCapability)
                    return proxy;
            }
            return std::nullopt;
        });
    ProxyLookup lookup = task.get_future().share();
    std::thread([task = std::move(task), asker]() mutable {
        task();
        curl_multi_wakeup(asker.get());
    }).detach();
    return lookup;
}

bool isReady(const ProxyLookup &lookup) { return lookup.wait_for(0s) == std::future_status::ready; }

/// Empty for none.
QByteArray curlProxy(const QNetworkProxy &proxy)
{
    if (proxy.type() == QNetworkProxy::NoProxy)
        return {};
    QUrl url;
    url.setScheme(proxy.type() == QNetworkProxy::Socks5Proxy ? u"socks5h"_s : u"http"_s);
    url.setHost(proxy.hostName());
    url.setPort(proxy.port());
    url.setUserName(proxy.user());
    url.setPassword(proxy.password());
    return url.toEncoded();
}

bool hasControlCharacter(QByteArrayView line)
{
    return std::any_of(line.begin(), line.end(), [](char character) {
        return (static_cast<unsigned char>(character) < ' ' && character != '\t')
            || character == 0x7f;
    });
}

/// Those that the user's system asks for, as servers are told.
QByteArray languages()
{
    const QLocale locale = QLocale::system();
    return locale.language() == QLocale::C ? "tr,*"_ba : locale.bcp47Name().toLatin1() + ",*";
}

bool isOfSameOrigin(const QUrl &url, const QUrl &other)
{
    const int defaultPort = url.scheme() == u"https" ? 443 : 80;
    return other.scheme() == url.scheme() && other.host() == url.host()
        && other.port(defaultPort) == url.port(defaultPort) && other.userInfo().isEmpty();
}

/// Has the system give up a connection whose other end is silent to what is sent, as after a change
/// of networks: a kept connection is replaced then.
int prepareSocket(void *, curl_socket_t socket, curlsocktype)
{
#ifdef TCP_USER_TIMEOUT
    constexpr unsigned int milliseconds = 10'000;
    setsockopt(socket, IPPROTO_TCP, TCP_USER_TIMEOUT, &milliseconds, sizeof milliseconds);
#else
    Q_UNUSED(socket)
#endif
    return CURL_SOCKOPT_OK;
}

struct Strings
{
    ~Strings() { curl_slist_free_all(list); }
    void append(const QByteArray &text) { list = curl_slist_append(list, text.constData()); }

    curl_slist *list = nullptr;
};

} // namespace

/// One POST. It ends exactly once, with an answer or an McpError.
class HttpTransport::Exchange
{
public:
    Exchange(const QUrl &url, const HttpSettings &settings, const HttpHeaders &headers,
             const QByteArray &body)
        : m_url(url)
        , m_settings(settings)
        , m_body(body)
    {
        promise.start();
        for (const auto &[name, value] : headers)
            m_headers.append(name + ": " + value);
        m_headers.append("Accept-Language: " + languages());
        for (const QByteArray &entry : settings.addresses)
            m_addresses.append(entry);
        for (const QByteArray &entry : settings.otherHosts)
            m_otherHosts.append(entry);
    }
    ~Exchange() { curl_easy_cleanup(easy); }
    Q_DISABLE_COPY_MOVE(Exchange)

    /// Makes the handle for libcurl to perform.
    void prepare(const QNetworkProxy &proxy, CURLSH *share, bool waitsForHttp2);
    /// Ends it if it has taken too long. Returns when to ask again.
    Clock::time_point checkTime();
    /// What libcurl came to. True when the handle is to be performed again.
    bool takeResult(CURLcode code);
    void fail(int code, const QString &text)
    {
        hasEnded = true;
        promise.setException(McpError(McpError::Domain::Network, code, text));
        promise.finish();
    }
    void quit() { fail(CURLE_ABORTED_BY_CALLBACK, PlatformErrorText::applicationQuits()); }

    QPromise<HttpAnswer> promise;
    CURL *easy = nullptr;
    ProxyLookup proxy;
    bool isHttp1 = false;
    bool hasEnded = false;

private:
    CURLcode takeHeadLine(QByteArrayView line);
    CURLcode takeBody(QByteArrayView bytes);
    CURLcode follow(const char *location);
    QString failureText(CURLcode code) const;
    template<typename T>
    T info(CURLINFO which) const
    {
        T value {};
        curl_easy_getinfo(easy, which, &value);
        return value;
    }
    long status() const { return info<long>(CURLINFO_RESPONSE_CODE); }
    /// What libcurl calls with bytes of the answer.
    template<CURLcode (Exchange::*take)(QByteArrayView)>
    static size_t pass(const char *bytes, size_t, size_t size, void *exchange)
    {
        auto *self = static_cast<Exchange *>(exchange);
        self->m_refusal = (self->*take)({ bytes, qsizetype(size) });
        return self->m_refusal == CURLE_OK ? size : 0;
    }

    QUrl m_url;
    const HttpSettings &m_settings;
    const HttpLimits &m_limits = m_settings.limits;
    QByteArray m_body;
    Strings m_headers;
    Strings m_addresses;
    Strings m_otherHosts;
    HttpAnswer m_answer;
    qint64 m_headBytes = 0;
    int m_headLines = 0;
    bool m_isInHead = false;
    bool m_isHeadWhole = false;
    bool m_isProxied = false;
    bool m_isRepeated = false;
    int m_redirects = 0;
    CURLcode m_refusal = CURLE_OK; ///< why the answer was not read on
    const Clock::time_point m_start = Clock::now();
    Clock::time_point m_lastByte = m_start;
    curl_off_t m_bytesSeen = 0;
};

void HttpTransport::Exchange::prepare(const QNetworkProxy &proxy, CURLSH *share, bool waitsForHttp2)
{
    const bool isSecure = m_url.scheme() == u"https";
    const QByteArray proxyUrl = curlProxy(proxy);
    m_isProxied = !proxyUrl.isEmpty();
    easy = curl_easy_init();
    const auto set = [this](CURLoption option, auto value) {
        if (curl_easy_setopt(easy, option, value) != CURLE_OK)
            qWarning("libcurl does not take option %d.", option);
    };
    set(CURLOPT_PRIVATE, this);
    set(CURLOPT_SHARE, share);
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_QUICK_EXIT, 1L); // does not wait for a name look-up that hangs
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_URL, m_url.toEncoded(QUrl::RemoveFragment).constData());
    set(CURLOPT_RESOLVE, m_addresses.list);
    set(CURLOPT_CONNECT_TO, m_otherHosts.list);
    set(CURLOPT_PROXY, proxyUrl.constData());
    set(CURLOPT_HTTPPROXYTUNNEL, 1L);
    set(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    set(CURLOPT_HTTP_VERSION, isSecure ? CURL_HTTP_VERSION_2TLS : CURL_HTTP_VERSION_1_1);
    set(CURLOPT_PIPEWAIT, waitsForHttp2 ? 1L : 0L);
    set(CURLOPT_SSLVERSION, CURL_SSLVERSION_TLSv1_2);
    set(CURLOPT_CONNECTTIMEOUT_MS, long(m_limits.connecting.count()));
    set(CURLOPT_SOCKOPTFUNCTION, &prepareSocket);
    set(CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t(m_body.size()));
    set(CURLOPT_POSTFIELDS, m_body.constData());
    set(CURLOPT_HTTPHEADER, m_headers.list);
    set(CURLOPT_USERAGENT, "Vantora/1.0");
    set(CURLOPT_ACCEPT_ENCODING, ""); // whatever libcurl can unpack
    set(CURLOPT_COOKIEFILE, ""); // keeps cookies, and reads none
    set(CURLOPT_MAXFILESIZE_LARGE, curl_off_t(m_limits.bodyBytes));
    set(CURLOPT_HEADERFUNCTION, &Exchange::pass<&Exchange::takeHeadLine>);
    set(CURLOPT_HEADERDATA, this);
    set(CURLOPT_WRITEFUNCTION, &Exchange::pass<&Exchange::takeBody>);
    set(CURLOPT_WRITEDATA, this);
    if (!m_settings.authorities.isEmpty()) {
        curl_blob blob { const_cast<char *>(m_settings.authorities.data()),
                         size_t(m_settings.authorities.size()), CURL_BLOB_COPY };
        set(CURLOPT_CAINFO_BLOB, &blob);
    }
}

CURLcode HttpTransport::Exchange::takeHeadLine(QByteArrayView line)
{
    m_headBytes += line.size();
    if (m_headBytes > m_limits.headBytes || ++m_headLines > m_limits.headLines)
        return CURLE_FILESIZE_EXCEEDED;
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    if (hasControlCharacter(line))
        return CURLE_WEIRD_SERVER_REPLY;
    if (line.isEmpty()) {
        m_isHeadWhole = status() >= 200;
        m_isInHead = false;
    } else if (!m_isInHead && !m_isHeadWhole) {
        m_isInHead = true;
        isHttp1 = line.startsWith("HTTP/1");
        // What a server sends too much over HTTP/1.1 could be taken for another's answer.
        curl_easy_setopt(easy, CURLOPT_FORBID_REUSE, isHttp1 ? 1L : 0L);
        if (status() == 101) // would make the connection speak something else
            return CURLE_WEIRD_SERVER_REPLY;
    }
    return CURLE_OK;
}

CURLcode HttpTransport::Exchange::takeBody(QByteArrayView bytes)
{
    if (m_answer.body.size() + bytes.size() > m_limits.bodyBytes)
        return CURLE_FILESIZE_EXCEEDED;
    m_answer.body.append(bytes);
    return CURLE_OK;
}

Clock::time_point HttpTransport::Exchange::checkTime()
{
    const auto now = Clock::now();
    const curl_off_t bytes =
        easy ? info<long>(CURLINFO_HEADER_SIZE) + info<curl_off_t>(CURLINFO_SIZE_DOWNLOAD_T) : 0;
    if (std::exchange(m_bytesSeen, bytes) != bytes)
        m_lastByte = now;
    const auto end = m_start + m_limits.total;
    const auto idleEnd = m_lastByte + m_limits.idle;
    const auto proxyEnd = easy ? end : m_start + m_limits.findingProxy;
    if (now >= end)
        fail(CURLE_OPERATION_TIMEDOUT, PlatformErrorText::totalTimeout());
    else if (now >= idleEnd)
        fail(CURLE_OPERATION_TIMEDOUT, PlatformErrorText::network(CURLE_OPERATION_TIMEDOUT));
    else if (now >= proxyEnd)
        fail(CURLE_PROXY, PlatformErrorText::proxyUnknown());
    return std::min({ end, idleEnd, proxyEnd });
}

bool HttpTransport::Exchange::takeResult(CURLcode code)
{
    // A connection that was kept may have died meanwhile.
    const bool isDead = code == CURLE_SEND_ERROR || code == CURLE_RECV_ERROR
        || code == CURLE_GOT_NOTHING || code == CURLE_HTTP2;
    if (isDead && m_headBytes == 0 && info<long>(CURLINFO_NUM_CONNECTS) == 0
        && !std::exchange(m_isRepeated, true)) {
        return true;
    }
    curl_header *header = nullptr;
    if (m_refusal != CURLE_OK)
        code = m_refusal;
    else if (code == CURLE_OK && !m_isHeadWhole)
        code = CURLE_GOT_NOTHING;
    else if (curl_easy_header(easy, "Content-Length", 0, CURLH_HEADER, -1, &header) == CURLHE_OK
             && header->amount > 1)
        code = CURLE_WEIRD_SERVER_REPLY; // one of them cuts the body
    const char *redirect = info<const char *>(CURLINFO_REDIRECT_URL);
    if (code == CURLE_OK && redirect) {
        code = follow(redirect);
        if (code == CURLE_OK)
            return true;
    }
    if (code != CURLE_OK) {
        fail(code, failureText(code));
        return false;
    }
    m_answer.status = static_cast<int>(status());
    header = nullptr;
    while ((header = curl_easy_nextheader(easy, CURLH_HEADER, -1, header)))
        m_answer.headers.emplaceBack(header->name, QByteArray(header->value).trimmed());
    hasEnded = true;
    promise.addResult(m_answer);
    promise.finish();
    return false;
}

/// Only within the origin, and only where the question is asked again as it is.
CURLcode HttpTransport::Exchange::follow(const char *location)
{
    constexpr int mostRedirects = 5;
    const QUrl url = QUrl::fromEncoded(location, QUrl::StrictMode);
    if ((status() != 307 && status() != 308) || !isOfSameOrigin(m_url, url)
        || ++m_redirects > mostRedirects) {
        return CURLE_WEIRD_SERVER_REPLY;
    }
    m_url = url;
    m_answer = {};
    m_isHeadWhole = false;
    return curl_easy_setopt(easy, CURLOPT_URL, url.toEncoded(QUrl::RemoveFragment).constData());
}

QString HttpTransport::Exchange::failureText(CURLcode code) const
{
    const bool isCertificate = code == CURLE_PEER_FAILED_VERIFICATION;
    // A proxy only tunnels, so that what goes wrong before TLS stands is its fault.
    if (m_isProxied && m_headBytes == 0 && info<curl_off_t>(CURLINFO_APPCONNECT_TIME_T) == 0
        && code != CURLE_SSL_CONNECT_ERROR && code != CURLE_HTTP2_STREAM && !isCertificate) {
        return PlatformErrorText::network(CURLE_PROXY);
    }
    return PlatformErrorText::network(
        code, info<long>(isCertificate ? CURLINFO_SSL_VERIFYRESULT : CURLINFO_OS_ERRNO));
}

/// The thread, and what the exchanges share in it.
class HttpTransport::Line
{
public:
    explicit Line(const QUrl &url)
        : m_url(url)
    {
        curl_share_setopt(m_share.get(), CURLSHOPT_SHARE, CURL_LOCK_DATA_COOKIE);
        curl_share_setopt(m_share.get(), CURLSHOPT_SHARE, CURL_LOCK_DATA_SSL_SESSION);
        m_thread = std::thread([this] { run(); });
    }

    void add(std::unique_ptr<Exchange> exchange)
    {
        const std::scoped_lock lock(m_mutex);
        if (m_isStopped)
            exchange->quit();
        else
            m_added.push_back(std::move(exchange));
        curl_multi_wakeup(m_transfers.get());
    }
    void stop()
    {
        {
            const std::scoped_lock lock(m_mutex);
            m_isStopped = true;
        }
        curl_multi_wakeup(m_transfers.get());
        if (m_thread.joinable())
            m_thread.join();
        // Qt's library of proxies would wait for its answer at the end of the process.
        static ProxyLookup unanswered;
        if (!m_proxy.valid() || isReady(m_proxy))
            return;
        unanswered = m_proxy;
        std::atexit([] {
            if (!isReady(unanswered)) {
                std::fflush(nullptr);
                std::_Exit(EXIT_SUCCESS);
            }
        });
    }

private:
    void run()
    {
        while (takeAdded()) {
            for (const auto &exchange : m_exchanges) {
                if (!exchange->easy)
                    begin(*exchange);
            }
            int underWay = 0;
            curl_multi_perform(m_transfers.get(), &underWay);
            takeResults();
            const auto wait =
                std::chrono::ceil<std::chrono::milliseconds>(removeEnded() - Clock::now());
            curl_multi_poll(m_transfers.get(), nullptr, 0, int(wait.count()), nullptr);
        }
        for (const auto &exchange : m_exchanges) {
            curl_multi_remove_handle(m_transfers.get(), exchange->easy);
            exchange->quit();
        }
        m_exchanges.clear();
    }
    bool takeAdded()
    {
        const std::scoped_lock lock(m_mutex);
        std::move(m_added.begin(), m_added.end(), std::back_inserter(m_exchanges));
        m_added.clear();
        return !m_isStopped;
    }
    void begin(Exchange &exchange);
    void takeResults();
    /// Returns when the next one may be ended.
    Clock::time_point removeEnded();

    const QUrl m_url;
    std::mutex m_mutex; ///< for the next two
    std::vector<std::unique_ptr<Exchange>> m_added;
    bool m_isStopped = false;
    const std::shared_ptr<CURLSH> m_share { curl_share_init(), &curl_share_cleanup };
    /// Connections and what goes over them. They use what is shared until they end.
    const Transfers m_transfers { curl_multi_init(), [share = m_share](CURLM *transfers) {
                                     curl_multi_cleanup(transfers);
                                 } };
    std::vector<std::unique_ptr<Exchange>> m_exchanges; ///< the thread's
    ProxyLookup m_proxy; ///< the last one
    bool m_isHttp1 = false; ///< what the server last spoke
    std::thread m_thread;
};

void HttpTransport::Line::begin(Exchange &exchange)
{
    QNetworkProxy proxy(QNetworkProxy::NoProxy);
    if (!ServiceAddresses::isLoopback(m_url)) {
        if (!exchange.proxy.valid()) {
            // While one look-up runs no second one is started.
            if (!m_proxy.valid() || isReady(m_proxy))
                m_proxy = lookUpProxy(m_url, m_transfers);
            exchange.proxy = m_proxy;
        }
        if (!isReady(exchange.proxy))
            return;
        if (!exchange.proxy.get())
            return exchange.fail(CURLE_PROXY, PlatformErrorText::network(CURLE_PROXY));
        proxy = *exchange.proxy.get();
    }
    exchange.prepare(proxy, m_share.get(), m_url.scheme() == u"https" && !m_isHttp1);
    curl_multi_add_handle(m_transfers.get(), exchange.easy);
}

void HttpTransport::Line::takeResults()
{
    int others = 0;
    while (const CURLMsg *message = curl_multi_info_read(m_transfers.get(), &others)) {
        CURL *easy = message->easy_handle;
        const CURLcode code = message->data.result;
        Exchange *exchange = nullptr;
        curl_easy_getinfo(easy, CURLINFO_PRIVATE, &exchange);
        curl_multi_remove_handle(m_transfers.get(), easy);
        if (exchange->takeResult(code))
            curl_multi_add_handle(m_transfers.get(), easy);
        m_isHttp1 = exchange->isHttp1;
    }
}

Clock::time_point HttpTransport::Line::removeEnded()
{
    // libcurl 7.88 does not wait for the second of several addresses, and has to be woken.
    auto next = Clock::now() + (m_exchanges.empty() ? std::chrono::milliseconds(1h) : 50ms);
    for (const auto &exchange : m_exchanges) {
        if (!exchange->hasEnded)
            next = std::min(next, exchange->checkTime());
        if (exchange->hasEnded)
            curl_multi_remove_handle(m_transfers.get(), exchange->easy);
    }
    std::erase_if(m_exchanges, [](const auto &exchange) { return exchange->hasEnded; });
    return next;
}

HttpTransport::HttpTransport(const QUrl &url, const HttpSettings &settings)
    : m_url(url)
    , m_settings(settings)
    , m_line(std::make_unique<Line>(url))
{ }

HttpTransport::~HttpTransport() { stop(); }

QFuture<HttpAnswer> HttpTransport::post(const HttpHeaders &headers, const QByteArray &body)
{
    auto exchange = std::make_unique<Exchange>(m_url, m_settings, headers, body);
    QFuture<HttpAnswer> answer = exchange->promise.future();
    m_line->add(std::move(exchange));
    return answer;
}

void HttpTransport::stop() { m_line->stop(); }
