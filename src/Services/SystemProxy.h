#pragma once

#include <QByteArray>
#include <QFuture>
#include <QUrl>

#include <functional>

/// The proxy that the user's system asks for. The system may fetch a script to find out, and block
/// for as long as that takes.
namespace SystemProxy {

/// Asks on a thread of its own, which calls `whenKnown` at the end. The result is the address of
/// the proxy for CURLOPT_PROXY, empty for none; without a result the system asks for one that
/// cannot tunnel.
QFuture<QByteArray> lookUp(const QUrl &url, const std::function<void()> &whenKnown);

/// A look-up that has ended, with no proxy.
QFuture<QByteArray> none();

/// To be called when nobody waits for a look-up any longer. The process then ends without it.
void abandon(const QFuture<QByteArray> &lookup);

} // namespace SystemProxy
