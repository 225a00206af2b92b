#include "Services/HttpTransport.h"

#include "Services/McpError.h"
#include "Services/PlatformErrorText.h"
#include "Services/ServiceAddresses.h"

#include <QLocale>
#include <QNetworkProxy>
#include <QPromise>

#include <curl/curl.h>

#include <algorithm>
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
/// Empty when the system asks for a proxy that cannot tunnel.
using ProxyLookup = std::shared_future<std::optional<QNetworkProxy>>;

constexpr int mostRedirects = 5;

/// The transfers, for other threads that have news for their thread. Null before and after them.
struct Wakeable
{
    std::mutex mutex;
    CURLM *transfers = nullptr;

    void wake()
    {
        const std::scoped_lock lock(mutex);
        if (transfers)
            curl_multi_wakeup(transfers);
    }
    void set(CURLM *newTransfers)
    {
        const std::scoped_lock lock(mutex);
        transfers = newTransfers;
    }
};

/// Asks the system, which may fetch a script for it and block for as long as that takes: the thread
/// is left to itself, and what it holds is its own.
ProxyLookup lookUpProxy(const QUrl &url, const std::shared_ptr<Wakeable> &asker)
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
        asker->wake();
    }).detach();
    return lookup;
}

bool isReady(const ProxyLookup &lookup)
{
    return lookup.valid() && lookup.wait_for(0s) == std::future_status::ready;
}

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
    return std::any_of(line.begin(), line.end(), [](char sign) {
        return (static_cast<unsigned char>(sign) < ' ' && sign != '\t') || sign == 0x7f;
    });
}

/// Those that the user's system asks for, as servers are told.
QByteArray languages()
{
    const QLocale locale = QLocale::system();
    return locale.language() == QLocale::C ? "tr,*"_ba : locale.bcp47Name().toLatin1() + ",*";
}

bool hasSameOrigin(const QUrl &one, const QUrl &other)
{
    const int port = one.scheme() == u"https" ? 443 : 80;
    return one.scheme() == other.scheme() && one.host() == other.host()
        && one.port(port) == other.port(port) && other.userInfo().isEmpty();
}

/// Lets the system give up a connection whose other end is silent to what is sent, as after a
/// change of networks: a kept connection is replaced then.
int prepareSocket(void *, curl_socket_t socket, curlsocktype)
{
#ifdef TCP_USER_TIMEOUT
    const unsigned int milliseconds = 10'000;
    setsockopt(socket, IPPROTO_TCP, TCP_USER_TIMEOUT, &milliseconds, sizeof milliseconds);
#else
    Q_UNUSED(socket)
#endif
    return CURL_SOCKOPT_OK;
}

template<typename T>
T info(CURL *easy, CURLINFO which)
{
    T value {};
    curl_easy_getinfo(easy, which, &value);
    return value;
}

} // namespace

/// One POST. It ends exactly once, with an answer or an McpError.
class HttpTransport::Exchange
{
public:
    Exchange(const QUrl &url, const HttpSettings &settings, const HttpHeaders &headers,
             const QByteArray &body);
    ~Exchange();
    Q_DISABLE_COPY_MOVE(Exchange)

    QFuture<HttpAnswer> answer() const { return m_promise.future(); }
    CURL *easy() const { return m_easy; }
    bool hasEnded() const { return m_hasEnded; }
    bool isHttp1() const { return m_isHttp1; }
    ProxyLookup proxy;
    /// Makes the handle for libcurl to perform.
    CURL *prepare(const QNetworkProxy &proxy, CURLSH *share, bool waitsForHttp2);
    /// Ends it if it has taken too long. Returns when to ask again.
    Clock::time_point checkTime();
    /// What libcurl came to. True when the handle is to be performed again.
    bool takeResult(CURLcode code);
    void fail(int code, const QString &text);

private:
    static size_t takeHeadLine(const char *line, size_t, size_t size, void *exchange);
    static size_t takeBody(const char *bytes, size_t, size_t size, void *exchange);
    CURLcode noteHeadLine(QByteArrayView line);
    CURLcode follow(const char *location);
    QString failureText(CURLcode code) const;

