#include "ToolCalls.h"

#include "sample_server/JsonSchema.h"

#include <QTest>

using namespace Sample;
using namespace ToolCalls;

class JsonSchemaTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void complains_data();
    void complains();
    void everyToolSchemaIsChecked();
    void unknownKeywordsAreFound();
};

namespace {

constexpr auto schema = R"({
    "type": "object", "additionalProperties": false, "required": ["code"],
    "properties": {
        "code": { "type": "string", "pattern": "^[A-Z]{3}$", "examples": ["IST"] },
        "kind": { "type": "string", "enum": ["one", "two"] },
        "day": { "type": "string", "format": "date" },
        "note": { "type": "string", "minLength": 2, "maxLength": 4 },
        "count": { "type": "integer", "minimum": 1, "maximum": 9 },
        "amount": { "type": "number" },
        "flag": { "type": "boolean" },
        "list": { "type": "array", "minItems": 1, "maxItems": 2,
                  "items": { "type": "object", "required": ["n"],
                             "properties": { "n": { "type": "integer" } } } }
    }
})";

} // namespace

void JsonSchemaTest::complains_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<QString>("complaint");

    const QString good;
    const auto row = [](const char *name, const char *members, const QString &complaint) {
        QTest::newRow(name) << QByteArray(members) << complaint;
    };
    row("all members", R"("code":"IST","kind":"two","day":"2028-02-29","note":"çöğü","count":9,
                          "amount":-1.5,"flag":false,"list":[{"n":1},{"n":2,"m":3}])",
        good);
    row("integral double", R"("code":"IST","count":3.0)", good);
    row("missing", R"("kind":"one")", u"\"code\" eksik."_s);
    row("null is no text", R"("code":null)", u"\"code\" bir metin olmalı."_s);
    row("number is no text", R"("code":5)", u"\"code\" bir metin olmalı."_s);
    row("pattern", R"("code":"ist")", u"\"code\": \"ist\" beklenen biçimde değil (örnek: IST)."_s);
    row("pattern, line break at the end", R"("code":"IST\n")",
        u"\"code\": \"IST\\n\" beklenen biçimde değil (örnek: IST)."_s);
    row("placeholder in a value", R"("code":"%1%2")",
        u"\"code\": \"%1%2\" beklenen biçimde değil (örnek: IST)."_s);
    row("enum", R"("code":"IST","kind":"One")",
        u"\"kind\": \"One\" geçerli değil; şunlardan biri olmalı: one, two."_s);
    const QString badDay = u"\"day\": \"%1\" geçerli bir tarih değil; yyyy-aa-gg biçiminde, "
                           "takvimde var olan bir gün olmalı."_s;
    row("no such day", R"("code":"IST","day":"2026-02-29")", badDay.arg(u"2026-02-29"));
    row("day without zeros", R"("code":"IST","day":"2026-2-9")", badDay.arg(u"2026-2-9"));
    row("day with a time", R"("code":"IST","day":"2026-02-09T10:00")",
        badDay.arg(u"2026-02-09T10:00"));
    row("eastern digits", R"("code":"IST","day":"٢٠٢٦-٠٢-٠٩")", badDay.arg(u"٢٠٢٦-٠٢-٠٩"));
    row("short", R"("code":"IST","note":"x")",
        u"\"note\": \"x\" çok kısa; en az 2 karakter olmalı."_s);
    row("empty", R"("code":"IST","note":"")", u"\"note\" boş olamaz."_s);
    row("long", R"("code":"IST","note":"abcde")",
        u"\"note\": \"abcde\" çok uzun; en çok 4 karakter olmalı."_s);
    row("fraction", R"("code":"IST","count":1.5)", u"\"count\" bir tam sayı olmalı."_s);
    row("boolean is no number", R"("code":"IST","count":true)",
        u"\"count\" bir tam sayı olmalı."_s);
    row("number is no boolean", R"("code":"IST","flag":0)", u"\"flag\" true ya da false olmalı."_s);
    row("small", R"("code":"IST","count":0)", u"\"count\": 0 çok küçük; en az 1 olmalı."_s);
    row("large", R"("code":"IST","count":10)", u"\"count\": 10 çok büyük; en çok 9 olmalı."_s);
    row("few items", R"("code":"IST","list":[])", u"\"list\" en az 1 öge içermeli."_s);
    row("many items", R"("code":"IST","list":[{"n":1},{"n":1},{"n":1}])",
        u"\"list\" en çok 2 öge içermeli."_s);
    row("deep", R"("code":"IST","list":[{"n":1},{"n":"x"}])",
        u"\"list[1].n\" bir tam sayı olmalı."_s);
    row("deep missing", R"("code":"IST","list":[{}])", u"\"list[0].n\" eksik."_s);
    row("unknown member", R"("code":"IST","cod":"X")", u"\"cod\" bilinmeyen bir alan."_s);
}

void JsonSchemaTest::complains()
{
    QFETCH(QByteArray, members);
    QFETCH(QString, complaint);
    QJsonParseError error {};
    const QJsonDocument value = QJsonDocument::fromJson('{' + members + '}', &error);
    QCOMPARE(error.error, QJsonParseError::NoError);
    QCOMPARE(JsonSchema::violation(parsed(schema), value.object()).value_or(QString()), complaint);
}

void JsonSchemaTest::everyToolSchemaIsChecked()
{
    QCOMPARE(registry().tools().size(), 5);
    for (const Tool &tool : registry().tools()) {
        QCOMPARE(JsonSchema::uncheckedKeywords(tool.inputSchema()), QStringList());
        QCOMPARE(JsonSchema::uncheckedKeywords(tool.outputSchema()), QStringList());
        QVERIFY(!tool.inputSchema().isEmpty() && !tool.outputSchema().isEmpty());
    }
}

void JsonSchemaTest::unknownKeywordsAreFound()
{
    const QJsonObject careless = parsed(R"({ "oneOf": [], "properties": { "a": {
        "type": "array", "items": { "format": "email", "exclusiveMinimum": 0 } } } })");
    const QStringList expected { u"oneOf"_s, u"exclusiveMinimum"_s, u"format: email"_s };
    QCOMPARE(JsonSchema::uncheckedKeywords(careless), expected);
}

QTEST_APPLESS_MAIN(JsonSchemaTest)
#include "JsonSchemaTest.moc"
