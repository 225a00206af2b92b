#include "Services/TimeText.h"

#include <QStringBuilder>
#include <QStringTokenizer>

std::optional<QString> formatTimeString(const std::optional<QString> &value)
{
    if (!value || !value->contains(u'T'))
        return std::nullopt;
    // The second piece between "T"s, and of it the first two between colons; none of them empty.
    const auto pieces = qTokenize(*value, u'T', Qt::SkipEmptyParts);
    auto piece = pieces.begin();
    if (piece == pieces.end() || ++piece == pieces.end())
        return std::nullopt;
    const auto time = qTokenize(*piece, u':', Qt::SkipEmptyParts);
    auto part = time.begin();
    if (part == time.end())
        return std::nullopt;
    const QStringView hour = *part;
    if (++part == time.end())
        return std::nullopt;
    return hour % u':' % *part;
}
