#include "SheetTesting.h"
#include "Views/CityGuide/CityGuideState.h"

using namespace Qt::StringLiterals;

namespace {

const QString sheetName = u"cityGuideSheet"_s;
const QString guideTool = u"get_city_guide"_s;
const QString promotionsTool = u"get_airline_promotions"_s;

ScriptedAnswer guideOf(const QString &city)
{
    return ScriptedAnswer::content({ { u"cityName"_s, city },
                                     { u"countryName"_s, u"Birleşik Krallık"_s },
                                     { u"overview"_s, u"Thames'in iki yakası."_s },
                                     { u"bestTimeToVisit"_s, u"Mayıs - Eylül"_s },
                                     { u"topAttractions"_s, QJsonArray { u"Kule"_s } },
                                     { u"culinaryHighlights"_s, QJsonArray { u"Börek"_s } },
                                     { u"localTips"_s, QJsonArray { u"Kart alın."_s } } });
}

ScriptedAnswer promotions()
{
    const QJsonObject whole { { u"title"_s, u"Erken"_s },
                              { u"description"_s, u"<img src='http://127.0.0.1/x'>"_s },
                              { u"discount"_s, u"%25"_s },
                              { u"route"_s, u"İstanbul ⇄ Avrupa"_s },
                              { u"validUntil"_s, u"30 Eylül"_s } };
    const QJsonObject bare { { u"title"_s, u"Erken"_s }, { u"description"_s, u"Yalın"_s } };
    return ScriptedAnswer::content({ { u"promotions"_s, QJsonArray { whole, bare } } });
}

const QStringList guideTexts { u"Londra, Birleşik Krallık"_s, u"Thames'in iki yakası."_s,
                               u"En İdeal Ziyaret Zamanı"_s,  u"Mayıs - Eylül"_s,
                               u"Görülmesi Gereken Yerler"_s, u"Kule"_s,
                               u"Yerel Seyahat İpuçları"_s,   u"Kart alın."_s };
const QStringList promotionTexts { u"Erken"_s,
                                   u"%25"_s,
                                   u"<img src='http://127.0.0.1/x'>"_s,
                                   u"İstanbul ⇄ Avrupa"_s,
                                   u"Son Geçerlilik: 30 Eylül"_s,
                                   u"Erken"_s,
                                   u"Yalın"_s };

} // namespace

/// The city guide sheet in the real window, on a scripted server.
class CityGuideSheetTest : public SheetTest
{
    Q_OBJECT

private Q_SLOTS:
    void questionsAsReceived();
    void nothingShowsBeforeBothHaveCome();
    void aFailureLeavesTheSheetLoading_data();
    void aFailureLeavesTheSheetLoading();
    void tabs();
    void promotionsMayBeNone();
    void theBestTimeMayBeAbsent();
    void aLaterSheetGetsItsOwnAnswersAlone();
    void keyboardAlone();
    void assistiveTechnologyFindsEverything();

private:
    bool open(const SheetWindow &window) const
    {
        window.click(window.named(u"cityGuideButton"_s));
        return QTest::qWaitFor([&] { return window.isOpen(sheetName); });
    }
    /// The calls of the two tools, in the order received.
    QList<ReceivedRequest> questions() const
    {
        QList<ReceivedRequest> calls = m_server->toolCalls();
        calls.removeIf([](const ReceivedRequest &call) {
            return call.tool() != guideTool && call.tool() != promotionsTool;
        });
        return calls;
    }
    static bool isLoading(const SheetWindow &window)
    {
        QQuickItem *panel = window.named(u"guideLoadingPanel"_s);
        return panel
            && window.textsIn(panel) == QStringList { u"Rehber bilgileri yükleniyor..."_s };
    }
    static bool showsAPage(const SheetWindow &window)
    {
        return window.named(u"cityGuidePage"_s) || window.named(u"promotionsPage"_s);
    }
};

