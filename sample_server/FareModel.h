#pragma once

#include "sample_server/ItineraryPlanner.h"

namespace Sample {

enum class Cabin { Economy, Business };

/// The fare of one adult in Turkish lira, whole or half. It follows the distance, the weekday, the
/// season and how early one books, and is the same whenever it is asked for on the same day.
double fare(const Itinerary &itinerary, Cabin cabin, QDate today);

} // namespace Sample
