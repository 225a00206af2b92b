#pragma once

#include <QByteArray>
#include <QException>
#include <QList>
#include <QString>
#include <QStringList>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

struct QJsonParseError;

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

/// A JSON object that was sent to us. It is cheap to copy, keeps alive what it was parsed from, and
/// may be read by any thread. Writing JSON is QJsonObject's.
///
/// A member that is missing, null or of another type is absent: servers differ in what they send,
/// and every caller has a fallback. Of several members of one name the last one counts.
class JsonObject
{
public:
    /// An empty one.
    JsonObject() = default;

    /// Takes what QJsonDocument takes, and fails with its errors, but that a number too small for a
    /// double is 0, and half a character U+FFFD. Absent without an error when `json` is an array.
    static std::optional<JsonObject> parsed(const QByteArray &json, QJsonParseError &error);

    std::optional<QString> text(std::string_view key) const;
    /// Any JSON number. A boolean is no number.
    std::optional<double> number(std::string_view key) const;
    /// A JSON number with an integral value that fits 64 bits, however it is written (2, 2.0, 2e0).
    std::optional<qint64> integer(std::string_view key) const;
    std::optional<bool> boolean(std::string_view key) const;
    std::optional<JsonObject> object(std::string_view key) const;
    /// An array whose every element is a text; one element of another type makes it absent.
    std::optional<QStringList> texts(std::string_view key) const;
    /// An array whose every element is an object; one element of another type makes it absent.
    std::optional<QList<JsonObject>> objects(std::string_view key) const;

    bool contains(std::string_view key) const;
    /// Whether the member is there, of whatever type, and not null.
    bool hasValue(std::string_view key) const;

    /// What `read`, one of the above, finds, or DecodingError naming `key` when that is absent.
    template<typename T>
    T required(std::optional<T> (JsonObject::*read)(std::string_view) const,
               std::string_view key) const
    {
        std::optional<T> value = (this->*read)(key);
        if (!value)
            throw missing(key);
        return *std::move(value);
    }

    /// The whole object as compact text.
    QByteArray toJson() const;

private:
    class Access;

    DecodingError missing(std::string_view key) const;

    std::shared_ptr<const void> m_document; ///< null for an empty one
    std::array<std::uintptr_t, 2> m_place {}; ///< the parser's own handle of the object
};