    QUrl m_url;
    const HttpSettings &m_settings;
    const HttpLimits &m_limits = m_settings.limits;
    QByteArray m_body;
    CURL *m_easy = nullptr;
    curl_slist *m_headers = nullptr;
    curl_slist *m_addresses = nullptr;
    curl_slist *m_otherHosts = nullptr;
    QPromise<HttpAnswer> m_promise;
    HttpAnswer m_answer;
    qint64 m_headBytes = 0;
    int m_headLines = 0;
    bool m_isInHead = false;
    bool m_isHeadWhole = false;
    bool m_isHttp1 = false;
    bool m_isProxied = false;
    bool m_isRepeated = false;
    bool m_hasEnded = false;
    int m_redirects = 0;
    CURLcode m_refusal = CURLE_OK; ///< why the answer was not read on
    const Clock::time_point m_start = Clock::now();
    Clock::time_point m_lastByte = m_start;
    curl_off_t m_bytesSeen = 0;
};

HttpTransport::Exchange::Exchange(const QUrl &url, const HttpSettings &settings,
                                  const HttpHeaders &headers, const QByteArray &body)
    : m_url(url)
    , m_settings(settings)
    , m_body(body)
{
    m_promise.start();
    for (const auto &[name, value] : headers + HttpHeaders { { "Accept-Language", languages() } })
        m_headers = curl_slist_append(m_headers, (name + ": " + value).constData());
}

HttpTransport::Exchange::~Exchange()
{
    curl_easy_cleanup(m_easy);
    curl_slist_free_all(m_headers);
    curl_slist_free_all(m_addresses);
    curl_slist_free_all(m_otherHosts);
}

CURL *HttpTransport::Exchange::prepare(const QNetworkProxy &proxy, CURLSH *share,
                                       bool waitsForHttp2)
{
    const bool isSecure = m_url.scheme() == u"https";
    const QByteArray proxyUrl = curlProxy(proxy);
    m_isProxied = !proxyUrl.isEmpty();
    m_easy = curl_easy_init();
    const auto set = [this](CURLoption option, auto value) {
        if (curl_easy_setopt(m_easy, option, value) != CURLE_OK)
            qWarning("libcurl knows no option %d.", option);
    };
    set(CURLOPT_PRIVATE, this);
    set(CURLOPT_SHARE, share);
    set(CURLOPT_NOSIGNAL, 1L);
    // A look-up of a name that does not end is left to itself.
    set(CURLOPT_QUICK_EXIT, 1L);
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_URL, m_url.toEncoded(QUrl::RemoveFragment).constData());
    set(CURLOPT_PROXY, proxyUrl.constData());
    set(CURLOPT_HTTPPROXYTUNNEL, 1L);
    set(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    set(CURLOPT_HTTP_VERSION, isSecure ? CURL_HTTP_VERSION_2TLS : CURL_HTTP_VERSION_1_1);
    set(CURLOPT_PIPEWAIT, waitsForHttp2 ? 1L : 0L);
    set(CURLOPT_SSLVERSION, CURL_SSLVERSION_TLSv1_2);
    set(CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t(m_body.size()));
    set(CURLOPT_POSTFIELDS, m_body.constData());
    set(CURLOPT_HTTPHEADER, m_headers);
    set(CURLOPT_USERAGENT, "Vantora/1.0");
    set(CURLOPT_ACCEPT_ENCODING, ""); // whatever libcurl can unpack
    set(CURLOPT_COOKIEFILE, ""); // keeps cookies, and reads none
    set(CURLOPT_CONNECTTIMEOUT_MS, long(m_limits.connecting.count()));
    set(CURLOPT_MAXFILESIZE_LARGE, curl_off_t(m_limits.bodyBytes));
    set(CURLOPT_SOCKOPTFUNCTION, &prepareSocket);
    set(CURLOPT_HEADERFUNCTION, &Exchange::takeHeadLine);
    set(CURLOPT_HEADERDATA, this);
    set(CURLOPT_WRITEFUNCTION, &Exchange::takeBody);
    set(CURLOPT_WRITEDATA, this);
    for (const QByteArray &entry : m_settings.addresses)
        m_addresses = curl_slist_append(m_addresses, entry.constData());
    set(CURLOPT_RESOLVE, m_addresses);
    for (const QByteArray &entry : m_settings.otherHosts)
        m_otherHosts = curl_slist_append(m_otherHosts, entry.constData());
    set(CURLOPT_CONNECT_TO, m_otherHosts);
    if (!m_settings.authorities.isEmpty()) {
        curl_blob blob { const_cast<char *>(m_settings.authorities.data()),
                         size_t(m_settings.authorities.size()), CURL_BLOB_COPY };
        set(CURLOPT_CAINFO_BLOB, &blob);
    }
    return m_easy;
}

