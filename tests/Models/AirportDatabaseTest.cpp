#include "Models/AirportDatabase.h"

#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

class AirportDatabaseTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theTableIsWellFormed()
    {
        QStringList hubs;
        QSet<QString> codes;
        for (const Airport &airport : AirportDatabase::allAirports()) {
            codes.insert(airport.code);
            if (airport.hub)
                hubs.append(airport.code);
            QVERIFY(airport.code.size() == 3 && !airport.city.isEmpty() && !airport.name.isEmpty());
        }
        QCOMPARE(codes.size(), 121);
        QCOMPARE(hubs, QStringList({ u"IST"_s, u"SAW"_s }));
    }

    void search_data()
    {
        QTest::addColumn<QString>("query");
        QTest::addColumn<int>("count");
        QTest::addColumn<QStringList>("codes"); // the first ones found

        const auto row = [](const QString &query, int count, const QStringList &codes) {
            QTest::newRow(qPrintable(u'"' + query + u'"')) << query << count << codes;
        };
        row(QString(), 121, { u"IST"_s, u"SAW"_s, u"ESB"_s });
        row(u" \t\n"_s, 121, { u"IST"_s });
        row(u"  lon\n"_s, 4, { u"LHR"_s, u"LGW"_s, u"BCN"_s, u"SKG"_s });
        row(u"airport"_s, 117, { u"IST"_s });
        row(u"TÜRK"_s, 17, { u"IST"_s });
        row(u"turk"_s, 0, {});
        row(u"united kingdom"_s, 3, { u"LHR"_s, u"LGW"_s, u"MAN"_s });
        row(u"o.r. tambo"_s, 1, { u"JNB"_s });
        row(u"%"_s, 0, {});
        row(u"[a-z]*"_s, 0, {});
    }
    void search()
    {
        QFETCH(QString, query);
        QFETCH(int, count);
        QFETCH(QStringList, codes);
        QStringList found;
        for (const Airport &airport : AirportDatabase::search(query))
            found.append(airport.code);
        QCOMPARE(found.size(), count);
        QCOMPARE(found.first(codes.size()), codes);
    }

    void lookup()
    {
        QCOMPARE(AirportDatabase::airport(u"Jfk"_s).city, u"New York"_s);
        const Airport unknown { u"XYZ"_s, u"XYZ"_s, u"XYZ Airport"_s, QString(), false };
        QCOMPARE(AirportDatabase::airport(u"xyz"_s), unknown);
        QCOMPARE(AirportDatabase::airport(u"IST "_s).city, u"IST "_s);
    }
};

QTEST_GUILESS_MAIN(AirportDatabaseTest)
#include "AirportDatabaseTest.moc"
