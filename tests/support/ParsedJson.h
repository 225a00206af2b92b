#pragma once

#include "Models/JsonObject.h"

#include <QJsonDocument>
#include <QJsonObject>

inline QJsonObject parsed(const QByteArray &json) { return QJsonDocument::fromJson(json).object(); }

/// The same for those who read it as an answer.
inline JsonObject received(const QByteArray &json) { return JsonObject(parsed(json)); }