size_t HttpTransport::Exchange::takeHeadLine(const char *line, size_t, size_t size, void *exchange)
{
    auto &self = *static_cast<Exchange *>(exchange);
    self.m_refusal = self.noteHeadLine({ line, qsizetype(size) });
    return self.m_refusal == CURLE_OK ? size : 0;
}

CURLcode HttpTransport::Exchange::noteHeadLine(QByteArrayView line)
{
    m_headBytes += line.size();
    if (m_headBytes > m_limits.headBytes || ++m_headLines > m_limits.headLines)
        return CURLE_FILESIZE_EXCEEDED;
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    if (hasControlCharacter(line))
        return CURLE_WEIRD_SERVER_REPLY;
    const long status = info<long>(m_easy, CURLINFO_RESPONSE_CODE);
    if (line.isEmpty()) {
        m_isHeadWhole = status >= 200;
        m_isInHead = false;
    } else if (!m_isInHead && !m_isHeadWhole) {
        m_isInHead = true;
        m_isHttp1 = line.startsWith("HTTP/1");
        // What a server sends too much over HTTP/1.1 could be taken for another's answer.
        curl_easy_setopt(m_easy, CURLOPT_FORBID_REUSE, m_isHttp1 ? 1L : 0L);
        if (status == 101) // would make the connection speak something else
            return CURLE_WEIRD_SERVER_REPLY;
    }
    return CURLE_OK;
}

size_t HttpTransport::Exchange::takeBody(const char *bytes, size_t, size_t size, void *exchange)
{
    auto &self = *static_cast<Exchange *>(exchange);
    if (self.m_answer.body.size() + qint64(size) > self.m_limits.bodyBytes) {
        self.m_refusal = CURLE_FILESIZE_EXCEEDED;
        return 0;
    }
    self.m_answer.body.append(bytes, qsizetype(size));
    return size;
}

Clock::time_point HttpTransport::Exchange::checkTime()
{
    const auto now = Clock::now();
    const curl_off_t bytes = m_easy ? info<long>(m_easy, CURLINFO_HEADER_SIZE)
            + info<curl_off_t>(m_easy, CURLINFO_SIZE_DOWNLOAD_T)
                                    : 0;
    if (std::exchange(m_bytesSeen, bytes) != bytes)
        m_lastByte = now;
    if (now >= m_start + m_limits.total)
        fail(CURLE_OPERATION_TIMEDOUT, PlatformErrorText::totalTimeout());
    else if (now >= m_lastByte + m_limits.idle)
        fail(CURLE_OPERATION_TIMEDOUT, PlatformErrorText::network(CURLE_OPERATION_TIMEDOUT));
    else if (!m_easy && now >= m_start + m_limits.findingProxy)
        fail(CURLE_PROXY, PlatformErrorText::proxyUnknown());
    const auto end = std::min(m_start + m_limits.total, m_lastByte + m_limits.idle);
    return m_easy ? end : std::min(end, m_start + m_limits.findingProxy);
}

