#pragma once

#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

/// A JSON value that a record cannot be read from.
class DecodingError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Typed reads of a JSON object that was sent to us. It is cheap to copy, and may be read by any
/// thread.
///
/// A member that is missing, null or of another type is absent: servers differ in what they send,
/// and every caller has a fallback. What is absent under `key` is read under `alternative`.
class JsonObject
{
public:
    JsonObject() = default;
    explicit JsonObject(const QJsonObject &json)
        : m_json(json)
    { }

    std::optional<QString> text(std::string_view key, std::string_view alternative = {}) const;
    /// Any JSON number. A boolean is no number.
    std::optional<double> number(std::string_view key, std::string_view alternative = {}) const;
    /// A JSON number with an integral value that fits 64 bits, however it is written (2, 2.0, 2e0).
    std::optional<qint64> integer(std::string_view key, std::string_view alternative = {}) const;
    std::optional<bool> boolean(std::string_view key, std::string_view alternative = {}) const;
    std::optional<JsonObject> object(std::string_view key, std::string_view alternative = {}) const;
    /// An array whose every element is a text; one element of another type makes it absent.
    std::optional<QStringList> texts(std::string_view key, std::string_view alternative = {}) const;
    /// An array whose every element is an object; one element of another type makes it absent.
    std::optional<QList<JsonObject>> objects(std::string_view key,
                                             std::string_view alternative = {}) const;

    /// Whether the member is there, of whatever type, and not null.
    bool hasValue(std::string_view key) const;

    /// What `read`, one of the above, finds, or DecodingError naming `key` when that is absent.
    template<typename T>
    T required(std::optional<T> (JsonObject::*read)(std::string_view, std::string_view) const,
               std::string_view key) const
    {
        const std::optional<T> found = (this->*read)(key, {});
        if (!found)
            throw DecodingError("Missing or of another type: " + std::string(key));
        return *found;
    }

    QJsonObject toJson() const { return m_json; }

private:
    QJsonValue value(std::string_view key) const { return m_json.value(QLatin1StringView(key)); }
    template<typename T>
    std::optional<T> read(std::optional<T> (*as)(const QJsonValue &), std::string_view key,
                          std::string_view alternative) const;

    QJsonObject m_json;
};
