#include "sample_server/AirportGeography.h"

#include "Models/AirportDatabase.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Sample {

namespace {

using namespace Qt::StringLiterals;

struct Row
{
    const char *code;
    double latitude;
    double longitude;
    const char *timeZone;
    int demand;
    const char *turkishCity; ///< UTF-8
};

// clang-format off
constexpr Row rows[] = {
    { "IST",  41.26,   28.74, "Europe/Istanbul",      5, "İstanbul" },
    { "SAW",  40.90,   29.31, "Europe/Istanbul",      5, "İstanbul" },
    { "ESB",  40.13,   32.99, "Europe/Istanbul",      5, "Ankara" },
    { "ADB",  38.29,   27.16, "Europe/Istanbul",      5, "İzmir" },
    { "AYT",  36.90,   30.80, "Europe/Istanbul",      5, "Antalya" },
    { "DLM",  36.71,   28.79, "Europe/Istanbul",      3, "Dalaman" },
    { "BJV",  37.25,   27.67, "Europe/Istanbul",      4, "Bodrum" },
    { "TZX",  40.99,   39.79, "Europe/Istanbul",      4, "Trabzon" },
    { "GZT",  36.95,   37.48, "Europe/Istanbul",      3, "Gaziantep" },
    { "ADA",  36.90,   35.07, "Europe/Istanbul",      4, "Adana" },
    { "KYA",  37.98,   32.56, "Europe/Istanbul",      2, "Konya" },
    { "ASR",  38.77,   35.50, "Europe/Istanbul",      3, "Kayseri" },
    { "NAV",  38.77,   34.53, "Europe/Istanbul",      2, "Nevşehir" },
    { "DIY",  37.89,   40.20, "Europe/Istanbul",      3, "Diyarbakır" },
    { "SZF",  41.25,   36.57, "Europe/Istanbul",      3, "Samsun" },
    { "VAN",  38.47,   43.33, "Europe/Istanbul",      2, "Van" },
    { "ERZ",  39.96,   41.17, "Europe/Istanbul",      2, "Erzurum" },
    { "LHR",  51.47,   -0.45, "Europe/London",        5, "Londra" },
    { "LGW",  51.15,   -0.18, "Europe/London",        3, "Londra" },
    { "MAN",  53.35,   -2.28, "Europe/London",        3, "Manchester" },
    { "CDG",  49.01,    2.55, "Europe/Paris",         5, "Paris" },
    { "NCE",  43.66,    7.21, "Europe/Paris",         2, "Nice" },
    { "FRA",  50.03,    8.56, "Europe/Berlin",        5, "Frankfurt" },
    { "MUC",  48.35,   11.79, "Europe/Berlin",        4, "Münih" },
    { "BER",  52.36,   13.50, "Europe/Berlin",        5, "Berlin" },
    { "DUS",  51.28,    6.77, "Europe/Berlin",        4, "Düsseldorf" },
    { "HAM",  53.63,    9.99, "Europe/Berlin",        3, "Hamburg" },
    { "AMS",  52.31,    4.76, "Europe/Amsterdam",     5, "Amsterdam" },
    { "BRU",  50.90,    4.48, "Europe/Brussels",      3, "Brüksel" },
    { "ZRH",  47.46,    8.55, "Europe/Zurich",        4, "Zürih" },
    { "GVA",  46.24,    6.11, "Europe/Zurich",        2, "Cenevre" },
    { "VIE",  48.11,   16.57, "Europe/Vienna",        4, "Viyana" },
    { "FCO",  41.80,   12.25, "Europe/Rome",          4, "Roma" },
    { "MXP",  45.63,    8.72, "Europe/Rome",          4, "Milano" },
    { "VCE",  45.51,   12.35, "Europe/Rome",          2, "Venedik" },
    { "MAD",  40.47,   -3.56, "Europe/Madrid",        4, "Madrid" },
    { "BCN",  41.30,    2.08, "Europe/Madrid",        4, "Barselona" },
    { "LIS",  38.78,   -9.14, "Europe/Lisbon",        3, "Lizbon" },
    { "ATH",  37.94,   23.94, "Europe/Athens",        4, "Atina" },
    { "SKG",  40.52,   22.97, "Europe/Athens",        2, "Selanik" },
    { "CPH",  55.62,   12.65, "Europe/Copenhagen",    3, "Kopenhag" },
    { "ARN",  59.65,   17.92, "Europe/Stockholm",     3, "Stockholm" },
    { "OSL",  60.19,   11.10, "Europe/Oslo",          2, "Oslo" },
    { "HEL",  60.32,   24.96, "Europe/Helsinki",      2, "Helsinki" },
    { "DUB",  53.42,   -6.27, "Europe/Dublin",        2, "Dublin" },
    { "WAW",  52.17,   20.97, "Europe/Warsaw",        3, "Varşova" },
    { "PRG",  50.10,   14.26, "Europe/Prague",        3, "Prag" },
    { "BUD",  47.44,   19.26, "Europe/Budapest",      3, "Budapeşte" },
    { "OTP",  44.57,   26.10, "Europe/Bucharest",     3, "Bükreş" },
    { "SOF",  42.70,   23.41, "Europe/Sofia",         3, "Sofya" },
    { "BEG",  44.82,   20.31, "Europe/Belgrade",      3, "Belgrad" },
    { "SJJ",  43.82,   18.33, "Europe/Sarajevo",      2, "Saraybosna" },
    { "ZAG",  45.74,   16.07, "Europe/Zagreb",        2, "Zagreb" },
    { "SKP",  41.96,   21.62, "Europe/Skopje",        2, "Üsküp" },
    { "TGD",  42.36,   19.25, "Europe/Podgorica",     1, "Podgoritsa" },
    { "TIA",  41.41,   19.72, "Europe/Tirane",        3, "Tiran" },
    { "GYD",  40.47,   50.05, "Asia/Baku",            4, "Bakü" },
    { "TBS",  41.67,   44.95, "Asia/Tbilisi",         3, "Tiflis" },
    { "JFK",  40.64,  -73.78, "America/New_York",     5, "New York" },
    { "EWR",  40.69,  -74.17, "America/New_York",     3, "Newark" },
    { "ORD",  41.98,  -87.90, "America/Chicago",      3, "Chicago" },
    { "LAX",  33.94, -118.41, "America/Los_Angeles",  3, "Los Angeles" },
    { "SFO",  37.62, -122.38, "America/Los_Angeles",  2, "San Francisco" },
    { "MIA",  25.79,  -80.29, "America/New_York",     3, "Miami" },
    { "BOS",  42.36,  -71.01, "America/New_York",     2, "Boston" },
    { "IAD",  38.95,  -77.46, "America/New_York",     3, "Washington" },
    { "IAH",  29.98,  -95.34, "America/Chicago",      2, "Houston" },
    { "DFW",  32.90,  -97.04, "America/Chicago",      1, "Dallas" },
    { "ATL",  33.64,  -84.43, "America/New_York",     1, "Atlanta" },
    { "SEA",  47.45, -122.31, "America/Los_Angeles",  1, "Seattle" },
    { "YYZ",  43.68,  -79.63, "America/Toronto",      3, "Toronto" },
    { "YUL",  45.47,  -73.74, "America/Toronto",      2, "Montreal" },
    { "YVR",  49.19, -123.18, "America/Vancouver",    1, "Vancouver" },
    { "MEX",  19.44,  -99.07, "America/Mexico_City",  1, "Meksiko" },
    { "CUN",  21.04,  -86.87, "America/Cancun",       1, "Cancun" },
    { "DXB",  25.25,   55.36, "Asia/Dubai",           5, "Dubai" },
    { "AUH",  24.43,   54.65, "Asia/Dubai",           3, "Abu Dabi" },
    { "DOH",  25.27,   51.61, "Asia/Qatar",           3, "Doha" },
    { "RUH",  24.96,   46.70, "Asia/Riyadh",          3, "Riyad" },
    { "JED",  21.68,   39.16, "Asia/Riyadh",          4, "Cidde" },
    { "MED",  24.55,   39.71, "Asia/Riyadh",          3, "Medine" },
    { "AMM",  31.72,   35.99, "Asia/Amman",           3, "Amman" },
    { "BEY",  33.82,   35.49, "Asia/Beirut",          3, "Beyrut" },
    { "KWI",  29.23,   47.97, "Asia/Kuwait",          3, "Kuveyt" },
    { "BAH",  26.27,   50.64, "Asia/Bahrain",         2, "Manama" },
    { "MCT",  23.59,   58.28, "Asia/Muscat",          2, "Maskat" },
    { "BGW",  33.26,   44.23, "Asia/Baghdad",         3, "Bağdat" },
    { "EBL",  36.24,   43.96, "Asia/Baghdad",         3, "Erbil" },
    { "IKA",  35.42,   51.15, "Asia/Tehran",          4, "Tahran" },
    { "ECN",  35.15,   33.50, "Asia/Famagusta",       4, "Lefkoşa" },
    { "NRT",  35.76,  140.39, "Asia/Tokyo",           2, "Tokyo" },
    { "HND",  35.55,  139.78, "Asia/Tokyo",           3, "Tokyo" },
    { "KIX",  34.43,  135.24, "Asia/Tokyo",           1, "Osaka" },
    { "ICN",  37.46,  126.44, "Asia/Seoul",           3, "Seul" },
    { "BKK",  13.69,  100.75, "Asia/Bangkok",         4, "Bangkok" },
    { "HKT",   8.11,   98.31, "Asia/Bangkok",         2, "Phuket" },
    { "SIN",   1.36,  103.99, "Asia/Singapore",       3, "Singapur" },
    { "KUL",   2.75,  101.71, "Asia/Kuala_Lumpur",    2, "Kuala Lumpur" },
    { "DPS",  -8.75,  115.17, "Asia/Makassar",        2, "Bali" },
    { "CGK",  -6.13,  106.66, "Asia/Jakarta",         2, "Cakarta" },
    { "MLE",   4.19,   73.53, "Indian/Maldives",      3, "Male" },
    { "CMB",   7.18,   79.88, "Asia/Colombo",         2, "Kolombo" },
    { "DEL",  28.56,   77.10, "Asia/Kolkata",         3, "Delhi" },
    { "BOM",  19.09,   72.87, "Asia/Kolkata",         3, "Mumbai" },
    { "PEK",  40.08,  116.58, "Asia/Shanghai",        3, "Pekin" },
    { "PVG",  31.14,  121.81, "Asia/Shanghai",        3, "Şanghay" },
    { "CAN",  23.39,  113.30, "Asia/Shanghai",        3, "Guangzhou" },
    { "HKG",  22.31,  113.91, "Asia/Hong_Kong",       3, "Hong Kong" },
    { "MEL", -37.67,  144.84, "Australia/Melbourne",  2, "Melbourne" },
    { "SYD", -33.95,  151.18, "Australia/Sydney",     2, "Sidney" },
    { "CAI",  30.12,   31.41, "Africa/Cairo",         4, "Kahire" },
    { "HRG",  27.18,   33.80, "Africa/Cairo",         2, "Hurgada" },
    { "SSH",  27.98,   34.39, "Africa/Cairo",         2, "Şarm El-Şeyh" },
    { "CMN",  33.37,   -7.59, "Africa/Casablanca",    3, "Kazablanka" },
    { "RAK",  31.61,   -8.04, "Africa/Casablanca",    1, "Marakeş" },
    { "TUN",  36.85,   10.23, "Africa/Tunis",         3, "Tunus" },
    { "ALG",  36.69,    3.22, "Africa/Algiers",       3, "Cezayir" },
    { "JNB", -26.14,   28.24, "Africa/Johannesburg",  2, "Johannesburg" },
    { "CPT", -33.97,   18.60, "Africa/Johannesburg",  2, "Cape Town" },
    { "NBO",  -1.32,   36.93, "Africa/Nairobi",       2, "Nairobi" },
    { "ZNZ",  -6.22,   39.22, "Africa/Dar_es_Salaam", 1, "Zanzibar" },
};
// clang-format on

QList<AirportSite> makeSites()
{
    QHash<QString, const Row *> rowOf;
    for (const Row &row : rows)
        rowOf.insert(QString::fromLatin1(row.code), &row);

    QList<AirportSite> sites;
    for (const Airport &airport : AirportDatabase::allAirports()) {
        const Row *row = rowOf.value(airport.code);
        if (!row)
            continue;
        const QByteArray zoneId(row->timeZone);
        sites.append({ .code = airport.code,
                       .city = airport.city,
                       .turkishCity = QString::fromUtf8(row->turkishCity),
                       .country = airport.country,
                       .hub = airport.hub,
                       .domestic = airport.country == u"Türkiye"_s,
                       .latitude = row->latitude,
                       .longitude = row->longitude,
                       .timeZone = QTimeZone(zoneId),
                       .region = QString::fromLatin1(zoneId.left(zoneId.indexOf('/'))),
                       .demand = row->demand });
    }
    return sites;
}

} // namespace

const QList<AirportSite> &airportSites()
{
    static const QList<AirportSite> sites = makeSites();
    return sites;
}

const AirportSite *airportSite(QStringView code)
{
    static const QHash<QString, const AirportSite *> byCode = [] {
        QHash<QString, const AirportSite *> hash;
        for (const AirportSite &site : airportSites())
            hash.insert(site.code, &site);
        return hash;
    }();
    return byCode.value(code.toString());
}

double distanceKm(const AirportSite &from, const AirportSite &to)
{
    constexpr double earthRadiusKm = 6371.0;
    constexpr double radians = std::numbers::pi / 180;
    const double halfLatitude = (to.latitude - from.latitude) * radians / 2;
    const double halfLongitude = (to.longitude - from.longitude) * radians / 2;
    const double haversine = std::pow(std::sin(halfLatitude), 2)
        + std::cos(from.latitude * radians) * std::cos(to.latitude * radians)
            * std::pow(std::sin(halfLongitude), 2);
    return 2 * earthRadiusKm * std::asin(std::min(1.0, std::sqrt(haversine)));
}

} // namespace Sample
