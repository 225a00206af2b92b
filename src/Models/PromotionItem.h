#pragma once

#include "Models/Record.h"

#include <QMetaType>
#include <QString>

#include <optional>

/// One promotion of the airline. Its identity is its title.
struct PromotionItem
{
    Q_GADGET
    Q_PROPERTY(QString title MEMBER title CONSTANT)
    Q_PROPERTY(QString description MEMBER description CONSTANT)
    Q_PROPERTY(QString discount READ discountText CONSTANT)
    Q_PROPERTY(QString validUntil READ validUntilText CONSTANT)
    Q_PROPERTY(QString route READ routeText CONSTANT)

public:
    QString title;
    QString description;
    std::optional<QString> discount; ///< as displayed
    std::optional<QString> validUntil; ///< as displayed
    std::optional<QString> route; ///< the route the offer applies to, as displayed

    QString id() const { return title; }
    // For readers that take the empty text for an absent one.
    QString discountText() const { return discount.value_or(QString()); }
    QString validUntilText() const { return validUntil.value_or(QString()); }
    QString routeText() const { return route.value_or(QString()); }

    friend bool operator==(const PromotionItem &, const PromotionItem &) = default;
};
