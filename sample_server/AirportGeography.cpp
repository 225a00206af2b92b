#include "sample_server/AirportGeography.h"

#include "Models/AirportDatabase.h"

#include <QFile>
#include <QtMath>

#include <algorithm>
#include <cmath>

namespace Sample {

using namespace Qt::StringLiterals;

namespace {

QList<AirportSite> readSites()
{
    QFile file(u":/vantora/sample_server/airports.csv"_s);
    file.open(QIODevice::ReadOnly);
    const QStringList rows = QString::fromUtf8(file.readAll()).split(u'\n');
    QList<AirportSite> sites;
    for (const QString &row : rows.mid(1)) {
        const QStringList cells = row.split(u',');
        if (cells.size() == 6)
            sites.append({ AirportDatabase::airport(cells[0]), cells[1].toDouble(),
                           cells[2].toDouble(), QTimeZone(cells[3].toLatin1()), cells[4].toInt(),
                           cells[5] });
    }
    return sites;
}

} // namespace

bool AirportSite::isDomestic() const { return country == u"Türkiye"; }

const QList<AirportSite> &airportSites()
{
    static const QList<AirportSite> sites = readSites();
    return sites;
}

const AirportSite *airportSite(const QString &code)
{
    const auto found = std::ranges::find(airportSites(), code, &AirportSite::code);
    return found == airportSites().end() ? nullptr : &*found;
}

double distanceKm(const AirportSite &from, const AirportSite &to)
{
    constexpr double earthRadiusKm = 6371.0;
    const double fromLatitude = qDegreesToRadians(from.latitude);
    const double toLatitude = qDegreesToRadians(to.latitude);
    const double cosine = std::sin(fromLatitude) * std::sin(toLatitude)
        + std::cos(fromLatitude) * std::cos(toLatitude)
            * std::cos(qDegreesToRadians(to.longitude - from.longitude));
    return earthRadiusKm * std::acos(std::min(1.0, cosine));
}

} // namespace Sample