bool HttpTransport::Exchange::takeResult(CURLcode code)
{
    // A connection that was kept may have died meanwhile.
    const bool isDead = code == CURLE_SEND_ERROR || code == CURLE_RECV_ERROR
        || code == CURLE_GOT_NOTHING || code == CURLE_HTTP2;
    if (isDead && m_headBytes == 0 && info<long>(m_easy, CURLINFO_NUM_CONNECTS) == 0
        && !std::exchange(m_isRepeated, true)) {
        return true;
    }
    curl_header *length = nullptr;
    if (m_refusal != CURLE_OK)
        code = m_refusal;
    else if (code == CURLE_OK && !m_isHeadWhole)
        code = CURLE_GOT_NOTHING;
    else if (curl_easy_header(m_easy, "Content-Length", 0, CURLH_HEADER, -1, &length) == CURLHE_OK
             && length->amount > 1)
        code = CURLE_WEIRD_SERVER_REPLY; // one of them cuts the body
    const char *redirect = info<const char *>(m_easy, CURLINFO_REDIRECT_URL);
    if (code == CURLE_OK && redirect) {
        code = follow(redirect);
        if (code == CURLE_OK)
            return true;
    }
    if (code != CURLE_OK) {
        fail(code, failureText(code));
        return false;
    }
    m_answer.status = static_cast<int>(info<long>(m_easy, CURLINFO_RESPONSE_CODE));
    curl_header *header = nullptr;
    while ((header = curl_easy_nextheader(m_easy, CURLH_HEADER, -1, header)))
        m_answer.headers.emplaceBack(header->name, QByteArray(header->value).trimmed());
    m_hasEnded = true;
    m_promise.addResult(m_answer);
    m_promise.finish();
    return false;
}

/// Within the origin, and only where the question is repeated as it is.
CURLcode HttpTransport::Exchange::follow(const char *location)
{
    const QUrl url = QUrl::fromEncoded(location, QUrl::StrictMode);
    const long status = info<long>(m_easy, CURLINFO_RESPONSE_CODE);
    if ((status != 307 && status != 308) || !hasSameOrigin(m_url, url)
        || ++m_redirects > mostRedirects) {
        return CURLE_WEIRD_SERVER_REPLY;
    }
    m_url = url;
    m_answer = {};
    m_isHeadWhole = false;
    return curl_easy_setopt(m_easy, CURLOPT_URL, m_url.toEncoded(QUrl::RemoveFragment).constData());
}

QString HttpTransport::Exchange::failureText(CURLcode code) const
{
    const bool isCertificate = code == CURLE_PEER_FAILED_VERIFICATION;
    // A proxy only tunnels, so that what goes wrong before TLS stands is its fault.
    if (m_isProxied && code != CURLE_SSL_CONNECT_ERROR && !isCertificate
        && info<long>(m_easy, CURLINFO_NUM_CONNECTS) > 0
        && info<curl_off_t>(m_easy, CURLINFO_APPCONNECT_TIME_T) == 0) {
        return PlatformErrorText::network(CURLE_PROXY);
    }
    return PlatformErrorText::network(
        code, info<long>(m_easy, isCertificate ? CURLINFO_SSL_VERIFYRESULT : CURLINFO_OS_ERRNO));
}

void HttpTransport::Exchange::fail(int code, const QString &text)
{
    m_hasEnded = true;
    m_promise.setException(McpError(McpError::Domain::Network, code, text));
    m_promise.finish();
}

/// The thread, and what the exchanges share in it.
class HttpTransport::Line
{
public:
    explicit Line(const QUrl &url)
        : m_url(url)
        , m_thread([this] { run(); })
    { }

    void add(std::unique_ptr<Exchange> exchange);
    void stop();

private:
    using Exchanges = std::vector<std::unique_ptr<Exchange>>;

    void run();
    bool takeAdded();
    void begin(Exchange &exchange);
    void takeResults();
    /// Returns when the next one may be ended.
    Clock::time_point removeEnded();
    static void quit(Exchange &exchange);

    const QUrl m_url;
    const std::shared_ptr<Wakeable> m_wakeable = std::make_shared<Wakeable>();
    std::mutex m_mutex; ///< for the next two
    Exchanges m_added;
    bool m_isStopped = false;
    // The others are the thread's.
    CURLM *m_transfers = nullptr;
    CURLSH *m_share = nullptr; ///< cookies and sessions of TLS
    Exchanges m_exchanges;
    ProxyLookup m_proxy;
    bool m_isHttp1 = false; ///< the server, when it last answered
    std::thread m_thread;
};

void HttpTransport::Line::quit(Exchange &exchange)
{
    exchange.fail(CURLE_ABORTED_BY_CALLBACK, PlatformErrorText::applicationQuits());
}