void CityGuideSheetTest::questionsAsReceived()
{
    const SheetWindow window(*m_server);
    QVERIFY(window.isReady());
    const WarningCatcher catcher;
    serve(
        *m_server,
        { { guideTool, guideOf(u"İstanbul"_s).held() }, { promotionsTool, promotions().held() } });
    window.viewModel()->setOriginCode(u"fco"_s);
    window.viewModel()->swapAirports();
    QVERIFY(open(window));

    // Both are on their way before either is answered.
    QTRY_COMPARE(m_server->heldCount(), 2);
    const QList<ReceivedRequest> asked = questions();
    QCOMPARE(asked.size(), 2);
    const int guide = asked.at(0).tool() == guideTool ? 0 : 1;
    QCOMPARE(asked.at(guide).arguments(), QJsonObject({ { u"cityCode"_s, u"FCO"_s } }));
    QCOMPARE(asked.at(1 - guide).tool(), promotionsTool);
    QCOMPARE(
        asked.at(1 - guide).arguments(),
        QJsonObject({ { u"departureAirportCode"_s, u"IST"_s }, { u"countryCode"_s, u"TR"_s } }));

    // The destination is that of the opening.
    window.viewModel()->setDestinationCode(u"CDG"_s);
    QCOMPARE(window.textsIn(window.named(u"guideTabs"_s)),
             QStringList({ u"fco Şehir Rehberi"_s, u"Aktif Kampanyalar"_s }));
    m_server->release();
    m_server->release();
    QTRY_VERIFY(window.named(u"cityGuidePage"_s));
    QCOMPARE(questions().size(), 2);
    QCOMPARE(WarningCatcher::warnings().join(u"; "_s), QString());
}

void CityGuideSheetTest::nothingShowsBeforeBothHaveCome()
{
    for (const bool guideComesFirst : { true, false }) {
        const SheetWindow window(*m_server);
        QVERIFY(window.isReady());
        ScriptedAnswer guide = guideOf(u"Londra"_s);
        ScriptedAnswer offers = promotions();
        (guideComesFirst ? offers : guide).isHeld = true;
        serve(*m_server, { { guideTool, guide }, { promotionsTool, offers } });
        QVERIFY(open(window));
        QTRY_COMPARE(m_server->heldCount(), 1);
        // The answer that was not held has long come when a further call has ended.
        QVERIFY(settle(VTRMCPClient::shared().callTool(u"any"_s, {})).value);
        QVERIFY(isLoading(window) && !showsAPage(window));
        m_server->release();
        QTRY_VERIFY(window.named(u"cityGuidePage"_s));
        QCOMPARE(window.textsIn(window.named(u"cityGuidePage"_s)), guideTexts);
    }
}

void CityGuideSheetTest::aFailureLeavesTheSheetLoading_data()
{
    QTest::addColumn<QString>("failing");
    QTest::newRow("guide") << guideTool;
    QTest::newRow("promotions") << promotionsTool;
}

void CityGuideSheetTest::aFailureLeavesTheSheetLoading()
{
    QFETCH(const QString, failing);
    const SheetWindow window(*m_server);
    QVERIFY(window.isReady());
    const WarningCatcher catcher;
    QHash<QString, ScriptedAnswer> answers { { guideTool, guideOf(u"Londra"_s) },
                                             { promotionsTool, promotions() } };
    answers.insert(failing, refusal(u"olmadı"_s));
    serve(*m_server, answers);
    QVERIFY(open(window));
    QTRY_COMPARE(questions().size(), 2);
    QVERIFY(settle(VTRMCPClient::shared().callTool(u"any"_s, {})).value);

    window.key(Qt::Key_Right);
    QTest::qWait(50);
    QVERIFY(isLoading(window) && !showsAPage(window));
    const auto *state = stateOf<CityGuideState>(window.window(), sheetName, "guide");
    QVERIFY(state->isLoading() && !state->guideInfo() && state->promotions().isEmpty());
    QCOMPARE(WarningCatcher::warnings().join(u"; "_s), QString());

    // Only opening the sheet again asks again.
    serve(*m_server, { { guideTool, guideOf(u"Londra"_s) }, { promotionsTool, promotions() } });
    window.key(Qt::Key_Escape);
    QTRY_VERIFY(window.isGone(sheetName));
    QVERIFY(open(window));
    QTRY_VERIFY(window.named(u"cityGuidePage"_s));
    QCOMPARE(questions().size(), 4);
}

