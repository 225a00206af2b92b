#include "Models/AirportDatabase.h"

#include <QSet>
#include <QTest>

#include <tuple>

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

    void search()
    {
        // How many are found, and the first of them.
        for (const auto &[query, count, first] : { std::tuple(QString(), 121, u"IST SAW ESB "_s),
                                                   { u" \t\n"_s, 121, u"IST "_s },
                                                   { u"  lon\n"_s, 4, u"LHR LGW BCN SKG "_s },
                                                   { u"airport"_s, 117, u"IST "_s },
                                                   { u"TÜRK"_s, 17, u"IST "_s },
                                                   { u"turk"_s, 0, QString() },
                                                   { u"united kingdom"_s, 3, u"LHR LGW MAN "_s },
                                                   { u"o.r. tambo"_s, 1, u"JNB "_s },
                                                   { u"%"_s, 0, QString() },
                                                   { u"[a-z]*"_s, 0, QString() } }) {
            QString found;
            for (const Airport &airport : AirportDatabase::search(query))
                found += airport.code + u' ';
            QVERIFY2(found.size() == 4 * count && found.startsWith(first), qPrintable(query));
        }
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
