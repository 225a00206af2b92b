#include "Services/HttpExchange.h"

#include "Services/McpError.h"
#include "Services/PlatformErrorText.h"

#include <QLocale>

#include <netinet/in.h>
#include <netinet/tcp.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

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
int prepareSocket(void *, [[maybe_unused]] curl_socket_t socket, curlsocktype)
{
#ifdef TCP_USER_TIMEOUT
    constexpr unsigned int milliseconds = 10'000;
    setsockopt(socket, IPPROTO_TCP, TCP_USER_TIMEOUT, &milliseconds, sizeof milliseconds);
#endif
    return CURL_SOCKOPT_OK;
}

} // namespace

HttpExchange::HttpExchange(const QUrl &url, const HttpSettings &settings,
                           const QFuture<QByteArray> &proxy, const HttpHeaders &headers,
                           const QByteArray &body)
    : m_url(url)
    , m_settings(settings)
    , m_proxy(proxy)
    , m_headers(headers)
    , m_body(body)
{
    m_promise.start();
}

bool HttpExchange::isHttp1() const
{
    const long version = info<long>(CURLINFO_HTTP_VERSION);
    return version == CURL_HTTP_VERSION_1_0 || version == CURL_HTTP_VERSION_1_1;
}

bool HttpExchange::prepare(CURLSH *share, bool waitsForHttp2)
{
    if (m_easy || !m_proxy.isFinished())
        return false;
    if (m_proxy.resultCount() == 0) {
        fail(CURLE_PROXY, PlatformErrorText::network(CURLE_PROXY));
        return false;
    }
    m_easy = curl_easy_init();
    const auto set = [this](CURLoption option, auto value) {
        if (curl_easy_setopt(m_easy, option, value) != CURLE_OK)
            qWarning("libcurl does not take option %d.", option);
    };
    const auto setList = [this, set](CURLoption option, const QByteArrayList &texts) {
        curl_slist *list = nullptr;
        for (const QByteArray &text : texts)
            list = curl_slist_append(list, text.constData());
        m_lists.emplace_back(list, &curl_slist_free_all);
        set(option, list);
    };
    QByteArrayList headers { "Accept-Language: " + languages() };
    for (auto header = m_headers.begin(); header != m_headers.end(); ++header)
        headers.append(header.key() + ": " + header.value());
    set(CURLOPT_PRIVATE, this);
    set(CURLOPT_SHARE, share);
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_QUICK_EXIT, 1L); // does not wait for a name look-up that hangs
    set(CURLOPT_URL, m_url.toEncoded(QUrl::RemoveFragment).constData());
    setList(CURLOPT_RESOLVE, m_settings.addresses);
    setList(CURLOPT_CONNECT_TO, m_settings.otherHosts);
    set(CURLOPT_PROXY, m_proxy.result().constData());
    set(CURLOPT_HTTPPROXYTUNNEL, 1L);
    set(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    set(CURLOPT_PIPEWAIT, waitsForHttp2 ? 1L : 0L);
    set(CURLOPT_SSLVERSION, CURL_SSLVERSION_TLSv1_2);
    set(CURLOPT_CONNECTTIMEOUT_MS, long(m_limits.connecting.count()));
    set(CURLOPT_SOCKOPTFUNCTION, &prepareSocket);
    set(CURLOPT_POSTFIELDSIZE_LARGE, curl_off_t(m_body.size()));
    set(CURLOPT_POSTFIELDS, m_body.constData());
    setList(CURLOPT_HTTPHEADER, headers);
    set(CURLOPT_USERAGENT, "Vantora/1.0");
    set(CURLOPT_ACCEPT_ENCODING, ""); // whatever libcurl can unpack
    set(CURLOPT_COOKIEFILE, ""); // keeps cookies, and reads none
    set(CURLOPT_MAXFILESIZE_LARGE, curl_off_t(m_limits.bodyBytes));
    set(CURLOPT_HEADERFUNCTION, &HttpExchange::pass<&HttpExchange::takeHeadLine>);
    set(CURLOPT_HEADERDATA, this);
    set(CURLOPT_WRITEFUNCTION, &HttpExchange::pass<&HttpExchange::takeBody>);
    set(CURLOPT_WRITEDATA, this);
    if (!m_settings.authorities.isEmpty()) {
        curl_blob blob { const_cast<char *>(m_settings.authorities.data()),
                         size_t(m_settings.authorities.size()), CURL_BLOB_COPY };
        set(CURLOPT_CAINFO_BLOB, &blob);
    }
    return true;
}