void CityGuideSheetTest::tabs()
{
    const SheetWindow window(*m_server);
    QVERIFY(window.isReady());
    const WarningCatcher catcher;
    serve(*m_server, { { guideTool, guideOf(u"Londra"_s) }, { promotionsTool, promotions() } });
    QVERIFY(open(window));
    QTRY_VERIFY(window.named(u"cityGuidePage"_s));
    QCOMPARE(window.textsIn(window.named(u"guideTabs"_s)),
             QStringList({ u"LHR Şehir Rehberi"_s, u"Aktif Kampanyalar"_s }));

    window.click(window.itemsOfType("ChoiceButton").constLast());
    QTRY_VERIFY(window.named(u"promotionsPage"_s));
    QVERIFY(!window.named(u"cityGuidePage"_s));
    QCOMPARE(window.textsIn(window.named(u"promotionsPage"_s)), promotionTexts);
    window.key(Qt::Key_Left);
    QTRY_VERIFY(window.named(u"cityGuidePage"_s));
    QCOMPARE(window.textsIn(window.named(u"cityGuidePage"_s)), guideTexts);
    QCOMPARE(questions().size(), 2);
    QCOMPARE(WarningCatcher::warnings().join(u"; "_s), QString());
}

void CityGuideSheetTest::promotionsMayBeNone()
{
    const SheetWindow window(*m_server);
    QVERIFY(window.isReady());
    const ScriptedAnswer none = ScriptedAnswer::content({ { u"promotions"_s, QJsonArray() } });
    serve(*m_server, { { guideTool, guideOf(u"Londra"_s) }, { promotionsTool, none } });
    QVERIFY(open(window));
    QTRY_VERIFY(window.named(u"cityGuidePage"_s));
    window.key(Qt::Key_Right);
    QTRY_VERIFY(!window.named(u"cityGuidePage"_s));
    QVERIFY(window.itemsOfType("PromotionCard").isEmpty());
    QVERIFY(!isLoading(window));
}

void CityGuideSheetTest::theBestTimeMayBeAbsent()
{
    const SheetWindow window(*m_server);
    QVERIFY(window.isReady());
    serve(*m_server, { { guideTool, guideOf(u"Londra"_s) }, { promotionsTool, promotions() } });
    QVERIFY(open(window));
    QTRY_VERIFY(window.named(u"cityGuidePage"_s));

    QQuickItem *page = window.named(u"cityGuidePage"_s);
    CityGuideInfo guide;
    guide.city = u"Roma"_s;
    guide.country = u"İtalya"_s;
    guide.overview = u"Yedi tepe."_s;
    QVERIFY(page->setProperty("guide", QVariant::fromValue(guide)));
    QCOMPARE(window.textsIn(page),
             QStringList({ u"Roma, İtalya"_s, u"Yedi tepe."_s, u"Görülmesi Gereken Yerler"_s,
                           u"Yerel Seyahat İpuçları"_s }));
}

void CityGuideSheetTest::aLaterSheetGetsItsOwnAnswersAlone()
{
    const SheetWindow window(*m_server);
    QVERIFY(window.isReady());
    serve(*m_server,
          { { guideTool, guideOf(u"Eski"_s).held() }, { promotionsTool, promotions() } });
    QVERIFY(open(window));
    QTRY_COMPARE(m_server->heldCount(), 1);
    const QPointer<CityGuideState> first =
        stateOf<CityGuideState>(window.window(), sheetName, "guide");
    window.key(Qt::Key_Escape);
    QTRY_VERIFY(window.isGone(sheetName));
    QTRY_VERIFY(!first);

    serve(*m_server,
          { { guideTool, guideOf(u"Yeni"_s).held() }, { promotionsTool, promotions() } });
    QVERIFY(open(window));
    QTRY_COMPARE(m_server->heldCount(), 2);
    m_server->release();
    QVERIFY(settle(VTRMCPClient::shared().callTool(u"any"_s, {})).value);
    QVERIFY(isLoading(window));
    m_server->release();
    QTRY_VERIFY(window.named(u"cityGuidePage"_s));
    QCOMPARE(window.textsIn(window.named(u"cityGuidePage"_s)).constFirst(),
             u"Yeni, Birleşik Krallık"_s);
}

