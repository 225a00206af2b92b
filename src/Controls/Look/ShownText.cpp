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
    if (text.size() > longest) {
        if (shown.endsWith(u' ') || (!shown.isEmpty() && shown.back().isHighSurrogate()))
            shown.chop(1);
        shown += u'…';
    }
    return shown;
}

QStringList ShownText::firstOf(const QStringList &entries) { return entries.mid(0, mostEntries); }
