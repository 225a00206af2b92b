#pragma once

#include "Models/Record.h"

#include <QList>
#include <QMetaType>
#include <QString>

#include <optional>

/// The lowest fare of one day. Its identity is its date.
struct DailyPrice
{
    Q_GADGET
    Q_PROPERTY(QString date MEMBER date CONSTANT)
    Q_PROPERTY(double amount MEMBER amount CONSTANT)
    Q_PROPERTY(QString currency READ currencyText CONSTANT)
    Q_PROPERTY(bool isBestPrice MEMBER isBestPrice CONSTANT)

public:
    QString date; ///< as the server writes it, "yyyy-MM-dd" in practice
    double amount = 0; ///< in units of `currency`
    std::optional<QString> currency = QStringLiteral("TRY");
    bool isBestPrice = false; ///< the server marks this day as the cheapest of its window

    QString id() const { return date; }
    QString currencyText() const { return currency.value_or(QString()); }

    /// Reads leniently: only a missing or mistyped "date" throws DecodingError.
    static DailyPrice fromJson(const QJsonObject &json);
    QJsonObject toJson() const;

    friend bool operator==(const DailyPrice &, const DailyPrice &) = default;
};

/// The cheapest day of a fare calendar.
struct BestPrice
{
    Q_GADGET
    Q_PROPERTY(QString date MEMBER date CONSTANT)
    Q_PROPERTY(double amount MEMBER amount CONSTANT)
    Q_PROPERTY(QString currency READ currencyText CONSTANT)

public:
    QString date;
    double amount = 0;
    std::optional<QString> currency;

    QString currencyText() const { return currency.value_or(QString()); }

    /// Throws DecodingError when "date" or "amount" is missing or mistyped, or "currency" mistyped.
    static BestPrice fromJson(const QJsonObject &json);
    QJsonObject toJson() const;
};

/// The fare calendar as the tool operation returns it.
struct PriceCalendar
{
    QList<DailyPrice> prices; ///< in the server's order
    std::optional<BestPrice> bestPrice;
    QString currency = QStringLiteral("TRY");
};

/// One calendar answer as a JSON document of its own. Every field may be absent but for
/// "prices".
struct PriceCalendarResult
{
    std::optional<QString> origin;
    std::optional<QString> destination;
    std::optional<QString> currency;
    std::optional<QList<DailyPrice>> prices;
    std::optional<BestPrice> bestPrice;

    /// A missing or unreadable "prices" becomes an empty list; any other mistyped member throws
    /// DecodingError. The best price is read from and written to "best_price" alone.
    static PriceCalendarResult fromJson(const QJsonObject &json);
    QJsonObject toJson() const;
};
