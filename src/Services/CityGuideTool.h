#pragma once

#include "Services/VTRMCPClient.h"

/// The tool "get_city_guide".
namespace CityGuideTool {

QJsonObject arguments(const QString &cityOrAirportCode);

/// A complete guide from a reply of any shape: city and country fall back to the airport of `code`,
/// the texts to built-in ones. A list that is present but empty stays empty.
CityGuideInfo parseCityGuide(const JsonObject &result, const QString &code);

} // namespace CityGuideTool
