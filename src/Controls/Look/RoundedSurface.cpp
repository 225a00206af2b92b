#include "Controls/Look/RoundedSurface.h"

#include "Controls/Look/ContinuousCorners.h"

#include <QCache>
#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGNinePatchNode>

#include <algorithm>
#include <cmath>

namespace {

enum class NodeKind { Image, NinePatch };

/// The texture node behind one surface, either stretched in the middle or drawn as it is.
class SurfaceNode : public QSGNode
{
public:
    explicit SurfaceNode(NodeKind nodeKind)
        : kind(nodeKind)
    { }

    const NodeKind kind;
};

/// Surfaces of one look share their image. Only the render thread, which runs while the main thread
/// waits, comes here.
QCache<QString, QImage> &images()
{
    static QCache<QString, QImage> cache(32 * 1024 * 1024);
    return cache;
}

} // namespace

RoundedSurface::RoundedSurface(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &RoundedSurface::lookChanged, this, &QQuickItem::update);
}

void RoundedSurface::itemChange(ItemChange change, const ItemChangeData &data)
{
    // The image is drawn for one scale.
    if (change == ItemDevicePixelRatioHasChanged)
        update();
    QQuickItem::itemChange(change, data);
}

qreal RoundedSurface::shadowMargin() const
{
    if (m_shadowColor.alpha() == 0)
        return 0;
    return std::ceil(1.5 * m_shadowRadius + std::abs(m_shadowOffset));
}

QString RoundedSurface::imageKey(const QSizeF &size, qreal devicePixelRatio) const
{
    QString key;
    QDebug(&key).nospace() << size.width() << 'x' << size.height() << '@' << devicePixelRatio << ' '
                           << m_radius << ' ' << m_color.rgba() << ' '
                           << (m_gradientEnd.isValid() ? qint64(m_gradientEnd.rgba()) : -1) << ' '
                           << m_borderColor.rgba() << ' ' << m_borderWidth << ' '
                           << m_shadowColor.rgba() << ' ' << m_shadowRadius << ' '
                           << m_shadowOffset;
    return key;
}

QImage RoundedSurface::paintShadow(const QSizeF &size, qreal devicePixelRatio) const
{
    const qreal margin = shadowMargin();
    const QSizeF outer = size + 2 * QSizeF(margin, margin);
    QImage mask((outer * devicePixelRatio).toSize(), QImage::Format_Alpha8);
    mask.fill(0);
    mask.setDevicePixelRatio(devicePixelRatio);
    QPainter painter(&mask);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(
        continuousCorners(QRectF(QPointF(margin, margin + m_shadowOffset), size), m_radius),
        Qt::black);
    painter.end();
    return blurred(mask, m_shadowRadius / 2 * devicePixelRatio);
}

QImage RoundedSurface::paint(const QSizeF &size, qreal devicePixelRatio) const
{
    const qreal margin = shadowMargin();
    const QSizeF outer = size + 2 * QSizeF(margin, margin);
    QImage image((outer * devicePixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    image.setDevicePixelRatio(devicePixelRatio);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    if (margin > 0) {
        QImage shadow = image;
        shadow.fill(m_shadowColor);
        QPainter shadowPainter(&shadow);
        shadowPainter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        shadowPainter.drawImage(QPointF(), paintShadow(size, devicePixelRatio));
        shadowPainter.end();
        painter.drawImage(QPointF(), shadow);
    }

    const QRectF bounds(QPointF(margin, margin), size);
    const QPainterPath outline = continuousCorners(bounds, m_radius);
    QBrush fill(m_color);
    if (m_gradientEnd.isValid()) {
        QLinearGradient gradient(bounds.topLeft(), bounds.bottomRight());
        gradient.setColorAt(0, m_color);
        gradient.setColorAt(1, m_gradientEnd);
        fill = gradient;
    }
    painter.fillPath(outline, fill);
    if (m_borderWidth > 0 && m_borderColor.alpha() > 0) {
        const QRectF inner =
            bounds.adjusted(m_borderWidth, m_borderWidth, -m_borderWidth, -m_borderWidth);
        const QPainterPath hole =
            continuousCorners(inner, std::max<qreal>(m_radius - m_borderWidth, 0));
        painter.fillPath(outline.subtracted(hole), m_borderColor);
    }
    return image;
}

QSGNode *RoundedSurface::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<SurfaceNode *>(oldNode);
    if (width() <= 0 || height() <= 0) {
        delete node;
        return nullptr;
    }

    const qreal ratio = window()->effectiveDevicePixelRatio();
    // Corner and shadow in one patch, and one pixel between two of them to stretch.
    const qreal patch = std::ceil(continuousCornerExtent(m_radius)) + 1;
    const QSizeF patchSize(2 * patch + 1, 2 * patch + 1);
    const bool stretches =
        !m_gradientEnd.isValid() && width() >= patchSize.width() && height() >= patchSize.height();
    const NodeKind kind = stretches ? NodeKind::NinePatch : NodeKind::Image;
    if (node && node->kind != kind) {
        delete node;
        node = nullptr;
    }
    const bool isNew = !node;
    if (isNew) {
        node = new SurfaceNode(kind);
        node->appendChildNode(stretches ? static_cast<QSGNode *>(window()->createNinePatchNode())
                                        : static_cast<QSGNode *>(window()->createImageNode()));
    }

    const QSizeF imageSize = stretches ? patchSize : size();
    const QString key = imageKey(imageSize, ratio);
    const qreal margin = shadowMargin();
    const QRectF bounds = boundingRect().adjusted(-margin, -margin, margin, margin);
    QSGTexture *texture = nullptr;
    if (isNew || key != m_drawnKey) {
        if (!images().contains(key)) {
            auto *image = new QImage(paint(imageSize, ratio));
            const qsizetype cost = image->sizeInBytes();
            texture = window()->createTextureFromImage(*image, QQuickWindow::TextureCanUseAtlas);
            images().insert(key, image, cost);
        } else {
            texture = window()->createTextureFromImage(*images().object(key),
                                                       QQuickWindow::TextureCanUseAtlas);
        }
        m_drawnKey = key;
    }

    if (stretches) {
        auto *ninePatch = static_cast<QSGNinePatchNode *>(node->firstChild());
        if (texture)
            ninePatch->setTexture(texture);
        ninePatch->setDevicePixelRatio(ratio);
        const qreal padding = margin + patch;
        ninePatch->setPadding(padding, padding, padding, padding);
        ninePatch->setBounds(bounds);
        ninePatch->update();
    } else {
        auto *image = static_cast<QSGImageNode *>(node->firstChild());
        if (texture) {
            image->setOwnsTexture(true);
            image->setTexture(texture);
        }
        image->setFiltering(QSGTexture::Linear);
        image->setRect(bounds);
    }
    return node;
}
