#pragma once

#include <QJsonDocument>
#include <QJsonObject>

inline QJsonObject parsed(const QByteArray &json) { return QJsonDocument::fromJson(json).object(); }
