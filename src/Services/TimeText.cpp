#include "Services/TimeText.h"

#include <QStringList>

std::optional<QString> formatTimeString(const std::optional<QString> &value)
{
    if (!value || !value->contains(u'T'))
        return std::nullopt;
    const QStringList pieces = value->split(u'T', Qt::SkipEmptyParts);
    if (pieces.size() < 2)
        return std::nullopt;
    const QStringList time = pieces.at(1).split(u':', Qt::SkipEmptyParts);
    if (time.size() < 2)
        return std::nullopt;
    return time.at(0) + u':' + time.at(1);
}
