#include "Models/MoneyText.h"

#include <QLocale>

#include <unicode/decimfmt.h>
#include <unicode/numfmt.h>
#include <unicode/unistr.h>

#include <cmath>
#include <limits>
#include <memory>

namespace {

/// A system without a language setting ("C") gets Turkish, like every other text of the window.
QString languageTag()
{
    const QLocale locale;
    // QLocale::name() would leave the script out.
    return locale.language() == QLocale::C ? QStringLiteral("tr") : locale.bcp47Name();
}

thread_local QString madeFor;
thread_local std::unique_ptr<icu::NumberFormat> format;

/// The formatter of the user's locale, made once for each thread and locale; null when ICU has
/// none.
icu::NumberFormat *currencyFormat()
{
    const QString tag = languageTag();
    if (tag == madeFor)
        return format.get();
    UErrorCode status = U_ZERO_ERROR;
    const auto locale = icu::Locale::forLanguageTag(tag.toLatin1().constData(), status);
    format.reset(icu::NumberFormat::createCurrencyInstance(locale, status));
    madeFor = tag;
    if (U_FAILURE(status))
        format.reset();
    if (format)
        format->setRoundingMode(icu::NumberFormat::kRoundHalfEven);
    return format.get();
}

/// A null text when ICU cannot format the amount.
QString formatted(double amount, const QString &currencyCode)
{
    if (currencyCode.size() != 3)
        return {};
    icu::NumberFormat *formatter = currencyFormat();
    if (!formatter)
        return {};
    UErrorCode status = U_ZERO_ERROR;
    formatter->setCurrency(reinterpret_cast<const char16_t *>(currencyCode.utf16()), status);
    // The currency brings its own.
    formatter->setMaximumFractionDigits(0);
    icu::UnicodeString text;
    formatter->format(amount, text, nullptr, status);
    if (U_FAILURE(status))
        return {};
    return QString::fromUtf16(text.getBuffer(), text.length());
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
