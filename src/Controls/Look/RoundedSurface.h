#pragma once

#include <QColor>
#include <QQuickItem>

/// A rectangle with continuous corners: filled with a colour or a gradient, outlined
/// inside its edge, and casting a soft shadow outside its bounds. It draws a few textured triangles
/// on every scene graph, the software one included, and no offscreen layer.
class RoundedSurface : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY lookChanged)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY lookChanged)
    /// When set, the fill runs from `color` at the top left to this colour at the bottom right.
    Q_PROPERTY(QColor gradientEnd MEMBER m_gradientEnd NOTIFY lookChanged)
    /// The fill runs straight down instead.
    Q_PROPERTY(bool gradientIsUpright MEMBER m_gradientIsUpright NOTIFY lookChanged)
    Q_PROPERTY(QColor borderColor MEMBER m_borderColor NOTIFY lookChanged)
    Q_PROPERTY(qreal borderWidth MEMBER m_borderWidth NOTIFY lookChanged)
    Q_PROPERTY(QColor shadowColor MEMBER m_shadowColor NOTIFY lookChanged)
    /// Twice the standard deviation of the shadow's blur.
    Q_PROPERTY(qreal shadowRadius MEMBER m_shadowRadius NOTIFY lookChanged)
    Q_PROPERTY(qreal shadowOffset MEMBER m_shadowOffset NOTIFY lookChanged)

public:
    explicit RoundedSurface(QQuickItem *parent = nullptr);

Q_SIGNALS:
    void lookChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;

private:
    qreal m_radius = 0;
    QColor m_color = Qt::transparent;
    QColor m_gradientEnd;
    bool m_gradientIsUpright = false;
    QColor m_borderColor = Qt::transparent;
    qreal m_borderWidth = 0;
    QColor m_shadowColor = Qt::transparent;
    qreal m_shadowRadius = 0;
    qreal m_shadowOffset = 0;
};
