#pragma once

#include "Models/PriceCalendar.h"

#include <QObject>
#include <QQmlEngine>

/// The texts and measures of the fare chart.
class PriceCalendarFormat : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// "5 Ara"; empty when `date` is not a "yyyy-MM-dd" date.
    Q_INVOKABLE QString formatDateShort(const QString &date) const;
    /// "Cmt", or "Cumartesi" when `full`; empty when `date` is not a "yyyy-MM-dd" date.
    Q_INVOKABLE QString formatDayOfWeek(const QString &date, bool full) const;
    /// The amount without its fraction, which is cut off and not rounded.
    Q_INVOKABLE QString wholeAmount(double amount) const;
    /// As wide as any amount up to `highest`: its digits are all eights.
    Q_INVOKABLE QString widestAmount(double highest) const;
    /// The width of each of `count` days that share `room`, but none is narrower than `narrowest`
    /// or, where that is more, wider than `widest`.
    Q_INVOKABLE double dayWidth(double room, int count, double narrowest, double widest) const;
    /// How high a day's bar stands, in pixels, when the dearest day costs `maxPrice`.
    Q_INVOKABLE double barHeight(double amount, double maxPrice) const;
    /// "En Uygun: ₺4.850 (5 Ara)". `calendarCurrency` serves a best price without a currency.
    Q_INVOKABLE QString bestPriceText(const BestPrice &best, const QString &calendarCurrency) const;
    /// "5 Ara Cumartesi, 4850 TRY, en uygun gün".
    Q_INVOKABLE QString accessibleName(const DailyPrice &day, const QString &currency) const;
};
