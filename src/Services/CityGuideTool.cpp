#include "Models/AirportDatabase.h"
#include "Models/JsonReading.h"
#include "Services/VTRMCPClient.h"

using namespace Qt::StringLiterals;

QCoro::Task<CityGuideInfo> VTRMCPClient::fetchCityGuide(QString cityOrAirportCode)
{
    return ask<CityGuideInfo>(u"get_city_guide"_s,
                              { { u"cityCode"_s, cityOrAirportCode.toUpper() } },
                              [cityOrAirportCode](const QJsonObject &result) {
                                  return ToolResults::parseCityGuide(result, cityOrAirportCode);
                              });
}

CityGuideInfo ToolResults::parseCityGuide(const QJsonObject &result, const QString &code)
{
    using JsonReading::text, JsonReading::texts;
    const QJsonObject source = result["guide"_L1].toObject(result);
    const Airport airport = AirportDatabase::airport(code);
    CityGuideInfo guide;
    guide.city = text(source, { "cityName"_L1, "city"_L1 }).value_or(airport.city);
    guide.country = text(source, { "countryName"_L1, "country"_L1 }).value_or(airport.country);
    guide.overview = text(source, { "overview"_L1, "description"_L1 })
                         .value_or(guide.city
                                   + u", zengin tarihi, kültürel mirası ve eşsiz lezzetleriyle "
                                     "dünyanın en çok ziyaret edilen popüler "
                                     "destinasyonlarından biridir."_s);
    guide.bestTimeToVisit =
        source["bestTimeToVisit"_L1].toString(u"İlkbahar ve Sonbahar (Nisan - Ekim)"_s);
    guide.topAttractions = texts(source, { "topAttractions"_L1 })
                               .value_or(QStringList {
                                   u"Tarihi Şehir Merkezi & Müzeler"_s,
                                   u"Meşhur Meydanlar & Katedraller"_s,
                                   u"Panoramik Seyir Tepesi"_s,
                                   u"Kültür & Sanat Galerileri"_s,
                               });
    guide.culinaryHighlights = texts(source, { "culinaryHighlights"_L1 })
                                   .value_or(QStringList {
                                       u"Yerel Geleneksel Tatlar"_s,
                                       u"Taze Deniz Ürünleri"_s,
                                       u"Meşhur Sokak Lezzetleri"_s,
                                   });
    guide.localTips =
        texts(source, { "localTips"_L1 })
            .value_or(QStringList {
                u"Toplu taşıma kartı alarak şehir içinde ekonomik seyahat edin."_s,
                u"Popüler müzelere sabah erken saatlerde giderek sıra beklemekten kaçının."_s,
            });
    return guide;
}
