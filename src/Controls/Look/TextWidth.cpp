#include "Controls/Look/TextWidth.h"

#include "Controls/Look/ShownText.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

qreal TextWidth::widest(const QStringList &texts, const QFont &font) const
{
    const QFontMetricsF metrics(font);
    qreal widest = 0;
    for (const QString &text : texts)
        widest = std::max(widest, metrics.horizontalAdvance(ShownText::of(text, true)));
    return std::ceil(widest);
}
