#include "support/ParsedJson.h"
#include "support/WindowTesting.h"

using namespace Qt::StringLiterals;

namespace {

const QString sheetName = u"cityGuideSheet"_s;

ScriptedAnswer guideOf(const QString &city, const QString &bestTime = u"Mayıs - Eylül"_s)
{
    QJsonObject guide = parsed(R"({ "countryName": "Birleşik Krallık",
        "overview": "Thames'in iki yakası.", "topAttractions": ["Kule"],
        "culinaryHighlights": ["Börek"], "localTips": ["Kart alın."] })");
    guide.insert(u"cityName"_s, city);
    guide.insert(u"bestTimeToVisit"_s, bestTime);
    return ScriptedAnswer::content(guide);
}

const ScriptedAnswer promotions = ScriptedAnswer::content(parsed(R"({ "promotions": [
    { "title": "Erken", "description": "<img src='http://127.0.0.1/x'>", "discount": "%25",
      "route": "İstanbul ⇄ Avrupa", "validUntil": "30 Eylül" },
    { "title": "Erken", "description": "Yalın" }] })"));

const QString listsText = u"Görülmesi Gereken Yerler|Kule|Yerel Seyahat İpuçları|Kart alın."_s;
const QString guideText =
    u"Londra, Birleşik Krallık|Thames'in iki yakası.|En İdeal Ziyaret Zamanı|Mayıs - Eylül|"_s
    + listsText;
const QString promotionsText = u"Erken|%25|<img src='http://127.0.0.1/x'>|İstanbul ⇄ Avrupa|"
                               "Son Geçerlilik: 30 Eylül|Erken|Yalın"_s;

} // namespace

/// The city guide and its promotions in the real window.
class CityGuideSheetTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        WindowTest::init();
        m_answers.insert(guideTool, guideOf(u"Londra"_s));
        m_answers.insert(promotionsTool, promotions);
    }

    void guideAndPromotionsAreAskedForAndShownAtOnce()
    {
        m_answers = { { guideTool, guideOf(u"Londra"_s).held() },
                      { promotionsTool, promotions.held() } };
        m_window->viewModel()->setOriginCode(u"fco"_s);
        m_window->viewModel()->swapAirports();
        QVERIFY(openSheet());

        // Both are on their way before either is answered.
        QTRY_COMPARE(m_server->heldCount(), 2);
        for (const ReceivedRequest &question : questions()) {
            QCOMPARE(question.arguments(),
                     parsed(question.tool() == guideTool
                                ? R"({"cityCode": "FCO"})"
                                : R"({"departureAirportCode": "IST", "countryCode": "TR"})"));
        }
        // The destination is that of the opening.
        m_window->viewModel()->setDestinationCode(u"CDG"_s);
        QCOMPARE(m_window->textOf(u"guideTabs"_s), u"fco Şehir Rehberi|Aktif Kampanyalar"_s);
        // The first answer has long come when a further call has ended.
        m_server->release();
        QVERIFY(settle(call()).value);
        QVERIFY(isLoading());
        m_server->release();
        QTRY_COMPARE(shownPage(), guideText);
    }

    void aFailureLeavesTheGuideLoading()
    {
        for (const QString &failing : { guideTool, promotionsTool }) {
            const ScriptedAnswer answer = m_answers.value(failing);
            const qsizetype before = questions().size();
            m_answers.insert(failing, ScriptedAnswer::failure(u"olmadı"_s));
            QVERIFY(openSheet());
            QTRY_COMPARE(questions().size(), before + 2);
            QVERIFY(settle(call()).value);
            m_window->press("Right");
            QTest::qWait(50);
            QVERIFY(isLoading());

            // Only opening the sheet again asks again.
            m_answers.insert(failing, answer);
            QVERIFY(m_window->close(sheetName) && openSheet());
            QTRY_COMPARE(shownPage(), guideText);
            QVERIFY(m_window->close(sheetName));
        }
    }

    void absentPartsOfTheGuideAreNotShown()
    {
        m_answers = { { guideTool, guideOf(u"Londra"_s, QString()) },
                      { promotionsTool,
                        ScriptedAnswer::content(parsed(R"({"promotions": []})")) } };
        QVERIFY(openSheet());
        QTRY_COMPARE(shownPage(), u"Londra, Birleşik Krallık|Thames'in iki yakası.|"_s + listsText);
        m_window->press("Right");
        QTRY_COMPARE(shownPage(), QString());
        QVERIFY(!m_window->named(u"guideLoadingPanel"_s));
    }

    void ofLongListsOnlyTheBeginningIsLaidOut()
    {
        QJsonArray many;
        for (int number = 0; number < 100; ++number)
            many.append(QJsonObject { { u"title"_s, QString::number(number) } });
        const QStringList sights(100, u"yer"_s);
        m_answers = { { promotionsTool, ScriptedAnswer::content({ { u"promotions"_s, many } }) },
                      { guideTool,
                        ScriptedAnswer::content(
                            { { u"topAttractions"_s, QJsonArray::fromStringList(sights) } }) } };
        QVERIFY(openSheet());
        QTRY_COMPARE(shownPage().count(u"yer"_s), 60);
        m_window->press("Right");
        QTRY_VERIFY(shownPage().contains(u"59"));
        QTest::qWait(100); // they come one after the other
        QVERIFY(!shownPage().contains(u"60"));
    }

    void theGuideScrollsByKeyboard()
    {
        m_answers.insert(guideTool, guideOf(u"Londra "_s.repeated(60)));
        QVERIFY(openSheet());
        QTRY_VERIFY(m_window->named(u"cityGuidePage"_s));
        // The keyboard is on the tabs and scrolls the page from there.
        QQuickItem *page = m_window->named(u"sheetPage"_s);
        QVERIFY(page->property("contentHeight").toReal() > page->height());
        m_window->press("PgDown");
        QVERIFY(page->property("contentY").toReal() > 0);
        m_window->press("Right");
        QTRY_COMPARE(shownPage(), promotionsText);
        QCOMPARE(page->property("contentY").toReal(), 0.0);
        for (const QString &stop : { u"Aktif Kampanyalar"_s, u"Kapat"_s, u"Aktif Kampanyalar"_s }) {
            QCOMPARE(m_window->focusedName(), stop);
            m_window->press("Tab");
        }
    }

private:
    bool openSheet() const { return m_window->open(u"cityGuideButton"_s, sheetName); }
    /// The page that is shown, of the two.
    QString shownPage() const
    {
        return m_window->textOf(u"cityGuidePage"_s) + m_window->textOf(u"promotionsPage"_s);
    }
    /// Whether the guide says that it loads, and shows nothing else.
    bool isLoading() const
    {
        const QString text = u"Rehber bilgileri yükleniyor..."_s;
        return m_window->textOf(u"guideLoadingPanel"_s) == text && m_window->called(text)
            && shownPage().isEmpty();
    }
};

QTEST_MAIN(CityGuideSheetTest)
#include "CityGuideSheetTest.moc"
