#include "Controls/Look/ShownText.h"

namespace {

bool isLineBreak(QChar sign)
{
    return (sign >= u'\n' && sign <= u'\r') || sign == u'\u0085' || sign == u'\u2028'
        || sign == u'\u2029';
}

bool turnsDirection(QChar sign)
{
    return sign == u'\u061c' || sign == u'\u200e' || sign == u'\u200f'
        || (sign >= u'\u202a' && sign <= u'\u202e') || (sign >= u'\u2066' && sign <= u'\u2069');
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
    for (const QChar sign : QStringView(text).left(longest)) {
        if (turnsDirection(sign))
            continue;
        if (isLineBreak(sign))
            shown += ++breaks <= paragraphs ? u'\n' : u' ';
        else
            shown += sign;
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
