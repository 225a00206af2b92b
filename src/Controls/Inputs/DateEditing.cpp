#include "Controls/Inputs/DateEditing.h"

#include <QFontMetricsF>
#include <QHash>
#include <QLocale>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

QString inTurkish(const QDate &date, const QString &pattern)
{
    return QLocale(QLocale::Turkish, QLocale::Turkey).toString(date, pattern);
}

QString full(const QDate &date) { return inTurkish(date, u"d MMMM yyyy dddd"_s); }

QDateTime onDate(const QDateTime &moment, const QDate &date)
{
    if (date == moment.date())
        return moment;
    const QDateTime moved(date, moment.time());
    return moved.isValid() && moved.date() == date ? moved : date.startOfDay();
}

QDate dayAfterKey(const QDate &day, int key)
{
    switch (key) {
    case Qt::Key_Left:
        return day.addDays(-1);
    case Qt::Key_Right:
        return day.addDays(1);
    case Qt::Key_Up:
        return day.addDays(-7);
    case Qt::Key_Down:
        return day.addDays(7);
    case Qt::Key_PageUp:
        return day.addMonths(-1);
    case Qt::Key_PageDown:
        return day.addMonths(1);
    case Qt::Key_Home:
        return QDate(day.year(), day.month(), 1);
    case Qt::Key_End:
        return QDate(day.year(), day.month(), day.daysInMonth());
    default:
        return day;
    }
}

QDate firstInGrid(const QDate &day)
{
    const QDate first(day.year(), day.month(), 1);
    return first.addDays(first.dayOfWeek() == 1 ? -7 : 1 - first.dayOfWeek());
}

} // namespace

QDateTime DateEditing::addDays(const QDateTime &moment, int days) const
{
    return onDate(moment, moment.date().addDays(days));
}

QDateTime DateEditing::addMonths(const QDateTime &moment, int months) const
{
    return onDate(moment, moment.date().addMonths(months));
}

QDateTime DateEditing::moved(const QDateTime &moment, int key) const
{
    return onDate(moment, dayAfterKey(moment.date(), key));
}

bool DateEditing::isSameDay(const QDateTime &moment, const QDateTime &other) const
{
    return moment.date() == other.date();
}

bool DateEditing::isSameMonth(const QDateTime &moment, const QDateTime &other) const
{
    return firstInGrid(moment.date()) == firstInGrid(other.date());
}

bool DateEditing::isEarlier(const QDateTime &moment, const QDateTime &other) const
{
    return other.isValid() && moment.date() < other.date();
}

int DateEditing::gridRow(const QDateTime &moment) const
{
    return static_cast<int>(firstInGrid(moment.date()).daysTo(moment.date()));
}

QDateTime DateEditing::dayInGrid(const QDateTime &moment, int row) const
{
    return onDate(moment, firstInGrid(moment.date()).addDays(row));
}

QString DateEditing::fullText(const QDateTime &moment) const { return full(moment.date()); }

QString DateEditing::fittingText(const QDateTime &moment, const QFont &font, qreal width) const
{
    const QFontMetricsF metrics(font);
    const QDate date = moment.date();
    for (const QString &text : { full(date), inTurkish(date, u"d MMM yyyy ddd"_s) }) {
        if (std::ceil(metrics.horizontalAdvance(text)) <= width)
            return text;
    }
    return inTurkish(date, u"d MMM"_s);
}

qreal DateEditing::widestFullText(const QFont &font) const
{
    static QHash<QFont, qreal> known;
    if (const auto found = known.constFind(font); found != known.constEnd())
        return *found;
    const QFontMetricsF metrics(font);
    const auto width = [&metrics](const QDate &date, const QString &pattern) {
        return metrics.horizontalAdvance(inTurkish(date, pattern));
    };
    qreal widestDay = 0;
    qreal widestMonth = 0;
    // Seven weekdays, each with two digits.
    for (int day = 20; day <= 26; ++day)
        widestDay = std::max(widestDay, width(QDate(2026, 1, day), u"d  yyyy dddd"_s));
    for (int month = 1; month <= 12; ++month)
        widestMonth = std::max(widestMonth, width(QDate(2026, month, 1), u"MMMM "_s));
    return known[font] = std::ceil(widestDay + widestMonth) + 2;
}

QString DateEditing::monthText(const QDateTime &moment) const
{
    return inTurkish(moment.date(), u"MMMM yyyy"_s);
}
