#pragma once

#include <QImage>
#include <QPainterPath>
#include <QRectF>

/// How far along each edge a continuous corner of this radius reaches: further than a circular one,
/// since its curvature grows gradually.
qreal continuousCornerExtent(qreal radius);

/// The outline of a rectangle with continuous corners. A radius that does not fit is reduced.
QPainterPath continuousCorners(const QRectF &bounds, qreal radius);

/// An 8-bit alpha mask blurred by a Gaussian of this standard deviation, in pixels.
QImage blurred(const QImage &mask, qreal deviation);
