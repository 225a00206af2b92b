#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QVariantList>

/// Every duration (in milliseconds) and curve of the window, each under one name. A curve is what
/// an animation takes as `easing.bezierCurve` with the type Easing.BezierSpline.
class Motion : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// The airports changing places.
    Q_PROPERTY(int swapDuration READ swapDuration CONSTANT)
    Q_PROPERTY(QVariantList swapCurve READ swapCurve CONSTANT)
    /// A new calendar or new flights coming in: the chart opening, its bars growing, the cards.
    Q_PROPERTY(int resultsDuration READ resultsDuration CONSTANT)
    /// Cards changing places when they are sorted or filtered.
    Q_PROPERTY(int resortDuration READ resortDuration CONSTANT)
    /// A sheet opening or closing.
    Q_PROPERTY(int sheetDuration READ sheetDuration CONSTANT)
    /// A control answering the pointer.
    Q_PROPERTY(int hoverDuration READ hoverDuration CONSTANT)
    Q_PROPERTY(QVariantList easeInOut READ easeInOut CONSTANT)

public:
    using QObject::QObject;

    int swapDuration() const;
    QVariantList swapCurve() const;
    int resultsDuration() const { return 300; }
    int resortDuration() const { return 200; }
    int sheetDuration() const { return 180; }
    int hoverDuration() const { return 120; }
    QVariantList easeInOut() const { return { 0.42, 0.0, 0.58, 1.0, 1.0, 1.0 }; }
};

/// A spring from 0 to 1 that starts at rest.
class Spring
{
public:
    /// `response` is the period without damping, in seconds; `dampingFraction` is below 1.
    Spring(double response, double dampingFraction);

    double position(double seconds) const;
    double velocity(double seconds) const;
    /// When the spring has come within a thousandth of its end for good, in seconds.
    double settlingTime() const;
    /// The spring as cubic Bézier pieces over its settling time, both axes scaled to 1.
    QVariantList bezierSpline() const;

private:
    double m_frequency; ///< radians per second
    double m_damping;
};
