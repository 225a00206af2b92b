#pragma once

#include "Models/Airport.h"
#include "Models/CityGuideInfo.h"
#include "Models/FlightOption.h"
#include "Models/FlightStatusResult.h"
#include "Models/PriceCalendar.h"
#include "Models/PromotionItem.h"
#include "Models/SearchOptions.h"
#include "ViewModels/CityGuideViewModel.h"
#include "ViewModels/FlightOptionList.h"
#include "ViewModels/FlightSearchViewModel.h"
#include "ViewModels/FlightStatusViewModel.h"

#include <QQmlEngine>

// The QML names of the records and the view models, whose libraries do not depend on QML.

namespace QmlTypes {

namespace SearchOptionsForeign {
Q_NAMESPACE
QML_FOREIGN_NAMESPACE(SearchOptions)
QML_NAMED_ELEMENT(SearchOptions)
} // namespace SearchOptionsForeign

struct AirportForeign
{
    Q_GADGET
    QML_FOREIGN(Airport)
    QML_VALUE_TYPE(airport)
};

struct DailyPriceForeign
{
    Q_GADGET
    QML_FOREIGN(DailyPrice)
    QML_VALUE_TYPE(dailyPrice)
};

struct BestPriceForeign
{
    Q_GADGET
    QML_FOREIGN(BestPrice)
    QML_VALUE_TYPE(bestPrice)
};

struct FlightOptionForeign
{
    Q_GADGET
    QML_FOREIGN(FlightOption)
    QML_VALUE_TYPE(flightOption)
};

struct FlightStatusResultForeign
{
    Q_GADGET
    QML_FOREIGN(FlightStatusResult)
    QML_VALUE_TYPE(flightStatusResult)
};

struct PromotionItemForeign
{
    Q_GADGET
    QML_FOREIGN(PromotionItem)
    QML_VALUE_TYPE(promotionItem)
};

struct CityGuideInfoForeign
{
    Q_GADGET
    QML_FOREIGN(CityGuideInfo)
    QML_VALUE_TYPE(cityGuideInfo)
};

struct CountedListModelForeign
{
    Q_GADGET
    QML_FOREIGN(CountedListModel)
    QML_NAMED_ELEMENT(CountedListModel)
    QML_UNCREATABLE("A list that a view model owns.")
};

struct ObservableObjectForeign
{
    Q_GADGET
    QML_FOREIGN(ObservableObject)
    QML_NAMED_ELEMENT(ObservableObject)
    QML_UNCREATABLE("The base of the view models.")
};

struct FlightOptionListForeign
{
    Q_GADGET
    QML_FOREIGN(FlightOptionList)
    QML_NAMED_ELEMENT(FlightOptionList)
    QML_UNCREATABLE("A list that a view model owns.")
};

struct FlightSearchViewModelForeign
{
    Q_GADGET
    QML_FOREIGN(FlightSearchViewModel)
    QML_NAMED_ELEMENT(FlightSearchViewModel)
};

struct CityGuideViewModelForeign
{
    Q_GADGET
    QML_FOREIGN(CityGuideViewModel)
    QML_NAMED_ELEMENT(CityGuideViewModel)
};

struct FlightStatusViewModelForeign
{
    Q_GADGET
    QML_FOREIGN(FlightStatusViewModel)
    QML_NAMED_ELEMENT(FlightStatusViewModel)
};

} // namespace QmlTypes
