#include "Models/FlightStatusResult.h"

#include <algorithm>
#include <initializer_list>

namespace {

bool mentionsAny(const QString &status, std::initializer_list<QStringView> stems)
{
    // Unicode lower-cases "İ" to "i" and a combining dot, which would hide "İNDİ" from "indi".
    QString lowered = status;
    lowered.replace(u'İ', u'i');
    lowered = lowered.toLower();
    return std::any_of(stems.begin(), stems.end(),
                       [&lowered](QStringView stem) { return lowered.contains(stem); });
}

} // namespace

bool FlightStatusResult::isDelayed() const { return mentionsAny(status, { u"delay", u"gecik" }); }

bool FlightStatusResult::isLanded() const { return mentionsAny(status, { u"land", u"indi" }); }

bool FlightStatusResult::isInAir() const
{
    return mentionsAny(status, { u"air", u"flight", u"hava" });
}
