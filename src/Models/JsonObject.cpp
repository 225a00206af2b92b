#include "Models/JsonObject.h"

#include <simdjson.h>

#include <QJsonDocument>
#include <QLocale>

#include <bit>
#include <cmath>
#include <cstring>
#include <new>
#include <utility>

namespace dom = simdjson::dom;

DecodingError::DecodingError(const QString &description)
    : m_description(description)
    , m_utf8(description.toUtf8())
{ }

/// From and to the parser's types, which the header keeps to itself.
class JsonObject::Access
{
public:
    static JsonObject make(const std::shared_ptr<const void> &document, dom::object object)
    {
        JsonObject json;
        json.m_document = document;
        json.m_place = std::bit_cast<decltype(json.m_place)>(object);
        return json;
    }

    /// The last member of that name, when it is a `T`.
    template<typename T>
    static std::optional<T> member(const JsonObject &json, std::string_view key)
    {
        if (!json.m_document)
            return std::nullopt;
        std::optional<dom::element> found;
        for (const dom::key_value_pair member : std::bit_cast<dom::object>(json.m_place)) {
            if (member.key == key)
                found = member.value;
        }
        return found ? as<T>(*found) : std::nullopt;
    }

    template<typename T>
    static std::optional<T> as(dom::element element)
    {
        T value;
        return element.get(value) == simdjson::SUCCESS ? std::optional(value) : std::nullopt;
    }

    /// The array of that name with each element, a `T`, converted; absent when one is of another
    /// type.
    template<typename T, typename Convert>
    static auto uniformArray(const JsonObject &json, std::string_view key, Convert convert)
        -> std::optional<QList<decltype(convert(std::declval<T>()))>>
    {
        const auto array = member<dom::array>(json, key);
        if (!array)
            return std::nullopt;
        QList<decltype(convert(std::declval<T>()))> list;
        list.reserve(static_cast<qsizetype>(array->size()));
        for (const dom::element element : *array) {
            const auto value = as<T>(element);
            if (!value)
                return std::nullopt;
            list.append(convert(*value));
        }
        return list;
    }
};

namespace {

QString textOf(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// simdjson's default depth takes nothing that Qt's does not.
bool parse(const QByteArray &json, size_t depth, dom::document &document, dom::element &root)
{
    dom::parser parser;
    const auto size = static_cast<size_t>(json.size());
    return parser.allocate(size, depth) == simdjson::SUCCESS
        && parser.parse_into_document(document, json.data(), size).get(root) == simdjson::SUCCESS;
}

/// As any parser takes it: U+FFFD for half a character, an exponent for what is no 64-bit integer.
QByteArray standardText(const QJsonDocument &document)
{
    const QByteArray compact = document.toJson(QJsonDocument::Compact);
    QByteArray json;
    json.reserve(compact.size());
    bool isText = false;
    for (const char *sign = compact.cbegin(); sign != compact.cend(); ++sign) {
        if (!isText && (*sign == '-' || (*sign >= '0' && *sign <= '9'))) {
            const qsizetype length = std::strcspn(sign, ",]}");
            const QByteArray number(sign, length);
            bool isInteger = false;
            number.toLongLong(&isInteger);
            json += isInteger
                ? number
                : QByteArray::number(number.toDouble(), 'e', QLocale::FloatingPointShortest);
            sign += length - 1;
        } else if (*sign == '\\') {
            const bool isHalf = sign[1] == 'u' && sign[2] == 'd' && sign[3] >= '8';
            json += isHalf ? QByteArray("\\ufffd") : QByteArray(sign, 2);
            sign += isHalf ? 5 : 1;
        } else {
            isText = isText != (*sign == '"');
            json += *sign;
        }
    }
    return json;
}

} // namespace

std::optional<JsonObject> JsonObject::parsed(const QByteArray &json, QJsonParseError &error)
{
    error = QJsonParseError();
    const auto document = std::make_shared<dom::document>();
    dom::element root;
    const bool isParsed = parse(json, simdjson::DEFAULT_MAX_DEPTH, *document, root);
    if (!isParsed || !(root.is_object() || root.is_array())) {
        // Qt's parser has the last word: it takes control characters in texts, for instance.
        const QJsonDocument accepted = QJsonDocument::fromJson(json, &error);
        if (error.error != QJsonParseError::NoError)
            return std::nullopt;
        if (!parse(standardText(accepted), 2 * simdjson::DEFAULT_MAX_DEPTH, *document, root))
            throw std::bad_alloc();
    }
    const auto object = Access::as<dom::object>(root);
    return object ? std::optional(Access::make(document, *object)) : std::nullopt;
}

std::optional<QString> JsonObject::text(std::string_view key) const
{
    const auto value = Access::member<std::string_view>(*this, key);
    return value ? std::optional(textOf(*value)) : std::nullopt;
}

std::optional<double> JsonObject::number(std::string_view key) const
{
    const auto value = Access::member<double>(*this, key);
    return value ? std::optional(*value + 0.0) : std::nullopt; // no -0
}

std::optional<qint64> JsonObject::integer(std::string_view key) const
{
    if (const auto value = Access::member<int64_t>(*this, key))
        return *value;
    const double value = number(key).value_or(NAN);
    const bool isIntegral = std::trunc(value) == value && value >= -0x1p63 && value < 0x1p63;
    return isIntegral ? std::optional(static_cast<qint64>(value)) : std::nullopt;
}

std::optional<bool> JsonObject::boolean(std::string_view key) const
{
    return Access::member<bool>(*this, key);
}

std::optional<JsonObject> JsonObject::object(std::string_view key) const
{
    const auto value = Access::member<dom::object>(*this, key);
    return value ? std::optional(Access::make(m_document, *value)) : std::nullopt;
}

std::optional<QStringList> JsonObject::texts(std::string_view key) const
{
    return Access::uniformArray<std::string_view>(*this, key, textOf);
}

std::optional<QList<JsonObject>> JsonObject::objects(std::string_view key) const
{
    return Access::uniformArray<dom::object>(
        *this, key, [this](dom::object value) { return Access::make(m_document, value); });
}

bool JsonObject::contains(std::string_view key) const
{
    return Access::member<dom::element>(*this, key).has_value();
}

bool JsonObject::hasValue(std::string_view key) const
{
    const auto value = Access::member<dom::element>(*this, key);
    return value && !value->is_null();
}

DecodingError JsonObject::missing(std::string_view key) const
{
    return DecodingError((contains(key) ? QStringLiteral("\"%1\" alanının türü beklenenden farklı.")
                                        : QStringLiteral("\"%1\" alanı eksik."))
                             .arg(textOf(key)));
}

QByteArray JsonObject::toJson() const
{
    return m_document
        ? QByteArray::fromStdString(simdjson::minify(std::bit_cast<dom::object>(m_place)))
        : QByteArrayLiteral("{}");
}
