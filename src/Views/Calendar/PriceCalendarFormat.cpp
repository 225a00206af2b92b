#include "Views/Calendar/PriceCalendarFormat.h"

#include "Models/DateText.h"
#include "Models/MoneyText.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double highestBar = 100;
constexpr double lowestShare = 0.18; // a bar is never lower, so that it can be hit
constexpr double barWithoutScale = 20;

} // namespace

QString PriceCalendarFormat::formatDateShort(const QString &date) const
{
    return DateText::shortDate(date);
}

QString PriceCalendarFormat::formatDayOfWeek(const QString &date, bool full) const
{
    return full ? DateText::weekday(date) : DateText::shortWeekday(date);
}

QString PriceCalendarFormat::wholeAmount(double amount) const { return MoneyText::whole(amount); }

QString PriceCalendarFormat::widestAmount(double highest) const
{
    QString amount = wholeAmount(highest);
    std::replace_if(
        amount.begin(), amount.end(), [](QChar character) { return character.isDigit(); }, u'8');
    return amount;
}

double PriceCalendarFormat::dayWidth(double room, int count, double narrowest, double widest) const
{
    return std::floor(
        std::clamp(room / std::max(count, 1), narrowest, std::max(narrowest, widest)));
}

double PriceCalendarFormat::barHeight(double amount, double maxPrice) const
{
    if (!(maxPrice > 0))
        return barWithoutScale;
    return std::max(amount / maxPrice, lowestShare) * highestBar;
}

QString PriceCalendarFormat::bestPriceText(const BestPrice &best,
                                           const QString &calendarCurrency) const
{
    const QString price =
        MoneyText::currency(best.amount, best.currency.value_or(calendarCurrency));
    return u"En Uygun: "_s + price + u" ("_s + formatDateShort(best.date) + u")"_s;
}

QString PriceCalendarFormat::accessibleName(const DailyPrice &day, const QString &currency) const
{
    QStringList parts;
    if (const QString date = formatDateShort(day.date); !date.isEmpty())
        parts.append(date + u' ' + formatDayOfWeek(day.date, true));
    parts.append(wholeAmount(day.amount) + u' ' + currency);
    if (day.isBestPrice)
        parts.append(u"en uygun gün"_s);
    return parts.join(u", "_s);
}
