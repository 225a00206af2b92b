#include "Services/HttpExchange.h"

#include "Services/McpError.h"
#include "Services/PlatformErrorText.h"
#include "Services/ServiceAddresses.h"

#include <QHostAddress>
#include <QLocale>
#include <QNetworkCookie>
#include <QNetworkCookieJar>
#include <QSslCertificate>
#include <QSslError>
#include <QSslSocket>
#include <QTcpSocket>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// A host that cannot be reached by IPv4 is tried by IPv6 beside it, after this time or as soon as
/// the first attempt fails.
constexpr auto patience = 300ms;

bool isAddress(const QUrl &url) { return !QHostAddress(url.host()).isNull(); }

QNetworkProxy proxyFor(const QUrl &url)
{
    if (!ServiceAddresses::isLoopback(url)) {
        for (const QNetworkProxy &proxy :
             QNetworkProxyFactory::proxyForQuery(QNetworkProxyQuery(url))) {
            if (proxy.capabilities() & QNetworkProxy::TunnelingCapability)
                return proxy;
        }
    }
    return QNetworkProxy::NoProxy;
}

/// Whether one of the names for which the certificate was made is the host. Qt, which has verified
/// it before, also takes a common name for such a name, though others are there.
bool isMadeFor(const QSslCertificate &certificate, const QUrl &url)
{
    const auto names = certificate.subjectAlternativeNames();
    const QStringList addresses = names.values(QSsl::IpAddressEntry);
    const QStringList hosts = names.values(QSsl::DnsEntry);
    if (addresses.isEmpty() && hosts.isEmpty())
        return true;
    const QString host = url.host(QUrl::FullyEncoded);
    if (isAddress(url)) {
        return std::any_of(addresses.begin(), addresses.end(), [&url](const QString &entry) {
            return QHostAddress(entry) == QHostAddress(url.host());
        });
    }
    return std::any_of(hosts.begin(), hosts.end(), [&host](const QString &entry) {
        const bool isWildcard = entry.startsWith("*."_L1) && entry.count(u'.') > 1;
        const QString compared = isWildcard ? u'*' + host.mid(host.indexOf(u'.')) : host;
        return entry.compare(compared, Qt::CaseInsensitive) == 0;
    });
}

/// The languages that the user's system asks for, as servers are told.
QByteArray acceptedLanguages()
{
    const QLocale locale = QLocale::system();
    return locale.language() == QLocale::C ? "tr,*"_ba : locale.bcp47Name().toLatin1() + ",*";
}

QByteArray requestBytes(const HttpRequest &request, const QList<QNetworkCookie> &cookies)
{
    const QByteArray target =
        request.url.toEncoded(QUrl::RemoveScheme | QUrl::RemoveAuthority | QUrl::RemoveFragment);
    QByteArray bytes = "POST " + (target.startsWith('/') ? target : '/' + target) + " HTTP/1.1\r\n";
    const auto add = [&bytes](const QByteArray &name, const QByteArray &value) {
        bytes += name + ": " + value + "\r\n";
    };
    add("Host", request.url.authority(QUrl::FullyEncoded).toLatin1());
    add("Connection", "close");
    // What is not packed needs no unpacking, which a hostile server can make endless.
    add("Accept-Encoding", "identity");
    add("Accept-Language", acceptedLanguages());
    add("User-Agent", "Vantora/1.0");
    add("Content-Length", QByteArray::number(request.body.size()));
    QByteArrayList crumbs;
    for (const QNetworkCookie &cookie : cookies)
        crumbs.append(cookie.toRawForm(QNetworkCookie::NameAndValueOnly));
    if (!crumbs.isEmpty())
        add("Cookie", crumbs.join("; "));
    for (const auto &[name, value] : request.headers)
        add(name, value);
    return bytes + "\r\n" + request.body;
}

} // namespace

HttpExchange::HttpExchange(const HttpRequest &request, const HttpLimits &limits)
    : m_request(request)
    , m_limits(limits)
    , m_reader(limits)
{
    m_promise.start();
}

HttpExchange::~HttpExchange()
{
    abort(QAbstractSocket::OperationError, PlatformErrorText::applicationQuits());
}

void HttpExchange::start(QNetworkCookieJar *cookies)
{
    m_cookies = cookies;
    m_idleTimer.setSingleShot(true);
    m_totalTimer.setSingleShot(true);
    connect(&m_idleTimer, &QTimer::timeout, this, [this] {
        abort(QAbstractSocket::SocketTimeoutError, PlatformErrorText::idleTimeout());
    });
    connect(&m_totalTimer, &QTimer::timeout, this, [this] {
        abort(QAbstractSocket::SocketTimeoutError, PlatformErrorText::totalTimeout());
    });
    m_idleTimer.start(m_limits.idle);
    m_totalTimer.start(m_limits.total);

    m_proxy = proxyFor(m_request.url);
    if (m_proxy.type() != QNetworkProxy::NoProxy || isAddress(m_request.url)) {
        connectTo(QAbstractSocket::AnyIPProtocol);
        return;
    }
    m_canConnectOtherwise = true;
    QTimer::singleShot(patience, this, &HttpExchange::connectOtherwise);
    connectTo(QAbstractSocket::IPv4Protocol);
}

