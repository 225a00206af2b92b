#pragma once

#include <QString>

/// Amounts as a person reads them.
namespace MoneyText {

/// `amount` as currency text of the user's locale: no fraction digits, halves rounded to even.
/// `currencyCode` is an ISO 4217 code; when it cannot be formatted the text is the amount truncated
/// toward zero, a blank and the code as it stands.
QString currency(double amount, const QString &currencyCode);

/// `amount` truncated toward zero, without grouping. An amount beyond 64 bits becomes the nearest
/// one that fits, and one that is no number becomes 0.
QString whole(double amount);

} // namespace MoneyText
