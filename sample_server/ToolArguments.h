#pragma once

#include "sample_server/AirportGeography.h"

#include <QDate>
#include <QJsonObject>

/// Reads arguments whose form the schema has checked, and refuses those whose meaning is wrong.
/// All throw RpcError with what a traveller may read.
namespace Sample {

const AirportSite &airportArgument(const QJsonObject &arguments, QLatin1StringView key);

/// Refuses a journey that ends where it starts.
void requireDifferent(const AirportSite &origin, const AirportSite &destination);

/// Invalid when the argument is absent.
QDate dateArgument(const QJsonObject &arguments, QLatin1StringView key);

/// "15 Mart 2027"
QString turkishDate(QDate date);

} // namespace Sample
