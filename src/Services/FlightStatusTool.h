#pragma once

#include "Models/FlightStatusResult.h"
#include "Services/ToolCall.h"

/// The tool "flight-status".
namespace FlightStatusTool {

/// An absent or empty `date` is not sent.
ToolCall<FlightStatusResult> call(const QString &flightNumber, const std::optional<QString> &date);

/// A complete record from a reply of any shape: what is missing is filled with sample values, so
/// that a call which returned always has something to show.
FlightStatusResult parseFlightStatus(const JsonObject &result, const QString &requestedNumber,
                                     const std::optional<QString> &requestedDate);

} // namespace FlightStatusTool
