#include "sample_server/RequestCheck.h"

#include "sample_server/JsonRpc.h"

#include <QHostAddress>
#include <QUrl>

#include <algorithm>

namespace Sample::RequestCheck {

using namespace Qt::StringLiterals;
using Status = HttpAnswer::Status;
using Method = QHttpServerRequest::Method;

namespace {

QByteArray mediaType(const QByteArray &header)
{
    return header.split(';').constFirst().trimmed().toLower();
}

/// Whether an Accept header admits JSON. A range with the quality zero is an exclusion.
bool admitsJson(const QByteArray &accept)
{
    if (accept.trimmed().isEmpty())
        return true;
    const QList<QByteArray> ranges = accept.split(',');
    return std::any_of(ranges.cbegin(), ranges.cend(), [](const QByteArray &range) {
        const QByteArray type = mediaType(range);
        if (type != "application/json" && type != "application/*" && type != "*/*")
            return false;
        const QList<QByteArray> parameters = range.split(';').mid(1);
        return std::none_of(parameters.cbegin(), parameters.cend(), [](const QByteArray &text) {
            const QByteArray parameter = text.trimmed().toLower();
            bool isNumber = false;
            return parameter.startsWith("q=") && parameter.mid(2).toDouble(&isNumber) == 0
                && isNumber;
        });
    });
}

HttpAnswer invalidRequest(Status status, const QString &message)
{
    return errorAnswer(status, JsonRpc::InvalidRequest, message);
}

} // namespace

HttpAnswer errorAnswer(Status status, int code, const QString &message, const QJsonValue &id)
{
    const QJsonObject error =
        JsonRpc::error(id, { static_cast<JsonRpc::ErrorCode>(code), message });
    return { status, QJsonDocument(error).toJson(QJsonDocument::Compact), {} };
}

bool isLoopbackOrigin(const QByteArray &origin)
{
    const QUrl url(QString::fromLatin1(origin), QUrl::StrictMode);
    if (!url.isValid() || (url.scheme() != "http"_L1 && url.scheme() != "https"_L1))
        return false;
    return url.host() == "localhost"_L1 || QHostAddress(url.host()).isLoopback();
}

std::optional<HttpAnswer> refusal(const QHttpServerRequest &request)
{
    const QByteArray origin = request.value("origin");
    if (!origin.isEmpty() && !isLoopbackOrigin(origin))
        return invalidRequest(Status::Forbidden,
                              u"Bu kaynaktan (Origin) gelen istekler kabul edilmiyor."_s);
    if (request.method() != Method::Post && request.method() != Method::Delete) {
        HttpAnswer answer = invalidRequest(Status::MethodNotAllowed,
                                           u"Bu adreste yalnızca POST ve DELETE kullanılabilir."_s);
        answer.headers.emplaceBack("Allow", "POST, DELETE");
        if (request.method() == Method::Head)
            answer.body.clear();
        return answer;
    }
    if (request.method() == Method::Delete)
        return std::nullopt;
    if (mediaType(request.value("content-type")) != "application/json")
        return invalidRequest(Status::UnsupportedMediaType,
                              u"İsteğin Content-Type başlığı application/json olmalı."_s);
    if (!admitsJson(request.value("accept")))
        return invalidRequest(Status::NotAcceptable,
                              u"İsteğin Accept başlığı application/json türüne izin vermeli."_s);
    if (request.body().size() > largestBody)
        return invalidRequest(Status::PayloadTooLarge,
                              u"İstek çok büyük: en çok %1 bayt olabilir."_s.arg(largestBody));
    return std::nullopt;
}

} // namespace Sample::RequestCheck
