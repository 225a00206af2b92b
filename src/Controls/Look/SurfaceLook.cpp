#include "Controls/Look/SurfaceLook.h"

#include <QPainter>
#include <QPainterPath>

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
void addCorner(QPolygonF &outline, QPointF corner, QPointF along, QPointF across, qreal extent)
{
    for (int step = 0; step <= stepsPerCorner; ++step) {
        const qreal angle = M_PI_2 * step / stepsPerCorner;
        const qreal fromStart = 1 - std::pow(std::cos(angle), 2 / exponent);
        const qreal fromEnd = 1 - std::pow(std::sin(angle), 2 / exponent);
        outline.append(corner + extent * (fromEnd * along + fromStart * across));
    }
}

/// The outline of a rectangle with continuous corners. A radius that does not fit is reduced.
QPainterPath continuousCorners(const QRectF &bounds, qreal radius)
{
    QPainterPath path;
    const qreal half = std::min(bounds.width(), bounds.height()) / 2;
    if (radius <= 0 || half <= 0) {
        path.addRect(bounds);
    } else if (radius >= half) {
        path.addRoundedRect(bounds, half, half);
    } else {
        const qreal extent = std::min(extentOfRadius * radius, half);
        const QPointF right(1, 0);
        const QPointF down(0, 1);
        QPolygonF outline;
        addCorner(outline, bounds.topLeft(), down, right, extent);
        addCorner(outline, bounds.topRight(), -right, down, extent);
        addCorner(outline, bounds.bottomRight(), -down, -right, extent);
        addCorner(outline, bounds.bottomLeft(), right, -down, extent);
        path.addPolygon(outline);
        path.closeSubpath();
    }
    return path;
}

std::vector<float> gaussian(qreal deviation)
{
    const int reach = static_cast<int>(std::ceil(3 * deviation));
    std::vector<float> kernel;
    float sum = 0;
    for (int k = -reach; k <= reach; ++k) {
        kernel.push_back(static_cast<float>(std::exp(-k * k / (2 * deviation * deviation))));
        sum += kernel.back();
    }
    for (float &weight : kernel)
        weight /= sum;
    return kernel;
}

/// Blurs each row of an alpha mask and swaps rows and columns: done twice, it blurs both ways.
/// Around the mask there is nothing.
QImage blurredRows(const QImage &mask, const std::vector<float> &kernel)
{
    const int width = mask.width();
    const int reach = static_cast<int>(kernel.size() / 2);
    QImage result(mask.height(), width, mask.format());
    uchar *const bits = result.bits();
    std::vector<float> sums;
    for (int y = 0; y < mask.height(); ++y) {
        const uchar *row = mask.constScanLine(y);
        sums.assign(static_cast<size_t>(width), 0.5F); // rounds
        for (int k = -reach; k <= reach; ++k) {
            const float weight = kernel[static_cast<size_t>(k + reach)];
            const int end = std::min(width, width - k);
            for (int x = std::max(0, -k); x < end; ++x)
                sums[static_cast<size_t>(x)] += weight * row[x + k];
        }
        for (int x = 0; x < width; ++x)
            bits[x * result.bytesPerLine() + y] = static_cast<uchar>(sums[static_cast<size_t>(x)]);
    }
    return result;
}

} // namespace

int SurfaceLook::margin() const
{
    if (shadowColor.alpha() == 0)
        return 0;
    return static_cast<int>(std::ceil(1.5 * shadowRadius + std::abs(shadowOffset)));
}

int SurfaceLook::cornerExtent() const
{
    return static_cast<int>(std::ceil(extentOfRadius * radius)) + 1;
}

QImage SurfaceLook::paint() const
{
    const QRectF bounds(QPointF(margin(), margin()), size);
    QImage image(size + 2 * QSize(margin(), margin()), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPainterPath outline = continuousCorners(bounds, radius);
    if (margin() > 0) {
        QImage mask(image.size(), QImage::Format_Alpha8);
        mask.fill(0);
        QPainter maskPainter(&mask);
        maskPainter.setRenderHint(QPainter::Antialiasing);
        maskPainter.fillPath(outline.translated(0, shadowOffset), Qt::black);
        maskPainter.end();
        const std::vector<float> kernel = gaussian(shadowRadius / 2);
        painter.fillRect(image.rect(), shadowColor);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.drawImage(QPointF(), blurredRows(blurredRows(mask, kernel), kernel));
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }

    QBrush fill(color);
    if (gradientEnd.isValid()) {
        QLinearGradient gradient(bounds.topLeft(),
                                 gradientIsUpright ? bounds.bottomLeft() : bounds.bottomRight());
        gradient.setColorAt(0, color);
        gradient.setColorAt(1, gradientEnd);
        fill = gradient;
    }
    painter.fillPath(outline, fill);
    if (borderWidth > 0 && borderColor.alpha() > 0) {
        const QRectF inner = bounds.adjusted(borderWidth, borderWidth, -borderWidth, -borderWidth);
        const QPainterPath hole =
            continuousCorners(inner, std::max<qreal>(radius - borderWidth, 0));
        painter.fillPath(outline.subtracted(hole), borderColor);
    }
    return image;
}
