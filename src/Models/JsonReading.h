#pragma once

#include <QException>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

/// A JSON value that a record cannot be read from.
class DecodingError : public QException
{
public:
    explicit DecodingError(const QString &description);

    QString description() const { return m_description; }
    const char *what() const noexcept override { return m_utf8.constData(); }
    void raise() const override { throw *this; }
    DecodingError *clone() const override { return new DecodingError(*this); }

private:
    QString m_description;
    QByteArray m_utf8;
};

/// Typed reads of one member. A member that is missing, null or of another type is absent: servers
/// differ in what they send, and every caller has a fallback.
namespace JsonReading {

std::optional<QString> text(const QJsonObject &object, QStringView key);
/// Any JSON number. A boolean is no number.
std::optional<double> number(const QJsonObject &object, QStringView key);
/// A JSON number with an integral value that fits 64 bits, however it is written (2, 2.0, 2e0).
std::optional<qint64> integer(const QJsonObject &object, QStringView key);
std::optional<bool> boolean(const QJsonObject &object, QStringView key);
std::optional<QJsonObject> object(const QJsonObject &object, QStringView key);
/// An array whose every element is a text; one element of another type makes it absent.
std::optional<QStringList> texts(const QJsonObject &object, QStringView key);
/// An array whose every element is an object; one element of another type makes it absent.
std::optional<QList<QJsonObject>> objects(const QJsonObject &object, QStringView key);

/// The value, or DecodingError naming `key` when it is absent.
template<typename T>
T required(const QJsonObject &object, QStringView key, std::optional<T> value)
{
    if (!value) {
        throw DecodingError(
            object.contains(key)
                ? QStringLiteral("\"%1\" alanının türü beklenenden farklı.").arg(key)
                : QStringLiteral("\"%1\" alanı eksik.").arg(key));
    }
    return *std::move(value);
}

} // namespace JsonReading
