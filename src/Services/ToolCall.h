#pragma once

#include "Models/JsonObject.h"

#include <QJsonObject>
#include <QString>

#include <functional>

/// A question to one tool of the server, and how its answer is read.
template<typename Record>
struct ToolCall
{
    QString name;
    QJsonObject arguments;
    /// A pure function, which may be called by any thread.
    std::function<Record(const JsonObject &)> reader;
};
