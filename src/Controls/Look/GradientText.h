#pragma once

#include <QColor>
#include <QFont>
#include <QQuickPaintedItem>

/// One line of text filled with a gradient from its top left to its bottom right.
class GradientText : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString text MEMBER m_text NOTIFY contentChanged)
    Q_PROPERTY(QFont font MEMBER m_font NOTIFY contentChanged)
    Q_PROPERTY(QColor startColor MEMBER m_startColor NOTIFY contentChanged)
    Q_PROPERTY(QColor endColor MEMBER m_endColor NOTIFY contentChanged)

public:
    explicit GradientText(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void contentChanged();

private:
    void fit();

    QString m_text;
    QFont m_font;
    QColor m_startColor;
    QColor m_endColor;
};
