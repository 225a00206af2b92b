#pragma once

#include "Models/FlightStatusResult.h"

#include <QObject>
#include <QQmlEngine>

/// The texts of the status card.
class FlightStatusFormat : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// "Tahmini: 12:05"; empty when nothing else is expected than what is scheduled.
    Q_INVOKABLE QString estimateText(const QString &scheduled, const QString &estimated) const;
    /// The whole card, for assistive technology: number, status, airports and times, places.
    Q_INVOKABLE QString accessibleName(const FlightStatusResult &result) const;
};
