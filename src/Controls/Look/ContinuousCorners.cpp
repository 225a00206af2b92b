#include "Controls/Look/ContinuousCorners.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

// A corner is a quarter of a superellipse, whose curvature is zero where it meets the edges. With
// this extent the exponent makes it cross the diagonal where the circle of the same radius does.
constexpr qreal extentOfRadius = 1.5;
constexpr qreal exponent = 3.19;
constexpr int stepsPerCorner = 24;

/// The corner from the end of one edge to the start of the next. `along` and `across` are unit
/// vectors from the corner of the rectangle towards the start and the end of the curve.
void addCorner(QPainterPath &path, QPointF corner, QPointF along, QPointF across, qreal extent)
{
    for (int step = 0; step <= stepsPerCorner; ++step) {
        const qreal angle = M_PI_2 * step / stepsPerCorner;
        const qreal fromStart = 1 - std::pow(std::cos(angle), 2 / exponent);
        const qreal fromEnd = 1 - std::pow(std::sin(angle), 2 / exponent);
        const QPointF point = corner + extent * (fromEnd * along + fromStart * across);
        if (path.elementCount() == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
}

void blurRow(const std::vector<qreal> &kernel, const uchar *from, uchar *to, int length, int stride)
{
    const int reach = static_cast<int>(kernel.size()) / 2;
    for (int i = 0; i < length; ++i) {
        qreal sum = 0;
        for (int k = -reach; k <= reach; ++k) {
            const int at = i + k;
            if (at >= 0 && at < length)
                sum += kernel[static_cast<size_t>(k + reach)] * from[at * stride];
        }
        to[i * stride] = static_cast<uchar>(std::lround(sum));
    }
}

} // namespace

qreal continuousCornerExtent(qreal radius) { return extentOfRadius * radius; }

QPainterPath continuousCorners(const QRectF &bounds, qreal radius)
{
    QPainterPath path;
    const qreal half = std::min(bounds.width(), bounds.height()) / 2;
    if (radius <= 0 || half <= 0) {
        path.addRect(bounds);
        return path;
    }
    if (radius >= half) {
        path.addRoundedRect(bounds, half, half);
        return path;
    }
    const qreal extent = std::min(continuousCornerExtent(radius), half);
    const QPointF right(1, 0);
    const QPointF down(0, 1);
    addCorner(path, bounds.topLeft(), down, right, extent);
    addCorner(path, bounds.topRight(), -right, down, extent);
    addCorner(path, bounds.bottomRight(), -down, -right, extent);
    addCorner(path, bounds.bottomLeft(), right, -down, extent);
    path.closeSubpath();
    return path;
}

QImage blurred(const QImage &mask, qreal deviation)
{
    const int reach = static_cast<int>(std::ceil(3 * deviation));
    if (reach <= 0)
        return mask;
    std::vector<qreal> kernel(static_cast<size_t>(2 * reach + 1));
    qreal sum = 0;
    for (int k = -reach; k <= reach; ++k) {
        const qreal weight = std::exp(-k * k / (2 * deviation * deviation));
        kernel[static_cast<size_t>(k + reach)] = weight;
        sum += weight;
    }
    for (qreal &weight : kernel)
        weight /= sum;

    QImage rows = mask;
    for (int y = 0; y < mask.height(); ++y)
        blurRow(kernel, mask.constScanLine(y), rows.scanLine(y), mask.width(), 1);
    QImage result = rows;
    const int stride = static_cast<int>(rows.bytesPerLine());
    for (int x = 0; x < mask.width(); ++x)
        blurRow(kernel, rows.constBits() + x, result.bits() + x, mask.height(), stride);
    return result;
}
