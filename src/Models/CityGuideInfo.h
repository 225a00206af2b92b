#pragma once

#include <QMetaType>
#include <QString>
#include <QStringList>

#include <optional>

/// The travel guide of one city. Its identity is the city. Lists keep the server's order.
struct CityGuideInfo
{
    Q_GADGET
    Q_PROPERTY(QString city MEMBER city CONSTANT)
    Q_PROPERTY(QString country MEMBER country CONSTANT)
    Q_PROPERTY(QString overview MEMBER overview CONSTANT)
    Q_PROPERTY(QString bestTimeToVisit READ bestTimeToVisitText CONSTANT)
    // Written so, and not as QStringList, for the sake of QML's list<string>.
    Q_PROPERTY(QList<QString> topAttractions MEMBER topAttractions CONSTANT)
    Q_PROPERTY(QList<QString> culinaryHighlights MEMBER culinaryHighlights CONSTANT)
    Q_PROPERTY(QList<QString> localTips MEMBER localTips CONSTANT)

public:
    QString city;
    QString country;
    QString overview;
    std::optional<QString> bestTimeToVisit; ///< advice on the season
    QStringList topAttractions;
    QStringList culinaryHighlights;
    QStringList localTips;

    QString id() const { return city; }
    /// Empty when there is no advice.
    QString bestTimeToVisitText() const { return bestTimeToVisit.value_or(QString()); }
};
