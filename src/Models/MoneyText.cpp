#include "Models/MoneyText.h"

#include <QLocale>

#include <unicode/currunit.h>
#include <unicode/locid.h>
#include <unicode/numberformatter.h>

#include <cmath>
#include <limits>

namespace {

/// A system without a language setting ("C") gets Turkish, like every other text of the window.
QString languageTag()
{
    const QLocale locale;
    // QLocale::name() would leave the script out.
    return locale.language() == QLocale::C ? QStringLiteral("tr") : locale.bcp47Name();
}

/// A null text when ICU cannot format the amount.
QString formatted(double amount, const QString &currencyCode)
{
    if (currencyCode.size() != 3)
        return {};
    // Making a formatter takes ten times as long as a text, and one answer has one currency.
    thread_local icu::number::LocalizedNumberFormatter formatter;
    thread_local QString madeFor;
    UErrorCode status = U_ZERO_ERROR;
    const QString language = languageTag();
    if (const QString wanted = language + u' ' + currencyCode; madeFor != wanted) {
        formatter = icu::number::NumberFormatter::withLocale(
                        icu::Locale::forLanguageTag(language.toStdString(), status))
                        .unit(icu::CurrencyUnit(icu::ConstChar16Ptr(currencyCode.utf16()), status))
                        .precision(icu::number::Precision::integer())
                        .roundingMode(UNUM_ROUND_HALFEVEN);
        madeFor = U_SUCCESS(status) ? wanted : QString();
    }
    const icu::UnicodeString text = formatter.formatDouble(amount, status).toString(status);
    return U_FAILURE(status) ? QString() : QString::fromUtf16(text.getBuffer(), text.length());
}

} // namespace

namespace MoneyText {

QString currency(double amount, const QString &currencyCode)
{
    const QString text = formatted(amount, currencyCode);
    return text.isEmpty() ? whole(amount) + u' ' + currencyCode : text;
}

QString whole(double amount)
{
    if (std::isnan(amount))
        return QString::number(0);
    constexpr auto least = std::numeric_limits<qint64>::min();
    constexpr auto greatest = std::numeric_limits<qint64>::max();
    // The greatest 64-bit integer has no exact double: its cast is the first value out of range.
    if (amount >= static_cast<double>(greatest))
        return QString::number(greatest);
    if (amount <= static_cast<double>(least))
        return QString::number(least);
    return QString::number(static_cast<qint64>(amount));
}

} // namespace MoneyText
