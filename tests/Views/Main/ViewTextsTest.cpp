#include "Controls/Look/Motion.h"
#include "Controls/Look/ShownText.h"
#include "Views/Calendar/PriceCalendarFormat.h"
#include "Views/ExternalLinks.h"
#include "Views/Flights/FlightCardFormat.h"

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
    void barHeight()
    {
        const PriceCalendarFormat format;
        QCOMPARE(format.barHeight(2500, 5000), 50);
        QCOMPARE(format.barHeight(0, 5000), 18);
        QCOMPARE(format.barHeight(-10, 5000), 18);
        QCOMPARE(format.barHeight(0, 0), 20);
        QCOMPARE(format.barHeight(-5, -1), 20);
    }

    void bestPriceText()
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

    void lowSeatWarning()
    {
        const auto warning = [](std::optional<qint64> seats) {
            FlightOption flight;
            flight.seatAvailability = seats;
            return FlightCardFormat().lowSeatWarning(flight);
        };
        QCOMPARE(warning(std::nullopt), QString());
        QCOMPARE(warning(7), QString());
        QCOMPARE(warning(6), u"Son 6 Koltuk!"_s);
        QCOMPARE(warning(0), u"Son 0 Koltuk!"_s);
    }

    void booking()
    {
        QDesktopServices::setUrlHandler(u"https"_s, this, "rememberUrl");
        const auto opened = [this](const QString &link) {
            FlightOption flight;
            flight.bookingURL = link;
            m_opened.clear();
            ExternalLinks().openBooking(flight);
            return m_opened;
        };
        const QUrl webSite(u"https://air.example"_s);
        ExternalLinks::setAddresses(webSite, QUrl());
        const QString own = u"https://book.example/x?a=1"_s;
        QCOMPARE(opened(own), QUrl(own));
        for (const QString &link :
             { QString(), u"not a link"_s, u"file:///etc/passwd"_s, u"javascript:alert(1)"_s,
               u"https:///x"_s, u"https://www.vantora-air.example@evil.example/"_s,
               u"https://book.example/"_s + QString(1'000'000, u'x') })
            QCOMPARE(opened(link), webSite);
        QDesktopServices::unsetUrlHandler(u"https"_s);
    }

    void shownTexts()
    {
        const auto lines = [](const QString &text) { return ShownText::of(text, true); };
        const auto paragraphs = [](const QString &text) { return ShownText::of(text, false); };
        QCOMPARE(lines(u"İstanbul – 5 °C"_s), u"İstanbul – 5 °C"_s);
        QCOMPARE(lines(u"a\nb\rc\u2028d\u2029e\u0085f"_s), u"a b c d e f"_s);
        QCOMPARE(lines(u"\u202eVQ1\u2067 \u200fمطار"_s), u"VQ1 مطار"_s);
        QCOMPARE(paragraphs(u"a\n\nb\u2029c"_s), u"a\n\nb\nc"_s);
        QCOMPARE(paragraphs(QString(1'000'000, u'\n')).count(u'\n'), ShownText::mostParagraphs);
        QCOMPARE(lines(QString(1'000'000, u'\u202e')), u"…"_s);
        // No half of a character is left at the end.
        const QString cut = lines(QString(ShownText::longestLine - 1, u'x') + u"🛫🛫"_s);
        QCOMPARE(cut, QString(ShownText::longestLine - 1, u'x') + u'…');
    }

    void springCurveFollowsTheSpring()
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

public Q_SLOTS:
    void rememberUrl(const QUrl &url) { m_opened = url; }

private:
    QUrl m_opened;
};

QTEST_MAIN(ViewTextsTest)
#include "ViewTextsTest.moc"
