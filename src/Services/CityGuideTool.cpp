#include "Services/CityGuideTool.h"

#include "Models/AirportDatabase.h"

using namespace Qt::StringLiterals;

namespace CityGuideTool {

ToolCall<CityGuideInfo> call(const QString &cityOrAirportCode)
{
    return { u"get_city_guide"_s,
             { { u"cityCode"_s, cityOrAirportCode.toUpper() } },
             [cityOrAirportCode](const JsonObject &result) {
                 return parseCityGuide(result, cityOrAirportCode);
             } };
}

CityGuideInfo parseCityGuide(const JsonObject &result, const QString &code)
{
    const JsonObject source = result.object("guide").value_or(result);
    const Airport airport = AirportDatabase::airport(code);
    CityGuideInfo guide;
    guide.city = source.text("cityName", "city").value_or(airport.city);
    guide.country = source.text("countryName", "country").value_or(airport.country);
    guide.overview = source.text("overview", "description")
                         .value_or(guide.city
                                   + u", zengin tarihi, kültürel mirası ve eşsiz lezzetleriyle "
                                     "dünyanın en çok ziyaret edilen popüler "
                                     "destinasyonlarından biridir."_s);
    guide.bestTimeToVisit =
        source.text("bestTimeToVisit").value_or(u"İlkbahar ve Sonbahar (Nisan - Ekim)"_s);
    guide.topAttractions = source.texts("topAttractions")
                               .value_or(QStringList {
                                   u"Tarihi Şehir Merkezi & Müzeler"_s,
                                   u"Meşhur Meydanlar & Katedraller"_s,
                                   u"Panoramik Seyir Tepesi"_s,
                                   u"Kültür & Sanat Galerileri"_s,
                               });
    guide.culinaryHighlights = source.texts("culinaryHighlights")
                                   .value_or(QStringList {
                                       u"Yerel Geleneksel Tatlar"_s,
                                       u"Taze Deniz Ürünleri"_s,
                                       u"Meşhur Sokak Lezzetleri"_s,
                                   });
    guide.localTips =
        source.texts("localTips")
            .value_or(QStringList {
                u"Toplu taşıma kartı alarak şehir içinde ekonomik seyahat edin."_s,
                u"Popüler müzelere sabah erken saatlerde giderek sıra beklemekten kaçının."_s,
            });
    return guide;
}

} // namespace CityGuideTool
