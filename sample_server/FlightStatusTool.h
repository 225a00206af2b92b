#pragma once

#include "sample_server/Tool.h"

namespace Sample {

/// The state of one flight of a day by the clock. README.md lists the numbers with a fixed state.
QJsonObject flightStatus(const QJsonObject &arguments, const ToolContext &context);

} // namespace Sample
