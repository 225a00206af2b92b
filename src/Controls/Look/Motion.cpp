#include "Controls/Look/Motion.h"

#include <cmath>
#include <numbers>

namespace {

const Spring &swapSpring()
{
    static const Spring spring(0.35, 0.7);
    return spring;
}

} // namespace

int Motion::swapDuration() const
{
    return static_cast<int>(std::lround(1000 * swapSpring().settlingTime()));
}

QVariantList Motion::swapCurve() const { return swapSpring().bezierSpline(); }

Spring::Spring(double response, double dampingFraction)
    : m_frequency(2 * std::numbers::pi / response)
    , m_damping(dampingFraction)
{ }

double Spring::position(double seconds) const
{
    const double damped = m_frequency * std::sqrt(1 - m_damping * m_damping);
    const double decay = std::exp(-m_damping * m_frequency * seconds);
    return 1
        - decay
        * (std::cos(damped * seconds)
           + m_damping * m_frequency / damped * std::sin(damped * seconds));
}

double Spring::velocity(double seconds) const
{
    const double damped = m_frequency * std::sqrt(1 - m_damping * m_damping);
    const double decay = std::exp(-m_damping * m_frequency * seconds);
    return decay * m_frequency * m_frequency / damped * std::sin(damped * seconds);
}

double Spring::settlingTime() const { return std::log(1000) / (m_damping * m_frequency); }

QVariantList Spring::bezierSpline() const
{
    // Qt 6.4 keeps room for ten pieces of an easing curve and writes beyond it for more.
    constexpr int pieces = 10;
    const double duration = settlingTime();
    QVariantList spline;
    for (int piece = 0; piece < pieces; ++piece) {
        const double start = double(piece) / pieces;
        const double end = double(piece + 1) / pieces;
        const double third = (end - start) / 3;
        const double startSlope = velocity(start * duration) * duration;
        const double endSlope = velocity(end * duration) * duration;
        const double endPosition = piece + 1 == pieces ? 1.0 : position(end * duration);
        spline << start + third << position(start * duration) + third * startSlope //
               << end - third << endPosition - third * endSlope //
               << end << endPosition;
    }
    return spline;
}
