#pragma once

#include <QHttpServerResponse>
#include <QJsonDocument>
#include <QJsonObject>

namespace Sample {

/// An HTTP answer before it meets its socket.
struct HttpAnswer
{
    using Status = QHttpServerResponder::StatusCode;

    Status status = Status::Ok;
    QByteArray body; ///< JSON; empty for an answer without a body
    QList<QPair<QByteArray, QByteArray>> headers;
};

} // namespace Sample
