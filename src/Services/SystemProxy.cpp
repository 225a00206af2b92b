#include "Services/SystemProxy.h"

#include <QNetworkProxy>
#include <QPromise>

#include <cstdio>
#include <cstdlib>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

QByteArray address(const QNetworkProxy &proxy)
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

} // namespace

namespace SystemProxy {

QFuture<QByteArray> lookUp(const QUrl &url, const std::function<void()> &whenKnown)
{
    QPromise<QByteArray> promise;
    promise.start();
    QFuture<QByteArray> lookup = promise.future();
    std::thread([promise = std::move(promise), url, whenKnown]() mutable {
        const auto proxies = QNetworkProxyFactory::proxyForQuery(QNetworkProxyQuery(url));
        for (const QNetworkProxy &proxy : proxies) {
            if (proxy.capabilities() & QNetworkProxy::TunnelingCapability) {
                promise.addResult(address(proxy));
                break;
            }
        }
        promise.finish();
        whenKnown();
    }).detach();
    return lookup;
}

QFuture<QByteArray> none()
{
    QPromise<QByteArray> promise;
    promise.start();
    promise.addResult(QByteArray());
    promise.finish();
    return promise.future();
}

void abandon(const QFuture<QByteArray> &lookup)
{
    static QFuture<QByteArray> unanswered;
    if (lookup.isFinished())
        return;
    unanswered = lookup;
    // Qt's library of proxies would wait for its answer at the end of the process.
    std::atexit([] {
        if (!unanswered.isFinished()) {
            std::fflush(nullptr);
            std::_Exit(EXIT_SUCCESS);
        }
    });
}

} // namespace SystemProxy
