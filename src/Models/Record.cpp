#include "Models/Record.h"

#include <QMetaProperty>

QJsonObject propertiesOf(const QMetaObject &type, const void *gadget)
{
    QJsonObject json;
    for (int index = 0; index < type.propertyCount(); ++index) {
        const QMetaProperty property = type.property(index);
        json.insert(QString::fromLatin1(property.name()),
                    QJsonValue::fromVariant(property.readOnGadget(gadget)));
    }
    return json;
}