void HttpTransport::Line::add(std::unique_ptr<Exchange> exchange)
{
    {
        const std::scoped_lock lock(m_mutex);
        if (m_isStopped)
            return quit(*exchange);
        m_added.push_back(std::move(exchange));
    }
    m_wakeable->wake();
}

void HttpTransport::Line::stop()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_isStopped = true;
    }
    m_wakeable->wake();
    if (m_thread.joinable())
        m_thread.join();
}

bool HttpTransport::Line::takeAdded()
{
    const std::scoped_lock lock(m_mutex);
    std::move(m_added.begin(), m_added.end(), std::back_inserter(m_exchanges));
    m_added.clear();
    return !m_isStopped;
}

void HttpTransport::Line::run()
{
    curl_global_init(CURL_GLOBAL_DEFAULT);
    m_share = curl_share_init();
    curl_share_setopt(m_share, CURLSHOPT_SHARE, CURL_LOCK_DATA_COOKIE);
    curl_share_setopt(m_share, CURLSHOPT_SHARE, CURL_LOCK_DATA_SSL_SESSION);
    m_transfers = curl_multi_init();
    m_wakeable->set(m_transfers);
    while (takeAdded()) {
        for (const auto &exchange : m_exchanges) {
            if (!exchange->easy())
                begin(*exchange);
        }
        int underWay = 0;
        curl_multi_perform(m_transfers, &underWay);
        takeResults();
        const auto wait =
            std::chrono::ceil<std::chrono::milliseconds>(removeEnded() - Clock::now());
        curl_multi_poll(m_transfers, nullptr, 0, int(wait.count()), nullptr);
    }
    for (const auto &exchange : m_exchanges) {
        curl_multi_remove_handle(m_transfers, exchange->easy());
        quit(*exchange);
    }
    m_exchanges.clear();
    m_wakeable->set(nullptr);
    curl_multi_cleanup(m_transfers);
    curl_share_cleanup(m_share);
}

void HttpTransport::Line::begin(Exchange &exchange)
{
    QNetworkProxy proxy(QNetworkProxy::NoProxy);
    if (!ServiceAddresses::isLoopback(m_url)) {
        if (!exchange.proxy.valid()) {
            // One that is not answered has no second one beside it.
            if (!m_proxy.valid() || isReady(m_proxy))
                m_proxy = lookUpProxy(m_url, m_wakeable);
            exchange.proxy = m_proxy;
        }
        if (!isReady(exchange.proxy))
            return;
        if (!exchange.proxy.get())
            return exchange.fail(CURLE_PROXY, PlatformErrorText::network(CURLE_PROXY));
        proxy = *exchange.proxy.get();
    }
    const bool waitsForHttp2 = m_url.scheme() == u"https" && !m_isHttp1;
    curl_multi_add_handle(m_transfers, exchange.prepare(proxy, m_share, waitsForHttp2));
}

void HttpTransport::Line::takeResults()
{
    int others = 0;
    while (const CURLMsg *message = curl_multi_info_read(m_transfers, &others)) {
        CURL *easy = message->easy_handle;
        const CURLcode code = message->data.result;
        auto *exchange = info<Exchange *>(easy, CURLINFO_PRIVATE);
        curl_multi_remove_handle(m_transfers, easy);
        if (exchange->takeResult(code))
            curl_multi_add_handle(m_transfers, easy);
        m_isHttp1 = exchange->isHttp1();
    }
}

Clock::time_point HttpTransport::Line::removeEnded()
{
    auto next = Clock::now() + 1h;
    for (const auto &exchange : m_exchanges) {
        if (!exchange->hasEnded())
            next = std::min(next, exchange->checkTime());
        if (exchange->hasEnded())
            curl_multi_remove_handle(m_transfers, exchange->easy());
    }
    std::erase_if(m_exchanges, [](const auto &exchange) { return exchange->hasEnded(); });
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
    QFuture<HttpAnswer> answer = exchange->answer();
    m_line->add(std::move(exchange));
    return answer;
}

void HttpTransport::stop() { m_line->stop(); }
