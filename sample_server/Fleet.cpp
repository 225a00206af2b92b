#include "sample_server/Fleet.h"

namespace Sample {

using namespace Qt::StringLiterals;

namespace {

constexpr double regionalJetReachKm = 1600;

const AircraftType &regionalJet()
{
    static const AircraftType type { u"E95"_s, u"Embraer 195"_s, 0, regionalJetReachKm };
    return type;
}

// clang-format off
QList<AircraftType> makeFleet()
{
    return {
        { u"738"_s, u"Boeing 737-800"_s,            0,  4500 },
        { u"73H"_s, u"Boeing 737-800"_s,            0,  4500 },
        { u"739"_s, u"Boeing 737-900ER"_s,          0,  4800 },
        { u"73J"_s, u"Boeing 737-900ER"_s,          0,  4800 },
        { u"7M8"_s, u"Boeing 737 MAX 8"_s,        500,  5500 },
        { u"7M9"_s, u"Boeing 737 MAX 9"_s,        500,  5500 },
        { u"MAX"_s, u"Boeing 737 MAX"_s,          500,  5500 },
        { u"320"_s, u"Airbus A320neo"_s,            0,  4500 },
        { u"321"_s, u"Airbus A321neo"_s,            0,  5000 },
        { u"32Q"_s, u"Airbus A321neo"_s,          300,  6500 },
        { u"332"_s, u"Airbus A330-200"_s,        2400, 11000 },
        { u"333"_s, u"Airbus A330-300"_s,        2000,  9500 },
        { u"787"_s, u"Boeing 787-9 Dreamliner"_s, 5500, longestSectorKm },
        { u"789"_s, u"Boeing 787-9 Dreamliner"_s, 2400, longestSectorKm },
        { u"350"_s, u"Airbus A350-900"_s,        5500, longestSectorKm },
        { u"359"_s, u"Airbus A350-900"_s,        5500, longestSectorKm },
        { u"773"_s, u"Boeing 777-300ER"_s,       6500, longestSectorKm },
        { u"777"_s, u"Boeing 777-300ER"_s,       6500, longestSectorKm },
        { u"77W"_s, u"Boeing 777-300ER"_s,       6500, longestSectorKm },
        regionalJet(),
    };
}
// clang-format on

} // namespace

const QList<AircraftType> &fleet()
{
    static const QList<AircraftType> types = makeFleet();
    return types;
}

const AircraftType &aircraftFor(double sectorKm, int demand, quint64 choice)
{
    if (demand <= 2 && sectorKm <= regionalJetReachKm && choice % 2 == 0)
        return regionalJet();

    QList<const AircraftType *> able;
    for (const AircraftType &type : fleet()) {
        if (sectorKm >= type.shortestKm && sectorKm <= type.longestKm
            && type.code != regionalJet().code)
            able.append(&type);
    }
    return able.isEmpty() ? regionalJet() : *able.at(int(choice % quint64(able.size())));
}

} // namespace Sample
