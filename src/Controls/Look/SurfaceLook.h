#pragma once

#include <QColor>
#include <QHashFunctions>
#include <QImage>
#include <QSize>

/// What a RoundedSurface looks like: all that its picture depends on, in device pixels.
struct SurfaceLook
{
    QSize size; ///< not empty
    qreal radius = 0;
    QColor color;
    QColor gradientEnd; ///< invalid for one colour
    bool gradientIsUpright = false;
    QColor borderColor;
    qreal borderWidth = 0;
    QColor shadowColor;
    qreal shadowRadius = 0; ///< twice the standard deviation of the blur
    qreal shadowOffset = 0; ///< downwards

    /// How far the shadow reaches beyond the surface; 0 when there is none.
    int margin() const;
    /// How much of each side belongs to a corner. The rest may be stretched, unless there is a
    /// gradient.
    int cornerExtent() const;
    /// The surface with the margin around it.
    QImage paint() const;

    friend bool operator==(const SurfaceLook &, const SurfaceLook &) = default;
    friend size_t qHash(const SurfaceLook &look, size_t seed = 0)
    {
        return qHashMulti(seed, look.size, look.radius, look.color.rgba(), look.gradientEnd.rgba(),
                          look.gradientIsUpright, look.borderColor.rgba(), look.borderWidth,
                          look.shadowColor.rgba(), look.shadowRadius, look.shadowOffset);
    }
};
