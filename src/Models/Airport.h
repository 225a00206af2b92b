#pragma once

#include "Models/Record.h"

#include <QMetaType>
#include <QString>

/// One airport of the fixed table. Its identity is its code.
struct Airport
{
    Q_GADGET
    Q_PROPERTY(QString code MEMBER code CONSTANT)
    Q_PROPERTY(QString city MEMBER city CONSTANT)
    Q_PROPERTY(QString name MEMBER name CONSTANT)
    Q_PROPERTY(QString country MEMBER country CONSTANT)
    Q_PROPERTY(bool hub MEMBER hub CONSTANT)

public:
    QString code; ///< three-letter IATA code, upper case
    QString city; ///< English spelling
    QString name;
    QString country; ///< empty for an airport that is not in the table
    bool hub = false; ///< a home hub of the airline

    QString id() const { return code; }

    QJsonObject toJson() const { return propertiesOf(*this); }
    /// Throws DecodingError when a member is missing or of another type.
    static Airport fromJson(const QJsonObject &json);

    friend bool operator==(const Airport &, const Airport &) = default;
};
