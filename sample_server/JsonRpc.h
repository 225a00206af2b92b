#pragma once

#include <QJsonObject>
#include <QString>

/// The envelopes of JSON-RPC 2.0 as the Model Context Protocol uses them.
namespace Sample::JsonRpc {

enum ErrorCode {
    ParseError = -32700,
    InvalidRequest = -32600,
    MethodNotFound = -32601,
    InvalidParams = -32602,
    /// Of this server: no session was named.
    SessionMissing = -32000,
    /// Of this server: the named session does not exist any more.
    SessionUnknown = -32001,
};

/// A failure that becomes the "error" member of an answer. The message is what a traveller reads.
struct Error
{
    ErrorCode code = InvalidParams;
    QString message;
};

enum class Kind {
    Request, ///< expects an answer
    Notification,
    Response, ///< to a request of the server's
    Invalid,
};
Kind kindOf(const QJsonValue &message);

/// The request's id, or null when it has none that an answer may carry.
QJsonValue idOf(const QJsonValue &message);

QJsonObject result(const QJsonValue &id, const QJsonObject &result);
QJsonObject error(const QJsonValue &id, const Error &error);

} // namespace Sample::JsonRpc
