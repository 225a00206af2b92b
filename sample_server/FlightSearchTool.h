#pragma once

#include "sample_server/Tool.h"

namespace Sample {

/// The itineraries of a day between two airports; for a round trip with a return day also those
/// back.
QJsonObject searchFlights(const QJsonObject &arguments, const ToolContext &context);

} // namespace Sample