CURLcode HttpExchange::takeHeadLine(QByteArrayView line)
{
    m_headBytes += line.size();
    if (m_headBytes > m_limits.headBytes || ++m_headLines > m_limits.headLines)
        return CURLE_FILESIZE_EXCEEDED;
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    // 101 would make the connection speak something else.
    if (hasControlCharacter(line) || status() == 101)
        return CURLE_WEIRD_SERVER_REPLY;
    if (line.isEmpty() && status() >= 200)
        m_isHeadWhole = true;
    // What a server sends too much over HTTP/1.1 could be taken for another's answer.
    return curl_easy_setopt(m_easy, CURLOPT_FORBID_REUSE, isHttp1() ? 1L : 0L);
}

CURLcode HttpExchange::takeBody(QByteArrayView bytes)
{
    if (m_answer.body.size() + bytes.size() > m_limits.bodyBytes)
        return CURLE_FILESIZE_EXCEEDED;
    m_answer.body.append(bytes);
    return CURLE_OK;
}

bool HttpExchange::takeResult(CURLcode code)
{
    curl_header *header = nullptr;
    if (m_refusal != CURLE_OK)
        code = m_refusal;
    else if (code == CURLE_OK && !m_isHeadWhole)
        code = CURLE_GOT_NOTHING;
    else if (curl_easy_header(m_easy, "Content-Length", 0, CURLH_HEADER, -1, &header) == CURLHE_OK
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
    while ((header = curl_easy_nextheader(m_easy, CURLH_HEADER, -1, header)))
        m_answer.headers.insert(QByteArray(header->name).toLower(),
                                QByteArray(header->value).trimmed());
    m_hasEnded = true;
    m_promise.addResult(m_answer);
    m_promise.finish();
    return false;
}

/// Only within the origin, and only where the question is asked again as it is.
CURLcode HttpExchange::follow(const char *location)
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
    return curl_easy_setopt(m_easy, CURLOPT_URL, url.toEncoded(QUrl::RemoveFragment).constData());
}

void HttpExchange::checkTime()
{
    const auto now = Clock::now();
    const curl_off_t bytes =
        info<long>(CURLINFO_HEADER_SIZE) + info<curl_off_t>(CURLINFO_SIZE_DOWNLOAD_T);
    if (std::exchange(m_bytesSeen, bytes) != bytes)
        m_lastByte = now;
    if (m_hasEnded)
        return;
    if (now >= m_start + m_limits.total)
        fail(CURLE_OPERATION_TIMEDOUT, PlatformErrorText::totalTimeout());
    else if (now >= m_lastByte + m_limits.idle)
        fail(CURLE_OPERATION_TIMEDOUT, PlatformErrorText::network(CURLE_OPERATION_TIMEDOUT));
    else if (!m_easy && now >= m_start + m_limits.findingProxy)
        fail(CURLE_PROXY, PlatformErrorText::proxyUnknown());
}

void HttpExchange::quit()
{
    fail(CURLE_ABORTED_BY_CALLBACK, PlatformErrorText::applicationQuits());
}

void HttpExchange::fail(int code, const QString &text)
{
    m_hasEnded = true;
    m_promise.setException(McpError(McpError::Domain::Network, code, text));
    m_promise.finish();
}

QString HttpExchange::failureText(CURLcode code) const
{
    const bool isCertificate = code == CURLE_PEER_FAILED_VERIFICATION;
    // A proxy only tunnels, so that what goes wrong before TLS stands is its fault.
    if (!m_proxy.result().isEmpty() && m_headBytes == 0
        && info<curl_off_t>(CURLINFO_APPCONNECT_TIME_T) == 0 && code != CURLE_SSL_CONNECT_ERROR
        && code != CURLE_HTTP2_STREAM && !isCertificate) {
        return PlatformErrorText::network(CURLE_PROXY);
    }
    return PlatformErrorText::network(
        code, info<long>(isCertificate ? CURLINFO_SSL_VERIFYRESULT : CURLINFO_OS_ERRNO));
}
