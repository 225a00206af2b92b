#include "Views/Calendar/PriceCalendarFormat.h"
#include "Views/Flights/FlightCardFormat.h"
#include "Views/Foundation/ExternalLinks.h"
#include "Views/Foundation/Motion.h"

#include <QDesktopServices>
#include <QLocale>
#include <QTest>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

/// What views compute in C++: texts, measures, curves, and which addresses are opened.
class ViewTextsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QDesktopServices::setUrlHandler(u"https"_s, this, "rememberUrl"); }
    void cleanupTestCase() { QDesktopServices::unsetUrlHandler(u"https"_s); }
    void barHeight_data();
    void barHeight();
    void bestPriceText();
    void lowSeatWarning_data();
    void lowSeatWarning();
    void booking_data();
    void booking();
    void springCurveFollowsTheSpring();

public Q_SLOTS:
    void rememberUrl(const QUrl &url) { m_opened = url; }

private:
    QUrl m_opened;
};

void ViewTextsTest::barHeight_data()
{
    QTest::addColumn<double>("amount");
    QTest::addColumn<double>("maxPrice");
    QTest::addColumn<double>("height");
    QTest::newRow("dearest") << 5000.0 << 5000.0 << 100.0;
    QTest::newRow("half") << 2500.0 << 5000.0 << 50.0;
    QTest::newRow("free") << 0.0 << 5000.0 << 18.0;
    QTest::newRow("below nothing") << -10.0 << 5000.0 << 18.0;
    QTest::newRow("no scale") << 0.0 << 0.0 << 20.0;
    QTest::newRow("negative scale") << -5.0 << -1.0 << 20.0;
}

void ViewTextsTest::barHeight()
{
    QFETCH(const double, amount);
    QFETCH(const double, maxPrice);
    QTEST(PriceCalendarFormat().barHeight(amount, maxPrice), "height");
}

void ViewTextsTest::bestPriceText()
{
    QLocale::setDefault(QLocale(QLocale::Turkish, QLocale::Turkey));
    const PriceCalendarFormat format;
    const BestPrice best { u"2026-12-05"_s, 4850.6, u"EUR"_s };
    QCOMPARE(format.bestPriceText(best, u"TRY"_s), u"En Uygun: €4.851 (5 Ara)"_s);
    const BestPrice withoutCurrency { u"soon"_s, 4850.4, std::nullopt };
    QCOMPARE(format.bestPriceText(withoutCurrency, u"TRY"_s), u"En Uygun: ₺4.850 ()"_s);
    // The chart's own labels cut the fraction off.
    QCOMPARE(format.wholeAmount(1999.9), u"1999"_s);
    QCOMPARE(format.wholeAmount(1e300), QString::number(std::numeric_limits<qint64>::max()));
}

void ViewTextsTest::lowSeatWarning_data()
{
    QTest::addColumn<std::optional<qint64>>("seats");
    QTest::addColumn<QString>("warning");
    QTest::newRow("unknown") << std::optional<qint64>() << QString();
    QTest::newRow("seven") << std::optional<qint64>(7) << QString();
    QTest::newRow("six") << std::optional<qint64>(6) << u"Son 6 Koltuk!"_s;
    QTest::newRow("none") << std::optional<qint64>(0) << u"Son 0 Koltuk!"_s;
}

void ViewTextsTest::lowSeatWarning()
{
    QFETCH(const std::optional<qint64>, seats);
    FlightOption flight;
    flight.seatAvailability = seats;
    QTEST(FlightCardFormat().lowSeatWarning(flight), "warning");
}

void ViewTextsTest::booking_data()
{
    QTest::addColumn<QString>("link");
    QTest::addColumn<QUrl>("opened");
    const QUrl webSite(u"https://www.vantora-air.example"_s);
    QTest::newRow("its own") << u"https://book.example/x?a=1"_s
                             << QUrl(u"https://book.example/x?a=1"_s);
    QTest::newRow("empty") << QString() << webSite;
    QTest::newRow("no address") << u"not a link"_s << webSite;
    QTest::newRow("a file") << u"file:///etc/passwd"_s << webSite;
    QTest::newRow("a script") << u"javascript:alert(1)"_s << webSite;
    QTest::newRow("no host") << u"https:///x"_s << webSite;
    QTest::newRow("user information") << u"https://airline.example@evil.example/"_s << webSite;
}

void ViewTextsTest::booking()
{
    QFETCH(const QString, link);
    FlightOption flight;
    flight.bookingURL = link;
    m_opened.clear();
    ExternalLinks().openBooking(flight);
    QTEST(m_opened, "opened");
}

void ViewTextsTest::springCurveFollowsTheSpring()
{
    const Spring spring(0.35, 0.7);
    const QVariantList curve = spring.bezierSpline();
    QCOMPARE(curve.size() % 6, 0);
    QCOMPARE(curve.at(curve.size() - 2).toDouble(), 1.0);
    QCOMPARE(curve.constLast().toDouble(), 1.0);
    // It overshoots by exp(-πd/√(1-d²)) of the way, as a spring of this damping does.
    double highest = 0;
    for (double t = 0; t < spring.settlingTime(); t += 0.001)
        highest = std::max(highest, spring.position(t));
    QVERIFY(std::abs(highest - 1 - std::exp(-M_PI * 0.7 / std::sqrt(1 - 0.49))) < 0.001);
}

QTEST_MAIN(ViewTextsTest)
#include "ViewTextsTest.moc"
