#pragma once

#include "Models/CityGuideInfo.h"
#include "Services/ToolCall.h"

/// The tool "get_city_guide".
namespace CityGuideTool {

ToolCall<CityGuideInfo> call(const QString &cityOrAirportCode);

/// A complete guide from a reply of any shape: city and country fall back to the airport of `code`,
/// the texts to built-in ones. A list that is present but empty stays empty.
CityGuideInfo parseCityGuide(const JsonObject &result, const QString &code);

} // namespace CityGuideTool
