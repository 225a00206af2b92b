#include "Models/FlightOption.h"

#include "Models/MoneyText.h"

QString FlightOption::formattedPrice() const { return MoneyText::currency(price, currency); }
