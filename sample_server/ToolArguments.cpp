#include "sample_server/ToolArguments.h"

#include "sample_server/Tool.h"

#include <QLocale>

namespace Sample {

using namespace Qt::StringLiterals;

const AirportSite &airportArgument(const QJsonObject &arguments, QLatin1StringView key)
{
    const QString code = arguments.value(key).toString();
    const AirportSite *site = airportSite(code);
    if (!site)
        throw RpcError { u"\"%1\" bilinen bir havalimanı kodu değil."_s.arg(code) };
    return *site;
}

void requireDifferent(const AirportSite &origin, const AirportSite &destination)
{
    if (origin.code == destination.code)
        throw RpcError { u"Kalkış ve varış havalimanı aynı olamaz (%1)."_s.arg(origin.code) };
}

QDate dateArgument(const QJsonObject &arguments, QLatin1StringView key)
{
    const QString text = arguments.value(key).toString();
    const QDate date = QDate::fromString(text, Qt::ISODate);
    if (!text.isEmpty() && !date.isValid())
        throw RpcError { u"%1 takvimde olmayan bir gün."_s.arg(text) };
    return date;
}

QString turkishDate(QDate date)
{
    static const QLocale turkish(QLocale::Turkish, QLocale::Turkey);
    return turkish.toString(date, u"d MMMM yyyy");
}

} // namespace Sample
