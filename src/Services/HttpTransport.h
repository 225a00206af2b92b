#pragma once

#include <QByteArray>
#include <QFuture>
#include <QMap>
#include <QUrl>

#include <chrono>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

/// Values by name; the names of an answer's are in lower case.
using HttpHeaders = QMap<QByteArray, QByteArray>;

/// Any HTTP answer, whatever its status.
struct HttpAnswer
{
    int status = 0;
    HttpHeaders headers;
    QByteArray body; ///< unpacked
};

/// When a request is given up. The sizes bound what one answer may cost in memory: an answer with
/// 25,000 flights has about 10 MB, and a head rarely 4 KiB.
struct HttpLimits
{
    std::chrono::milliseconds idle = std::chrono::seconds(30); ///< without a byte
    std::chrono::milliseconds total = std::chrono::seconds(60);
    /// Until a connection stands. The first of several addresses has half of it.
    std::chrono::milliseconds connecting = std::chrono::seconds(15);
    std::chrono::milliseconds findingProxy = std::chrono::seconds(5);
    qint64 bodyBytes = 12 * 1024 * 1024; ///< unpacked
    qint64 headBytes = 256 * 1024; ///< of status lines, headers and trailers, early hints included
    int headLines = 1000;
};

/// How requests are made. Tests give names and certificates of their own.
struct HttpSettings
{
    HttpLimits limits = {};
    /// "host:port:address,address", for hosts that are not looked up, as CURLOPT_RESOLVE has it.
    QByteArrayList addresses = {};
    /// "host:port:other host:other port", for connections elsewhere, as CURLOPT_CONNECT_TO has it.
    QByteArrayList otherHosts = {};
    /// Certificates in PEM; those of the system when empty.
    QByteArray authorities = {};
};

class HttpExchange;

/// Posts to one address by libcurl, on a thread of its own: whatever a server sends, the thread
/// that asks is not held up. Over HTTP/2 the requests share one connection, which is kept; over
/// HTTP/1.1 each has a connection of its own. Cookies, by which the front of a server may know
/// which of its machines a session lives on, are kept as long as the object. One thread uses it.
class HttpTransport
{
public:
    HttpTransport(const QUrl &url, const HttpSettings &settings);
    ~HttpTransport();
    Q_DISABLE_COPY_MOVE(HttpTransport)

    /// Ends exactly once, with an answer or with McpError of the domain Network.
    QFuture<HttpAnswer> post(const HttpHeaders &headers, const QByteArray &body);
    /// Ends every exchange before it returns. Later ones end at once.
    void stop();

private:
    void run();
    /// False when there is nothing more to do.
    bool takeAdded();
    void takeResults();
    void removeEnded();

    const QUrl m_url;
    const HttpSettings m_settings;
    QFuture<QByteArray> m_proxy; ///< the look-up that was begun last
    const std::shared_ptr<void> m_share; ///< libcurl's cookies and sessions of TLS
    const std::shared_ptr<void> m_transfers; ///< libcurl's connections and what goes over them
    std::mutex m_mutex; ///< for the next two
    std::vector<std::unique_ptr<HttpExchange>> m_added;
    bool m_isStopped = false;
    std::vector<std::unique_ptr<HttpExchange>> m_exchanges; ///< the thread's, as is the next
    bool m_isHttp1 = false; ///< what the server last spoke
    std::thread m_thread;
};
