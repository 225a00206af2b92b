#pragma once

#include "sample_server/Tool.h"

namespace Sample {

/// The lowest fare of each day around a departure day, with one best day.
QJsonObject findPriceCalendar(const QJsonObject &arguments, const ToolContext &context);

} // namespace Sample
