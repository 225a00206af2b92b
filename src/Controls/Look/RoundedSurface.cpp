#include "Controls/Look/RoundedSurface.h"

#include "Controls/Look/SurfaceLook.h"

#include <QCache>
#include <QQuickWindow>
#include <QSGNinePatchNode>
#include <QSGTransformNode>

#include <optional>

namespace {

/// Painted once for all surfaces of the look, and kept for as long as others do not need the room.
/// Called from updatePaintNode() alone, while the main thread is blocked.
QImage picture(const SurfaceLook &look)
{
    constexpr int room = 1 << 20; // bytes
    static QCache<SurfaceLook, QImage> pictures(room);
    if (const QImage *known = pictures.object(look))
        return *known;
    QImage image = look.paint();
    pictures.insert(look, new QImage(image), static_cast<int>(image.sizeInBytes()));
    return image;
}

/// A picture whose middle is stretched. It is laid out in device pixels: scaled by a fraction, the
/// software renderer would leave seams between the patches.
class SurfaceNode : public QSGTransformNode
{
public:
    explicit SurfaceNode(QQuickWindow *window)
        : m_window(window)
        , m_patches(window->createNinePatchNode())
    {
        m_patches->setDevicePixelRatio(1);
        appendChildNode(m_patches);
    }

    void update(SurfaceLook look, qreal devicePixelRatio)
    {
        QMatrix4x4 matrix;
        matrix.scale(static_cast<float>(1 / devicePixelRatio));
        setMatrix(matrix);

        const int margin = look.margin();
        m_patches->setBounds(QRect(QPoint(), look.size).adjusted(-margin, -margin, margin, margin));
        const int corner = look.cornerExtent();
        const QSize smallest(2 * corner + 1, 2 * corner + 1); // one pixel is stretched
        const bool stretches =
            !look.gradientEnd.isValid() && look.size.expandedTo(smallest) == look.size;
        const int padding = stretches ? margin + corner : 0;
        m_patches->setPadding(padding, padding, padding, padding);
        if (stretches)
            look.size = smallest;
        if (m_look != look)
            m_patches->setTexture(m_window->createTextureFromImage(picture(look)));
        m_look = look;
        m_patches->update();
    }

private:
    QQuickWindow *m_window;
    QSGNinePatchNode *m_patches;
    std::optional<SurfaceLook> m_look;
};

} // namespace

RoundedSurface::RoundedSurface(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    connect(this, &RoundedSurface::lookChanged, this, &QQuickItem::update);
}

void RoundedSurface::itemChange(ItemChange change, const ItemChangeData &data)
{
    // The picture is drawn for one scale.
    if (change == ItemDevicePixelRatioHasChanged)
        update();
    QQuickItem::itemChange(change, data);
}

QSGNode *RoundedSurface::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<SurfaceNode *>(oldNode);
    const qreal ratio = window()->effectiveDevicePixelRatio();
    const QSize pixels = (size() * ratio).toSize();
    if (pixels.isEmpty()) {
        delete node;
        return nullptr;
    }
    if (!node)
        node = new SurfaceNode(window());
    node->update({ .size = pixels,
                   .radius = m_radius * ratio,
                   .color = m_color,
                   .gradientEnd = m_gradientEnd,
                   .gradientIsUpright = m_gradientIsUpright,
                   .borderColor = m_borderColor,
                   .borderWidth = m_borderWidth * ratio,
                   .shadowColor = m_shadowColor,
                   .shadowRadius = m_shadowRadius * ratio,
                   .shadowOffset = m_shadowOffset * ratio },
                 ratio);
    return node;
}
