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

void addWeighted(qreal *sums, const qreal *values, qreal weight, int count)
{
    for (int i = 0; i < count; ++i)
        sums[i] += weight * values[i];
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

    // Sums of whole rows, which the compiler makes fast; around the mask there is nothing.
    const int width = mask.width();
    const int height = mask.height();
    const size_t paddedWidth = size_t(width + 2 * reach);
    std::vector<qreal> rows(size_t(width) * size_t(height + 2 * reach));
    std::vector<qreal> padded(paddedWidth);
    for (int y = 0; y < height; ++y) {
        std::copy_n(mask.constScanLine(y), width, padded.begin() + reach);
        qreal *row = rows.data() + size_t(y + reach) * size_t(width);
        for (size_t k = 0; k < kernel.size(); ++k)
            addWeighted(row, padded.data() + k, kernel[k], width);
        for (int x = 0; x < width; ++x)
            row[x] = std::floor(row[x] + 0.5);
    }
    QImage result = mask;
    std::vector<qreal> sums(static_cast<size_t>(width));
    for (int y = 0; y < height; ++y) {
        std::fill(sums.begin(), sums.end(), 0);
        for (size_t k = 0; k < kernel.size(); ++k)
            addWeighted(sums.data(), rows.data() + (size_t(y) + k) * size_t(width), kernel[k],
                        width);
        std::transform(sums.begin(), sums.end(), result.scanLine(y),
                       [](qreal value) { return static_cast<uchar>(std::floor(value + 0.5)); });
    }
    return result;
}
