#pragma once

#include <QString>

#include <optional>

/// The hours and minutes of a date-time text, as written there: "2025-03-01T08:30:00" gives
/// "08:30". Absent for a text without a "T", or without hours and minutes behind it.
std::optional<QString> formatTimeString(const std::optional<QString> &value);
