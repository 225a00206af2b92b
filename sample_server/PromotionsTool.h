#pragma once

#include "sample_server/Tool.h"

namespace Sample {

/// What the airline currently advertises at an airport.
QJsonObject airlinePromotions(const QJsonObject &arguments, const ToolContext &context);

} // namespace Sample
