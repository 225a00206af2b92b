#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

#include <optional>

/// Days as text: "yyyy-MM-dd" between the parts of the program and the server, Turkish for people.
namespace DateText {

/// "yyyy-MM-dd" in the user's time zone.
QString day(const QDateTime &moment);
/// Midnight of the day in the user's time zone; absent when the text is not a "yyyy-MM-dd" date.
std::optional<QDateTime> parseDay(const QString &text);

/// "5 Ara": day and abbreviated Turkish month. Empty when `day` is not a "yyyy-MM-dd" date.
QString shortDate(const QString &day);
/// "Cmt": abbreviated Turkish weekday. Empty when `day` is not a "yyyy-MM-dd" date.
QString shortWeekday(const QString &day);
/// "Cumartesi": Turkish weekday. Empty when `day` is not a "yyyy-MM-dd" date.
QString weekday(const QString &day);

} // namespace DateText
