#pragma once

#include "Models/Airport.h"

#include <QObject>
#include <QQmlEngine>
#include <QStringList>

/// The choices of the search form as pickers show them. An entry's place in a list is the value of
/// its enumeration case.
class SearchChoices : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QList<QString> tripTypes READ tripTypes CONSTANT)
    Q_PROPERTY(QList<QString> cabinClasses READ cabinClasses CONSTANT)
    Q_PROPERTY(QList<QString> timeRanges READ timeRanges CONSTANT)
    Q_PROPERTY(QList<QString> sortOptions READ sortOptions CONSTANT)

public:
    using QObject::QObject;

    QStringList tripTypes() const;
    QStringList cabinClasses() const;
    QStringList timeRanges() const;
    QStringList sortOptions() const;

    /// The codes of the airports that match what was typed; of all while nothing is.
    Q_INVOKABLE QStringList airports(const QString &query) const;
    Q_INVOKABLE Airport airport(const QString &code) const;
};
