#pragma once

#include <QMetaType>
#include <QString>

#include <optional>

/// The live status of one flight. Of the optional texts an answer leaves only `date` (that of the
/// question) and `baggageBelt` absent: the reader fills the others when the server did not tell.
struct FlightStatusResult
{
    Q_GADGET
    Q_PROPERTY(QString id READ id CONSTANT)
    Q_PROPERTY(QString flightNumber MEMBER flightNumber CONSTANT)
    Q_PROPERTY(QString date READ dateText CONSTANT)
    Q_PROPERTY(QString status MEMBER status CONSTANT)
    Q_PROPERTY(QString originAirport MEMBER originAirport CONSTANT)
    Q_PROPERTY(QString originCity MEMBER originCity CONSTANT)
    Q_PROPERTY(QString destinationAirport MEMBER destinationAirport CONSTANT)
    Q_PROPERTY(QString destinationCity MEMBER destinationCity CONSTANT)
    Q_PROPERTY(QString scheduledDeparture MEMBER scheduledDeparture CONSTANT)
    Q_PROPERTY(QString estimatedDeparture READ estimatedDepartureText CONSTANT)
    Q_PROPERTY(QString scheduledArrival MEMBER scheduledArrival CONSTANT)
    Q_PROPERTY(QString estimatedArrival READ estimatedArrivalText CONSTANT)
    Q_PROPERTY(QString terminal READ terminalText CONSTANT)
    Q_PROPERTY(QString gate READ gateText CONSTANT)
    Q_PROPERTY(QString baggageBelt READ baggageBeltText CONSTANT)
    Q_PROPERTY(QString aircraftType READ aircraftTypeText CONSTANT)
    Q_PROPERTY(bool isDelayed READ isDelayed CONSTANT)
    Q_PROPERTY(bool isLanded READ isLanded CONSTANT)
    Q_PROPERTY(bool isInAir READ isInAir CONSTANT)

public:
    QString flightNumber;
    std::optional<QString> date; ///< "yyyy-MM-dd"
    QString status; ///< free text of the server, in any language
    QString originAirport; ///< airport code
    QString originCity;
    QString destinationAirport; ///< airport code
    QString destinationCity;
    QString scheduledDeparture; ///< local time of the airport, as displayed; so are the next three
    std::optional<QString> estimatedDeparture;
    QString scheduledArrival;
    std::optional<QString> estimatedArrival;
    std::optional<QString> terminal; ///< of the departure
    std::optional<QString> gate; ///< of the departure
    std::optional<QString> baggageBelt; ///< at the arrival
    std::optional<QString> aircraftType; ///< as displayed

    /// Flight number and date written together; the flight number alone without a date.
    QString id() const { return flightNumber + dateText(); }

    // The status is free text, so these look for English and Turkish stems in it. They overlap on
    // purpose: a delayed flight may be in the air.
    bool isDelayed() const;
    bool isLanded() const;
    bool isInAir() const;

    // For readers that take the empty text for an absent one.
    QString dateText() const { return date.value_or(QString()); }
    QString estimatedDepartureText() const { return estimatedDeparture.value_or(QString()); }
    QString estimatedArrivalText() const { return estimatedArrival.value_or(QString()); }
    QString terminalText() const { return terminal.value_or(QString()); }
    QString gateText() const { return gate.value_or(QString()); }
    QString baggageBeltText() const { return baggageBelt.value_or(QString()); }
    QString aircraftTypeText() const { return aircraftType.value_or(QString()); }
};
