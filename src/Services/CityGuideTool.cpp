#include "Services/CityGuideTool.h"

#include "Models/AirportDatabase.h"
#include "Models/JsonReading.h"
#include "Services/ToolCall.h"

#include <functional>

using namespace Qt::StringLiterals;
using namespace JsonReading;

namespace CityGuideTool {

QJsonObject arguments(const QString &cityOrAirportCode)
{
    return { { u"cityCode"_s, cityOrAirportCode.toUpper() } };
}

CityGuideInfo parseCityGuide(const QJsonObject &result, const QString &code)
{
    const QJsonObject source = object(result, u"guide").value_or(result);
    const Airport airport = AirportDatabase::airport(code);
    const auto read = [&source](QStringView key, QStringView alternative, const QString &fallback) {
        return text(source, key).value_or(text(source, alternative).value_or(fallback));
    };

    CityGuideInfo guide;
    guide.city = read(u"cityName", u"city", airport.city);
    guide.country = read(u"countryName", u"country", airport.country);
    guide.overview = read(u"overview", u"description",
                          guide.city
                              + u", zengin tarihi, kültürel mirası ve eşsiz lezzetleriyle dünyanın "
                                "en çok ziyaret edilen popüler destinasyonlarından biridir."_s);
    guide.bestTimeToVisit =
        text(source, u"bestTimeToVisit").value_or(u"İlkbahar ve Sonbahar (Nisan - Ekim)"_s);
    guide.topAttractions = texts(source, u"topAttractions")
                               .value_or(QStringList {
                                   u"Tarihi Şehir Merkezi & Müzeler"_s,
                                   u"Meşhur Meydanlar & Katedraller"_s,
                                   u"Panoramik Seyir Tepesi"_s,
                                   u"Kültür & Sanat Galerileri"_s,
                               });
    guide.culinaryHighlights = texts(source, u"culinaryHighlights")
                                   .value_or(QStringList {
                                       u"Yerel Geleneksel Tatlar"_s,
                                       u"Taze Deniz Ürünleri"_s,
                                       u"Meşhur Sokak Lezzetleri"_s,
                                   });
    guide.localTips =
        texts(source, u"localTips")
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
    const std::function<CityGuideInfo(const QJsonObject &)> reader =
        [cityOrAirportCode](const QJsonObject &result) {
            return CityGuideTool::parseCityGuide(result, cityOrAirportCode);
        };
    co_return co_await callTool<CityGuideInfo>(tool, arguments, reader);
}
