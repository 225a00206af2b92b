#pragma once

#include "sample_server/Tool.h"

namespace Sample {

/// A short guide to the city of an airport; only its code for a city without one.
QJsonObject cityGuide(const QJsonObject &arguments, const ToolContext &context);

} // namespace Sample
