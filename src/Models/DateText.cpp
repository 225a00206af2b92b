#include "Models/DateText.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

QString inTurkish(const QString &day, const QString &pattern)
{
    const auto parsed = DateText::parseDay(day);
    const QLocale turkish(QLocale::Turkish, QLocale::Turkey);
    return parsed ? turkish.toString(parsed->date(), pattern) : QString();
}

} // namespace

namespace DateText {

QString day(const QDateTime &moment)
{
    return moment.toLocalTime().date().toString(u"yyyy-MM-dd"_s);
}

std::optional<QDateTime> parseDay(const QString &text)
{
    const QDate date = QDate::fromString(text, u"yyyy-MM-dd"_s);
    // startOfDay() is the first moment of the day: some zones skip midnight once a year.
    return date.isValid() ? std::optional(date.startOfDay()) : std::nullopt;
}

QString shortDate(const QString &day) { return inTurkish(day, u"d MMM"_s); }
QString shortWeekday(const QString &day) { return inTurkish(day, u"ddd"_s); }
QString weekday(const QString &day) { return inTurkish(day, u"dddd"_s); }

} // namespace DateText
