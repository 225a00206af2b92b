#pragma once

#include "sample_server/HttpAnswer.h"

#include <QHttpServerRequest>

#include <optional>

/// What the transport demands of a request before its messages are looked at.
namespace Sample::RequestCheck {

/// Larger bodies are refused.
constexpr qsizetype largestBody = 1 << 20;

/// The answer to a request that is refused for its origin, method or headers; absent when it may
/// be served.
std::optional<HttpAnswer> refusal(const QHttpServerRequest &request);

/// A refusal with a JSON-RPC error as its body, for clients that show the message.
HttpAnswer errorAnswer(HttpAnswer::Status status, int code, const QString &message,
                       const QJsonValue &id = QJsonValue::Null);

/// Whether a web page of this origin may talk to the server: only pages of this machine. Browsers
/// send the header by themselves, other programs have no reason to.
bool isLoopbackOrigin(const QByteArray &origin);

} // namespace Sample::RequestCheck
