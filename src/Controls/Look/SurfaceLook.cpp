#include "Controls/Look/SurfaceLook.h"

#include "Controls/Look/ContinuousCorners.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

qreal SurfaceLook::shadowMargin() const
{
    if (shadowColor.alpha() == 0)
        return 0;
    return std::ceil(1.5 * shadowRadius + std::abs(shadowOffset));
}

QImage SurfaceLook::canvas(QImage::Format format) const
{
    const qreal margin = shadowMargin();
    const QSizeF outer = size + 2 * QSizeF(margin, margin);
    QImage image((outer * devicePixelRatio).toSize(), format);
    image.fill(0);
    image.setDevicePixelRatio(devicePixelRatio);
    return image;
}

QImage SurfaceLook::paintShadow() const
{
    const qreal margin = shadowMargin();
    QImage mask = canvas(QImage::Format_Alpha8);
    QPainter painter(&mask);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(
        continuousCorners(QRectF(QPointF(margin, margin + shadowOffset), size), radius), Qt::black);
    painter.end();
    return blurred(mask, shadowRadius / 2 * devicePixelRatio);
}

QImage SurfaceLook::paint() const
{
    const qreal margin = shadowMargin();
    QImage image = canvas(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    if (margin > 0) {
        QImage shadow = image;
        shadow.fill(shadowColor);
        QPainter shadowPainter(&shadow);
        shadowPainter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        shadowPainter.drawImage(QPointF(), paintShadow());
        shadowPainter.end();
        painter.drawImage(QPointF(), shadow);
    }

    const QRectF bounds(QPointF(margin, margin), size);
    const QPainterPath outline = continuousCorners(bounds, radius);
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