void HttpExchange::connectTo(QAbstractSocket::NetworkLayerProtocol protocol)
{
    const bool isSecure = m_request.url.scheme() == u"https";
    // Without need the TLS library is not even loaded.
    QTcpSocket *socket = isSecure ? new QSslSocket(this) : new QTcpSocket(this);
    m_attempts.append(socket);
    socket->setProxy(m_proxy);
    connect(socket, &QTcpSocket::connected, this, [this, socket] { noteConnection(socket); });
    connect(socket, &QTcpSocket::errorOccurred, this,
            [this, socket](QAbstractSocket::SocketError error) { noteError(socket, error); });
    socket->connectToHost(m_request.url.host(),
                          static_cast<quint16>(m_request.url.port(isSecure ? 443 : 80)),
                          QIODevice::ReadWrite, protocol);
}

void HttpExchange::connectOtherwise()
{
    if (!m_canConnectOtherwise || m_hasEnded)
        return;
    m_canConnectOtherwise = false;
    connectTo(QAbstractSocket::IPv6Protocol);
}

void HttpExchange::noteConnection(QTcpSocket *socket)
{
    if (m_socket || m_hasEnded)
        return;
    m_socket = socket;
    m_canConnectOtherwise = false;
    m_failure.reset(); // the other kind of address is none of this connection's
    m_attempts.removeOne(socket);
    for (QTcpSocket *attempt : std::exchange(m_attempts, {}))
        attempt->deleteLater();

    m_idleTimer.start();
    connect(socket, &QTcpSocket::readyRead, this, &HttpExchange::takeBytes);
    connect(socket, &QTcpSocket::bytesWritten, &m_idleTimer, qOverload<>(&QTimer::start));
    auto *secureSocket = qobject_cast<QSslSocket *>(socket);
    if (!secureSocket) {
        sendRequest();
        return;
    }
    connect(secureSocket, &QSslSocket::sslErrors, this, [this](const QList<QSslError> &errors) {
        m_certificateError = errors.value(0).errorString();
    });
    connect(secureSocket, &QSslSocket::encrypted, this, [this, secureSocket] {
        if (isMadeFor(secureSocket->peerCertificate(), m_request.url)) {
            sendRequest();
        } else {
            m_certificateError = QSslError(QSslError::HostNameMismatch).errorString();
            noteError(m_socket, QAbstractSocket::SslHandshakeFailedError);
        }
    });
    secureSocket->startClientEncryption();
}

void HttpExchange::noteError(QTcpSocket *socket, QAbstractSocket::SocketError error)
{
    if (m_hasEnded || (m_socket && socket != m_socket))
        return;
    if (socket == m_socket) {
        takeBytes();
        takeState(m_reader.takeEnd());
    } else {
        m_attempts.removeOne(socket);
        socket->deleteLater();
        // A host has addresses of one kind more often than of both.
        if (!m_failure || m_failure == QAbstractSocket::HostNotFoundError)
            m_failure = error;
        connectOtherwise();
    }
    if (m_attempts.isEmpty()) {
        const auto failure = m_failure.value_or(error);
        abort(failure, PlatformErrorText::network(failure, m_certificateError));
    }
}

void HttpExchange::sendRequest()
{
    m_socket->write(requestBytes(m_request, m_cookies->cookiesForUrl(m_request.url)));
}

void HttpExchange::takeBytes()
{
    m_idleTimer.start();
    constexpr qint64 piece = 64 * 1024;
    while (!m_hasEnded) {
        const QByteArray bytes = m_socket->read(piece);
        if (bytes.isEmpty())
            return;
        takeState(m_reader.take(bytes));
    }
}

void HttpExchange::takeState(HttpAnswerReader::State state)
{
    using State = HttpAnswerReader::State;
    if (m_hasEnded || state == State::unfinished)
        return;
    if (state != State::whole) {
        abort(QAbstractSocket::OperationError,
              state == State::tooLarge ? PlatformErrorText::tooLarge()
                                       : PlatformErrorText::badServerResponse());
        return;
    }
    for (const auto &[name, value] : m_reader.answer().headers) {
        if (name.compare("Set-Cookie", Qt::CaseInsensitive) == 0)
            m_cookies->setCookiesFromUrl(QNetworkCookie::parseCookies(value), m_request.url);
    }
    m_promise.addResult(m_reader.answer());
    end();
}

void HttpExchange::abort(int code, const QString &localizedDescription)
{
    if (m_hasEnded)
        return;
    m_promise.setException(McpError(McpError::Domain::Network, code, localizedDescription));
    end();
}

void HttpExchange::end()
{
    m_hasEnded = true;
    m_promise.finish();
    // Nothing that still arrives is read, or does any work.
    for (QTcpSocket *socket : findChildren<QTcpSocket *>(Qt::FindDirectChildrenOnly)) {
        socket->disconnect(this);
        socket->abort();
    }
    deleteLater();
}
