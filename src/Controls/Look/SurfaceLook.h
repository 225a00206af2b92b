#pragma once

#include <QColor>
#include <QHashFunctions>
#include <QImage>
#include <QSizeF>

/// What a RoundedSurface looks like: all that its picture depends on. Sizes are in
/// device-independent pixels.
struct SurfaceLook
{
    QSizeF size;
    qreal devicePixelRatio = 1;
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
    qreal shadowMargin() const;
    /// The surface with its shadow around it.
    QImage paint() const;

    friend bool operator==(const SurfaceLook &, const SurfaceLook &) = default;
    friend size_t qHash(const SurfaceLook &look, size_t seed = 0)
    {
        return qHashMulti(seed, look.size.width(), look.size.height(), look.devicePixelRatio,
                          look.radius, look.color.rgba(), look.gradientEnd.rgba(),
                          look.gradientIsUpright, look.borderColor.rgba(), look.borderWidth,
                          look.shadowColor.rgba(), look.shadowRadius, look.shadowOffset);
    }

private:
    /// An empty image with room for the surface and its shadow.
    QImage canvas(QImage::Format format) const;
    QImage paintShadow() const;
};
