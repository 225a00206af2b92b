#include "Controls/Look/SymbolCatalogue.h"

#include <QHash>

namespace {

enum class Shape { Plain, Circled, Disc };

struct Entry
{
    QLatin1StringView ligature;
    qreal rotation = 0;
    Shape shape = Shape::Plain;
};

Entry find(const QString &name)
{
    using namespace Qt::StringLiterals;
    // The font's aeroplane points up; the design's points right.
    static const QHash<QString, Entry> entries {
        { u"airplane"_s, { "flight"_L1, 90 } },
        { u"airplane.circle"_s, { "flight"_L1, 90, Shape::Circled } },
        { u"airplane.circle.fill"_s, { "flight"_L1, 90, Shape::Disc } },
        { u"airplane.departure"_s, { "flight_takeoff"_L1 } },
        { u"arrow.left.arrow.right"_s, { "swap_horiz"_L1 } },
        { u"arrow.right"_s, { "arrow_forward"_L1 } },
        { u"arrow.up.right"_s, { "north_east"_L1 } },
        { u"bag.badge.questionmark"_s, { "luggage"_L1 } },
        { u"bolt.fill"_s, { "bolt"_L1 } },
        { u"building.2"_s, { "apartment"_L1 } },
        { u"calendar"_s, { "event"_L1 } },
        { u"checkmark"_s, { "check"_L1 } },
        { u"chevron.down"_s, { "expand_more"_L1 } },
        { u"chevron.left"_s, { "chevron_left"_L1 } },
        { u"chevron.right"_s, { "chevron_right"_L1 } },
        { u"chevron.up"_s, { "expand_less"_L1 } },
        { u"clock.arrow.circlepath"_s, { "history"_L1 } },
        { u"doc.on.doc"_s, { "content_copy"_L1 } },
        { u"door.left.hand.open"_s, { "meeting_room"_L1 } },
        { u"exclamationmark.triangle.fill"_s, { "warning"_L1 } },
        { u"fork.knife"_s, { "restaurant"_L1 } },
        { u"lightbulb.fill"_s, { "lightbulb"_L1 } },
        { u"magnifyingglass"_s, { "search"_L1 } },
        { u"map"_s, { "map"_L1 } },
        { u"map.circle.fill"_s, { "map"_L1, 0, Shape::Disc } },
        { u"sparkles"_s, { "auto_awesome"_L1 } },
        { u"suitcase"_s, { "luggage"_L1 } },
        { u"sun.max.fill"_s, { "wb_sunny"_L1 } },
        { u"ticket"_s, { "confirmation_number"_L1 } },
        { u"xmark.circle.fill"_s, { "cancel"_L1 } },
    };
    const auto found = entries.constFind(name);
    if (found != entries.constEnd())
        return *found;
    if (!name.isEmpty())
        qWarning("No symbol is named \"%s\".", qPrintable(name));
    return {};
}

} // namespace

QString SymbolCatalogue::ligature(const QString &name) const { return find(name).ligature; }
qreal SymbolCatalogue::rotation(const QString &name) const { return find(name).rotation; }

bool SymbolCatalogue::isCircled(const QString &name) const
{
    return find(name).shape == Shape::Circled;
}

bool SymbolCatalogue::isDisc(const QString &name) const { return find(name).shape == Shape::Disc; }
