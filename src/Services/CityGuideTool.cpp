#include "Services/CityGuideTool.h"

#include "Models/AirportDatabase.h"
#include "Models/JsonObject.h"
#include "Services/ToolCall.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace CityGuideTool {

QJsonObject arguments(const QString &cityOrAirportCode)
{
    return { { u"cityCode"_s, cityOrAirportCode.toUpper() } };
}

CityGuideInfo parseCityGuide(const JsonObject &result, const QString &code)
{
    const JsonObject source = result.object("guide").value_or(result);
    const Airport airport = AirportDatabase::airport(code);
    const auto read = [&source](std::string_view key, std::string_view alternative,
                                const QString &fallback) {
        return source.text(key).value_or(source.text(alternative).value_or(fallback));
    };

    CityGuideInfo guide;
    guide.city = read("cityName", "city", airport.city);
    guide.country = read("countryName", "country", airport.country);
    guide.overview = read("overview", "description",
                          guide.city
                              + u", zengin tarihi, kültürel mirası ve eşsiz lezzetleriyle dünyanın "
                                "en çok ziyaret edilen popüler destinasyonlarından biridir."_s);
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

QCoro::Task<CityGuideInfo> VTRMCPClient::fetchCityGuide(QString cityOrAirportCode)
{
    const QString tool = u"get_city_guide"_s;
    const QJsonObject arguments = CityGuideTool::arguments(cityOrAirportCode);
    const std::function<CityGuideInfo(const JsonObject &)> reader =
        [cityOrAirportCode](const JsonObject &result) {
            return CityGuideTool::parseCityGuide(result, cityOrAirportCode);
        };
    co_return co_await callTool<CityGuideInfo>(tool, arguments, reader);
}
