#pragma once

#include <QObject>
#include <QQmlEngine>

/// Every duration of the window, in milliseconds, each under one name.
class Motion : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// A new calendar or new flights coming in: the chart opening, its bars growing, the cards.
    Q_PROPERTY(int resultsDuration READ resultsDuration CONSTANT)
    /// Cards changing places when they are sorted or filtered.
    Q_PROPERTY(int resortDuration READ resortDuration CONSTANT)
    /// A sheet opening or closing.
    Q_PROPERTY(int sheetDuration READ sheetDuration CONSTANT)
    /// A control answering the pointer.
    Q_PROPERTY(int hoverDuration READ hoverDuration CONSTANT)

public:
    using QObject::QObject;

    int resultsDuration() const { return 300; }
    int resortDuration() const { return 200; }
    int sheetDuration() const { return 180; }
    int hoverDuration() const { return 120; }
};
