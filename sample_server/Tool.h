#pragma once

#include "sample_server/JsonRpc.h"

#include <QDateTime>
#include <QJsonObject>
#include <QString>

#include <functional>

namespace Sample {

/// What a call may know besides its arguments.
struct ToolContext
{
    QDateTime now;
    QString webSite; ///< base of booking links, without a trailing slash

    QDate today() const { return now.date(); }
};

/// One tool of the server. `run` gets arguments that satisfy the input schema, returns what the
/// output schema describes, and throws JsonRpc::Error when it refuses them all the same. It is
/// called from several threads at once.
struct Tool
{
    QString name;
    QJsonObject description; ///< as "tools/list" shows it, schemas included
    std::function<QJsonObject(const QJsonObject &arguments, const ToolContext &context)> run;

    QJsonObject inputSchema() const
    {
        return description.value(QLatin1StringView("inputSchema")).toObject();
    }
    QJsonObject outputSchema() const
    {
        return description.value(QLatin1StringView("outputSchema")).toObject();
    }
};

} // namespace Sample
