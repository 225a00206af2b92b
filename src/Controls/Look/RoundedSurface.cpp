#include "Controls/Look/RoundedSurface.h"

#include "Controls/Look/ContinuousCorners.h"
#include "Controls/Look/SurfaceLook.h"

#include <QHash>
#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGNinePatchNode>
#include <QSGRendererInterface>
#include <QSGTextureMaterial>

#include <cmath>
#include <memory>
#include <optional>

namespace {

/// What surfaces of one look in one window share: a texture, or on the software scene graph, which
/// has none to share, the image.
struct SurfacePicture
{
    QImage image;
    std::unique_ptr<QSGTexture> texture;
};

bool isSoftware(const QQuickWindow *window)
{
    return window->rendererInterface()->graphicsApi() == QSGRendererInterface::Software;
}

/// The picture lives as long as a node that draws it. Only the render thread, which runs while the
/// main thread waits, comes here.
std::shared_ptr<SurfacePicture> sharedPicture(QQuickWindow *window, const SurfaceLook &look)
{
    static QHash<std::pair<const QQuickWindow *, SurfaceLook>, std::weak_ptr<SurfacePicture>> all;
    std::weak_ptr<SurfacePicture> &known = all[{ window, look }];
    if (auto picture = known.lock())
        return picture;
    auto picture = std::make_shared<SurfacePicture>();
    picture->image = look.paint();
    if (!isSoftware(window)) {
        picture->texture.reset(window->createTextureFromImage(picture->image));
        picture->image = {};
    }
    known = picture;
    all.removeIf([](const auto &entry) { return entry.value().expired(); });
    return picture;
}

/// Draws one picture, either stretched in the middle or as it is. The scene graph's own nine-patch
/// would take the texture for its own.
class SurfaceNode : public QSGNode
{
public:
    SurfaceNode(QQuickWindow *window, bool stretches)
        : m_window(window)
        , m_stretches(stretches)
    {
        if (!stretches) {
            m_image = window->createImageNode();
            m_image->setFiltering(QSGTexture::Linear);
            appendChildNode(m_image);
        } else if (isSoftware(window)) {
            m_softwarePatch = window->createNinePatchNode();
            appendChildNode(m_softwarePatch);
        } else {
            m_patch.setGeometry(&m_patchGeometry);
            m_patch.setMaterial(&m_patchMaterial);
            m_patch.setFlag(QSGNode::OwnedByParent, false);
            appendChildNode(&m_patch);
        }
    }
    ~SurfaceNode() override
    {
        // They use the texture, which goes with this node.
        removeAllChildNodes();
        delete m_image;
        delete m_softwarePatch;
    }

    bool stretches() const { return m_stretches; }

    void setLook(const SurfaceLook &look)
    {
        if (m_look == look)
            return;
        m_look = look;
        const auto picture = sharedPicture(m_window, look);
        QSGTexture *texture = picture->texture.get();
        const bool isOwn = !texture;
        if (isOwn)
            texture = m_window->createTextureFromImage(picture->image);
        if (m_image) {
            m_image->setOwnsTexture(isOwn);
            m_image->setTexture(texture);
        } else if (m_softwarePatch) {
            m_softwarePatch->setTexture(texture);
        } else {
            m_patchMaterial.setTexture(texture);
            m_patch.markDirty(DirtyMaterial);
        }
        m_picture = picture;
    }

    /// `padding` is what of each side is not stretched.
    void setBounds(const QRectF &bounds, qreal padding)
    {
        const qreal ratio = m_look->devicePixelRatio;
        if (m_image) {
            m_image->setRect(bounds);
        } else if (m_softwarePatch) {
            m_softwarePatch->setDevicePixelRatio(ratio);
            m_softwarePatch->setPadding(padding, padding, padding, padding);
            m_softwarePatch->setBounds(bounds);
            m_softwarePatch->update();
        } else {
            const auto sides = static_cast<float>(padding);
            QSGNinePatchNode::rebuildGeometry(m_patchMaterial.texture(), &m_patchGeometry,
                                              QVector4D(sides, sides, sides, sides), bounds, ratio);
            m_patch.markDirty(DirtyGeometry);
        }
    }

private:
    QQuickWindow *m_window;
    const bool m_stretches;
    std::optional<SurfaceLook> m_look;
    std::shared_ptr<SurfacePicture> m_picture;
    // One of the three draws.
    QSGImageNode *m_image = nullptr;
    QSGNinePatchNode *m_softwarePatch = nullptr;
    QSGGeometryNode m_patch;
    QSGGeometry m_patchGeometry { QSGGeometry::defaultAttributes_TexturedPoint2D(), 0 };
    QSGTextureMaterial m_patchMaterial;
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
    if (width() <= 0 || height() <= 0) {
        delete node;
        return nullptr;
    }

    // Corner and shadow in one patch, and one pixel between two of them to stretch.
    const qreal patch = std::ceil(continuousCornerExtent(m_radius)) + 1;
    const QSizeF patchSize(2 * patch + 1, 2 * patch + 1);
    const bool stretches =
        !m_gradientEnd.isValid() && width() >= patchSize.width() && height() >= patchSize.height();
    if (node && node->stretches() != stretches) {
        delete node;
        node = nullptr;
    }
    if (!node)
        node = new SurfaceNode(window(), stretches);

    const SurfaceLook look { .size = stretches ? patchSize : size(),
                             .devicePixelRatio = window()->effectiveDevicePixelRatio(),
                             .radius = m_radius,
                             .color = m_color,
                             .gradientEnd = m_gradientEnd,
                             .gradientIsUpright = m_gradientIsUpright,
                             .borderColor = m_borderColor,
                             .borderWidth = m_borderWidth,
                             .shadowColor = m_shadowColor,
                             .shadowRadius = m_shadowRadius,
                             .shadowOffset = m_shadowOffset };
    node->setLook(look);
    const qreal margin = look.shadowMargin();
    node->setBounds(boundingRect().adjusted(-margin, -margin, margin, margin), margin + patch);
    return node;
}
