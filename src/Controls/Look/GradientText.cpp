#include "Controls/Look/GradientText.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

GradientText::GradientText(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    connect(this, &GradientText::contentChanged, this, &GradientText::fit);
}

void GradientText::fit()
{
    const QFontMetricsF metrics(m_font);
    setImplicitSize(metrics.horizontalAdvance(m_text), metrics.height());
    setBaselineOffset(metrics.ascent());
    update();
}

void GradientText::paint(QPainter *painter)
{
    QLinearGradient gradient(boundingRect().topLeft(), boundingRect().bottomRight());
    gradient.setColorAt(0, m_startColor);
    gradient.setColorAt(1, m_endColor);
    QPainterPath glyphs;
    glyphs.addText(QPointF(0, QFontMetricsF(m_font).ascent()), m_font, m_text);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->fillPath(glyphs, gradient);
}
