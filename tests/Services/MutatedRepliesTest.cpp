#include "support/ReaderChecks.h"

#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Makes bad replies of good ones.
class Mutator
{
public:
    explicit Mutator(quint32 seed)
        : m_random(seed)
    { }

    int below(int limit) { return limit > 0 ? m_random.bounded(limit) : 0; }

    QJsonValue changed(const QJsonValue &value)
    {
        // Most changes are made deep inside.
        if (below(4) > 0 && value.isObject() && !value.toObject().isEmpty())
            return changedObject(value.toObject());
        if (below(4) > 0 && value.isArray() && !value.toArray().isEmpty())
            return changedArray(value.toArray());
        switch (below(5)) {
        case 0:
            return QJsonArray { value };
        case 1:
            return QJsonObject { { u"x"_s, value } };
        case 2:
            return value.isString() ? QJsonValue(value.toString().toDouble())
                                    : QJsonValue(QString::number(value.toDouble()));
        default:
            return odd();
        }
    }

    QByteArray garbled(QByteArray bytes)
    {
        for (int times = below(4); times >= 0 && !bytes.isEmpty(); --times) {
            const int at = below(static_cast<int>(bytes.size()));
            switch (below(4)) {
            case 0:
                bytes[at] = static_cast<char>(below(256));
                break;
            case 1:
                bytes.remove(at, 1 + below(8));
                break;
            case 2:
                bytes.insert(at, bytes.mid(below(static_cast<int>(bytes.size())), below(40)));
                break;
            default:
                bytes.truncate(at);
            }
        }
        return bytes;
    }

private:
    QJsonObject changedObject(QJsonObject object)
    {
        const QString key = object.keys().at(below(static_cast<int>(object.size())));
        const QJsonValue value = object.value(key);
        switch (below(6)) {
        case 0:
            object.remove(key);
            break;
        case 1:
            object.insert(key + u'_', object.take(key));
            break;
        case 2:
            object.insert(object.keys().at(below(static_cast<int>(object.size()))), value);
            break;
        default:
            object.insert(key, changed(value));
        }
        return object;
    }

    QJsonArray changedArray(QJsonArray array)
    {
        const int at = below(static_cast<int>(array.size()));
        switch (below(5)) {
        case 0:
            array.removeAt(at);
            break;
        case 1:
            for (int copies = below(20); copies > 0; --copies)
                array.insert(at, QJsonValue(array.at(at)));
            break;
        case 2:
            array.insert(at, odd());
            break;
        default:
            array.replace(at, changed(array.at(at)));
        }
        return array;
    }

    QJsonValue odd()
    {
        static const QJsonArray values = QJsonDocument::fromJson(R"([
            null, true, false, 0, -1, 2.5, -0.0, 1e308, -1e308, 9007199254740993.0,
            -9223372036854775808, 9223372036854775807, "", "T", "T:", "xT1:2:3", " 5", "TRY",
            "\u2028\u202e", "\ud800", [], {}, [[]]])")
                                             .array();
        const int at = below(static_cast<int>(values.size()) + 1);
        return at < values.size() ? values.at(at) : QJsonValue(QString(300, u'x'));
    }

    QRandomGenerator m_random;
};

} // namespace

/// Good replies with members dropped, retyped, nested, doubled and garbled, through each reader.
/// VANTORA_SEED repeats a run, VANTORA_MUTATIONS makes a longer one.
class MutatedRepliesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const quint32 other = QRandomGenerator::global()->generate();
        m_seed = qEnvironmentVariable("VANTORA_SEED", QString::number(other)).toUInt();
        qInfo("VANTORA_SEED=%u", m_seed);
    }

    void readers_data()
    {
        QTest::addColumn<QString>("reader");
        for (const QString &reader : ReaderChecks::readers())
            QTest::newRow(qPrintable(reader)) << reader;
    }
    void readers()
    {
        QFETCH(QString, reader);
        const QByteArrayList originals = originalsFor(reader);
        QVERIFY(!originals.isEmpty());
        Mutator mutator(m_seed);
        const quint32 count = qEnvironmentVariable("VANTORA_MUTATIONS", u"5000"_s).toUInt();
        for (quint32 number = 0; number < count; ++number) {
            QByteArray bytes = originals.at(static_cast<qsizetype>(number % originals.size()));
            QJsonValue json = QJsonDocument::fromJson(bytes).object();
            for (int changes = mutator.below(5); changes > 0; --changes)
                json = mutator.changed(json);
            if (json != QJsonValue(QJsonObject()))
                bytes = QJsonDocument(json.toObject()).toJson(QJsonDocument::Compact);
            if (mutator.below(4) == 0)
                bytes = mutator.garbled(bytes);
            ReaderChecks::check(reader, bytes);
        }
    }

private:
    static QByteArrayList originalsFor(const QString &reader)
    {
        const bool isOwnFolder = QFile::exists(QFINDTESTDATA(u"data/"_s + reader));
        QByteArrayList originals;
        QDirIterator files(isOwnFolder ? QFINDTESTDATA(u"data/"_s + reader) : QFINDTESTDATA("data"),
                           { u"*.json"_s }, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (file.open(QIODevice::ReadOnly))
                originals.append(asReplyTo(reader, file.readAll()));
        }
        return originals;
    }

    static QByteArray asReplyTo(const QString &reader, const QByteArray &data)
    {
        QJsonObject reply = QJsonDocument::fromJson(data).object().value("reply"_L1).toObject();
        if (reader == u"reply") {
            const QJsonObject result { { u"structuredContent"_s, reply } };
            reply = { { u"result"_s, result }, { u"error"_s, QString() } };
        }
        return QJsonDocument(reply).toJson(QJsonDocument::Compact);
    }

    quint32 m_seed = 0;
};

QTEST_GUILESS_MAIN(MutatedRepliesTest)
#include "MutatedRepliesTest.moc"
