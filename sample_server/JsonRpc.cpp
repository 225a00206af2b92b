#include "sample_server/JsonRpc.h"

#include <cmath>

namespace Sample::JsonRpc {

using namespace Qt::StringLiterals;

namespace {

bool isId(const QJsonValue &value)
{
    return value.isString()
        || (value.isDouble() && std::trunc(value.toDouble()) == value.toDouble());
}

} // namespace

Kind kindOf(const QJsonValue &message)
{
    const QJsonObject object = message.toObject();
    if (!message.isObject() || object.value("jsonrpc"_L1) != QJsonValue(u"2.0"_s))
        return Kind::Invalid;
    const QJsonValue id = object.value("id"_L1);
    if (!object.contains("method"_L1)) {
        const bool answers = object.contains("result"_L1) != object.contains("error"_L1);
        return answers && isId(id) ? Kind::Response : Kind::Invalid;
    }
    if (!object.value("method"_L1).isString())
        return Kind::Invalid;
    if (id.isUndefined())
        return Kind::Notification;
    return isId(id) ? Kind::Request : Kind::Invalid;
}

QJsonValue idOf(const QJsonValue &message)
{
    const QJsonValue id = message.toObject().value("id"_L1);
    return isId(id) ? id : QJsonValue(QJsonValue::Null);
}

QJsonObject result(const QJsonValue &id, const QJsonObject &result)
{
    return { { u"jsonrpc"_s, u"2.0"_s }, { u"id"_s, id }, { u"result"_s, result } };
}

QJsonObject error(const QJsonValue &id, const Error &error)
{
    const QJsonObject body { { u"code"_s, int(error.code) }, { u"message"_s, error.message } };
    return { { u"jsonrpc"_s, u"2.0"_s }, { u"id"_s, id }, { u"error"_s, body } };
}

} // namespace Sample::JsonRpc
