#pragma once

#include "ViewModels/FlightSearchViewModel.h"

#include <QJsonObject>

/// Everything that the view model publishes, under the names of its properties. Records are objects
/// of their properties; an absent value is null; dates are ISO 8601 texts.
QJsonObject stateOf(const FlightSearchViewModel &viewModel);
