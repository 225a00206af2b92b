#include "Views/Calendar/PriceCalendarFormat.h"
#include "Views/ExternalLinks.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// The chart's measures, and which addresses are opened.
class ViewTextsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void measuresOfTheChart()
    {
        const PriceCalendarFormat format;
        // Where no day costs anything.
        QCOMPARE(format.barHeight(0, 0), format.barHeight(-5, -1));
        QVERIFY(format.barHeight(0, 0) > 0);
        QCOMPARE(format.barHeight(-10, 5000), format.barHeight(1, 5000));
        // 14 days share 1000 pixels, but keep to their bounds.
        for (const auto &[days, width] : { std::pair(14, 71), { 28, 40 }, { 2, 90 }, { 0, 90 } })
            QCOMPARE(format.dayWidth(1000, days, 40, 90), width);
        QCOMPARE(format.widestAmount(-10'512.7), u"-88888"_s);
    }

    void bookingPages()
    {
        const auto page = [](const QString &link) {
            FlightOption flight;
            flight.bookingURL = link;
            return ExternalLinks::bookingPage(flight);
        };
        const QUrl webSite(u"https://air.example"_s);
        ExternalLinks::setAddresses(webSite, QUrl());
        const QString own = u"https://book.example/x?a=1"_s;
        QCOMPARE(page(own), QUrl(own));
        for (const QString &link :
             { QString(), u"not a link"_s, u"file:///etc/passwd"_s, u"javascript:alert(1)"_s,
               u"https:///x"_s, u"ftp://book.example/x"_s,
               u"https://www.vantora-air.example@evil.example/"_s,
               u"https://book.example/"_s + QString(1'000'000, u'x') })
            QCOMPARE(page(link), webSite);
    }
};

QTEST_MAIN(ViewTextsTest)
#include "ViewTextsTest.moc"