void CityGuideSheetTest::keyboardAlone()
{
    const SheetWindow window(*m_server);
    QVERIFY(window.isReady());
    const QString state = window.viewModel()->selectedDate();
    const qsizetype searches = m_server->toolCalls().size();
    const QString longCity = u"Londra "_s.repeated(60);
    serve(*m_server, { { guideTool, guideOf(longCity) }, { promotionsTool, promotions() } });
    QQuickItem *header = window.named(u"cityGuideButton"_s);
    header->forceActiveFocus(Qt::TabFocusReason);
    window.key(Qt::Key_Return);
    QTRY_VERIFY(window.isOpen(sheetName));
    QTRY_VERIFY(window.named(u"cityGuidePage"_s));

    // The keyboard is on the tabs, which are one stop, and scrolls the page from there.
    QQuickItem *page = window.named(u"guidePage"_s);
    QVERIFY(page->property("contentHeight").toReal() > page->height());
    window.key(Qt::Key_PageDown);
    QVERIFY(page->property("contentY").toReal() > 0);
    window.key(Qt::Key_Right);
    QTRY_VERIFY(window.named(u"promotionsPage"_s));
    QCOMPARE(page->property("contentY").toReal(), 0.0);
    QQuickItem *tab = window.focused();
    QCOMPARE(accessible(tab)->text(QAccessible::Name), u"Aktif Kampanyalar"_s);
    window.key(Qt::Key_Tab);
    QCOMPARE(accessible(window.focused())->text(QAccessible::Name), u"Kapat"_s);
    window.key(Qt::Key_Tab);
    QCOMPARE(window.focused(), tab);

    window.key(Qt::Key_Escape);
    QTRY_VERIFY(window.isGone(sheetName));
    QCOMPARE(window.focused(), header);
    QCOMPARE(window.viewModel()->selectedDate(), state);
    QCOMPARE(m_server->toolCalls().size(), searches + 2);
}

void CityGuideSheetTest::assistiveTechnologyFindsEverything()
{
    const SheetWindow window(*m_server);
    QVERIFY(window.isReady());
    serve(*m_server,
          { { guideTool, guideOf(u"Londra"_s).held() }, { promotionsTool, promotions() } });
    pressAccessibly(window.named(u"cityGuideButton"_s));
    QTRY_COMPARE(m_server->heldCount(), 1);
    QQuickItem *loading = window.named(u"guideLoadingPanel"_s);
    QCOMPARE(accessible(loading)->text(QAccessible::Name), u"Rehber bilgileri yükleniyor..."_s);
    m_server->release();
    QTRY_VERIFY(window.named(u"cityGuidePage"_s));

    QQuickItem *content = window.itemsOfType("CityGuideTabs").constFirst();
    QCOMPARE(accessibilityFaults(content), QStringList());
    pressAccessibly(window.itemsOfType("ChoiceButton").constLast());
    QTRY_VERIFY(window.named(u"promotionsPage"_s));
    QVERIFY(accessible(window.itemsOfType("ChoiceButton").constLast())->state().checked);
    for (QQuickItem *button : window.itemsOfType("IconButton")) {
        if (accessible(button)->text(QAccessible::Name) == u"Kapat")
            pressAccessibly(button);
    }
    QTRY_VERIFY(window.isGone(sheetName));
}

QTEST_MAIN(CityGuideSheetTest)
#include "CityGuideSheetTest.moc"
