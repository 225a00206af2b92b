#include "Controls/Look/SymbolCatalogue.h"

#include <QHash>

namespace {

enum class Shape { Plain, Circled, Disc };

struct Entry
{
    char16_t character;
    qreal rotation = 0;
    Shape shape = Shape::Plain;
};

Entry find(const QString &name)
{
    using namespace Qt::StringLiterals;
    // Beside each the font's own name for it. Its aeroplane points up; the design's points right.
    static const QHash<QString, Entry> entries {
        { u"airplane"_s, { u'\ue539', 90 } }, // flight
        { u"airplane.circle"_s, { u'\ue539', 90, Shape::Circled } }, // flight
        { u"airplane.circle.fill"_s, { u'\ue539', 90, Shape::Disc } }, // flight
        { u"airplane.departure"_s, { u'\ue905' } }, // flight_takeoff
        { u"arrow.left.arrow.right"_s, { u'\ue8d4' } }, // swap_horiz
        { u"arrow.right"_s, { u'\ue5c8' } }, // arrow_forward
        { u"arrow.up.right"_s, { u'\uf1e1' } }, // north_east
        { u"bag.badge.questionmark"_s, { u'\uf235' } }, // luggage
        { u"bolt.fill"_s, { u'\uea0b' } }, // bolt
        { u"building.2"_s, { u'\uea40' } }, // apartment
        { u"calendar"_s, { u'\ue878' } }, // event
        { u"checkmark"_s, { u'\ue5ca' } }, // check
        { u"chevron.down"_s, { u'\ue5cf' } }, // expand_more
        { u"chevron.left"_s, { u'\ue5cb' } }, // chevron_left
        { u"chevron.right"_s, { u'\ue5cc' } }, // chevron_right
        { u"chevron.up"_s, { u'\ue5ce' } }, // expand_less
        { u"clock.arrow.circlepath"_s, { u'\ue889' } }, // history
        { u"doc.on.doc"_s, { u'\ue14d' } }, // content_copy
        { u"door.left.hand.open"_s, { u'\ueb4f' } }, // meeting_room
        { u"exclamationmark.triangle.fill"_s, { u'\ue002' } }, // warning
        { u"fork.knife"_s, { u'\ue56c' } }, // restaurant
        { u"lightbulb.fill"_s, { u'\ue0f0' } }, // lightbulb
        { u"magnifyingglass"_s, { u'\ue8b6' } }, // search
        { u"map"_s, { u'\ue55b' } }, // map
        { u"map.circle.fill"_s, { u'\ue55b', 0, Shape::Disc } }, // map
        { u"sparkles"_s, { u'\ue65f' } }, // auto_awesome
        { u"suitcase"_s, { u'\uf235' } }, // luggage
        { u"sun.max.fill"_s, { u'\ue430' } }, // wb_sunny
        { u"ticket"_s, { u'\ue638' } }, // confirmation_number
        { u"xmark.circle.fill"_s, { u'\ue5c9' } }, // cancel
    };
    const auto found = entries.constFind(name);
    if (found != entries.constEnd())
        return *found;
    if (!name.isEmpty())
        qWarning("No symbol is named \"%s\".", qPrintable(name));
    return { .character = 0 };
}

} // namespace

QString SymbolCatalogue::character(const QString &name) const
{
    const char16_t character = find(name).character;
    return character ? QString(QChar(character)) : QString();
}

qreal SymbolCatalogue::rotation(const QString &name) const { return find(name).rotation; }

bool SymbolCatalogue::isCircled(const QString &name) const
{
    return find(name).shape == Shape::Circled;
}

bool SymbolCatalogue::isDisc(const QString &name) const { return find(name).shape == Shape::Disc; }
