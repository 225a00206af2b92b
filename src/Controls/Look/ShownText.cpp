#include "Controls/Look/ShownText.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace {

bool isLineBreak(QChar character)
{
    return (character >= u'\n' && character <= u'\r') || character == u'\u0085'
        || character == u'\u2028' || character == u'\u2029';
}

bool turnsDirection(QChar character)
{
    return character == u'\u061c' || character == u'\u200e' || character == u'\u200f'
        || (character >= u'\u202a' && character <= u'\u202e')
        || (character >= u'\u2066' && character <= u'\u2069');
}

QString markedAsCut(QString text)
{
    if (text.endsWith(u' ') || (!text.isEmpty() && text.back().isHighSurrogate()))
        text.chop(1);
    return text + u'…';
}

} // namespace

QString ShownText::of(const QString &text, bool isOneLine, bool isFitted)
{
    const qsizetype longest = isFitted ? longestFitted : isOneLine ? longestLine : longestText;
    const qsizetype paragraphs = isOneLine ? 0 : mostParagraphs;
    QString shown;
    qsizetype breaks = 0;
    // A mark that is left out counts too: there may be nothing else in a megabyte.
    for (const QChar character : QStringView(text).left(longest)) {
        if (turnsDirection(character))
            continue;
        if (isLineBreak(character))
            shown += ++breaks <= paragraphs ? u'\n' : u' ';
        else
            shown += character;
    }
    return text.size() > longest ? markedAsCut(shown) : shown;
}

QStringList ShownText::firstOf(const QStringList &entries)
{
    QStringList first = entries.mid(0, mostEntries);
    for (QString &entry : first) {
        if (entry.size() > longestEntry)
            entry = markedAsCut(entry.left(longestEntry));
    }
    return first;
}

qreal ShownText::widest(const QStringList &texts, const QFont &font)
{
    const QFontMetricsF metrics(font);
    qreal widest = 0;
    for (const QString &text : texts)
        widest = std::max(widest, metrics.horizontalAdvance(of(text, true)));
    return std::ceil(widest);
}
