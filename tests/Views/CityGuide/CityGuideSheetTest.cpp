#include "ViewModels/CityGuideViewModel.h"
#include "support/WindowTesting.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

const QString sheetName = u"cityGuideSheet"_s;

ScriptedAnswer guideOf(const QString &city, const QString &bestTime = u"Mayıs - Eylül"_s)
{
    return ScriptedAnswer::content({ { u"cityName"_s, city },
                                     { u"countryName"_s, u"Birleşik Krallık"_s },
                                     { u"overview"_s, u"Thames'in iki yakası."_s },
                                     { u"bestTimeToVisit"_s, bestTime },
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

const QString listsText = u"Görülmesi Gereken Yerler|Kule|Yerel Seyahat İpuçları|Kart alın."_s;
const QString guideText =
    u"Londra, Birleşik Krallık|Thames'in iki yakası.|En İdeal Ziyaret Zamanı|Mayıs - Eylül|"_s
    + listsText;
const QString promotionsText = u"Erken|%25|<img src='http://127.0.0.1/x'>|İstanbul ⇄ Avrupa|"
                               "Son Geçerlilik: 30 Eylül|Erken|Yalın"_s;

} // namespace

/// The city guide sheet in the real window.
class CityGuideSheetTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        WindowTest::init();
        m_answers.insert(guideTool, guideOf(u"Londra"_s));
        m_answers.insert(promotionsTool, promotions());
    }

    void bothAreAskedForAndShownAtOnce()
    {
        m_answers = { { guideTool, guideOf(u"Londra"_s).held() },
                      { promotionsTool, promotions().held() } };
        m_window->viewModel()->setOriginCode(u"fco"_s);
        m_window->viewModel()->swapAirports();
        QVERIFY(open());

        // Both are on their way before either is answered.
        QTRY_COMPARE(m_server->heldCount(), 2);
        const QJsonObject promotionsArguments { { u"departureAirportCode"_s, u"IST"_s },
                                                { u"countryCode"_s, u"TR"_s } };
        const QJsonObject guideArguments { { u"cityCode"_s, u"FCO"_s } };
        for (const ReceivedRequest &question : questions()) {
            QCOMPARE(question.arguments(),
                     question.tool() == guideTool ? guideArguments : promotionsArguments);
        }
        // The destination is that of the opening.
        m_window->viewModel()->setDestinationCode(u"CDG"_s);
        QCOMPARE(m_window->textOf(u"guideTabs"_s), u"fco Şehir Rehberi|Aktif Kampanyalar"_s);
        // The first answer has long come when a further call has ended.
        m_server->release();
        QVERIFY(settle(call()).value);
        QVERIFY(isLoading());
        m_server->release();
        QTRY_COMPARE(m_window->textOf(u"cityGuidePage"_s), guideText);
    }

    void aFailureLeavesTheSheetLoading()
    {
        for (const QString &failing : { guideTool, promotionsTool }) {
            const ScriptedAnswer answer = m_answers.value(failing);
            const qsizetype before = questions().size();
            m_answers.insert(failing, ScriptedAnswer::failure(u"olmadı"_s));
            QVERIFY(open());
            QTRY_COMPARE(questions().size(), before + 2);
            QVERIFY(settle(call()).value);
            m_window->key(Qt::Key_Right);
            QTest::qWait(50);
            QVERIFY(isLoading());

            // Only opening the sheet again asks again.
            m_answers.insert(failing, answer);
            QVERIFY(m_window->close(sheetName) && open());
            QTRY_VERIFY(m_window->named(u"cityGuidePage"_s));
            QVERIFY(m_window->close(sheetName));
        }
    }

    void tabs()
    {
        QVERIFY(open());
        QTRY_COMPARE(m_window->textOf(u"cityGuidePage"_s), guideText);
        QCOMPARE(m_window->textOf(u"guideTabs"_s), u"LHR Şehir Rehberi|Aktif Kampanyalar"_s);
        QQuickItem *tab = m_window->called(u"Aktif Kampanyalar"_s);
        QCOMPARE(accessible(tab)->role(), QAccessible::RadioButton);
        QVERIFY(!accessible(tab)->state().checked);
        pressAccessibly(tab);
        QTRY_COMPARE(m_window->textOf(u"promotionsPage"_s), promotionsText);
        QVERIFY(accessible(tab)->state().checked);
        QVERIFY(!m_window->named(u"cityGuidePage"_s));
        m_window->click(m_window->called(u"LHR Şehir Rehberi"_s));
        QTRY_COMPARE(m_window->textOf(u"cityGuidePage"_s), guideText);
        QCOMPARE(questions().size(), 2);
        pressAccessibly(m_window->called(u"Kapat"_s));
        QTRY_VERIFY(m_window->isGone(sheetName));
    }

    void absentPartsAreNotShown()
    {
        m_answers.insert(guideTool, guideOf(u"Londra"_s, QString()));
        const ScriptedAnswer none = ScriptedAnswer::content({ { u"promotions"_s, QJsonArray() } });
        m_answers.insert(promotionsTool, none);
        QVERIFY(open());
        QTRY_COMPARE(m_window->textOf(u"cityGuidePage"_s),
                     u"Londra, Birleşik Krallık|Thames'in iki yakası.|"_s + listsText);
        m_window->key(Qt::Key_Right);
        QTRY_VERIFY(!m_window->named(u"cityGuidePage"_s));
        QVERIFY(m_window->itemsOfType("PromotionCard").isEmpty());
        QVERIFY(!m_window->named(u"guideLoadingPanel"_s));
    }

    void thePageScrollsByKeyboard()
    {
        m_answers.insert(guideTool, guideOf(u"Londra "_s.repeated(60)));
        QVERIFY(open());
        QTRY_VERIFY(m_window->named(u"cityGuidePage"_s));
        // The keyboard is on the tabs and scrolls the page from there.
        QQuickItem *page = m_window->named(u"sheetPage"_s);
        QVERIFY(page->property("contentHeight").toReal() > page->height());
        m_window->key(Qt::Key_PageDown);
        QVERIFY(page->property("contentY").toReal() > 0);
        m_window->key(Qt::Key_Right);
        QTRY_VERIFY(m_window->named(u"promotionsPage"_s));
        QCOMPARE(page->property("contentY").toReal(), 0.0);
        for (const QString &stop : { u"Aktif Kampanyalar"_s, u"Kapat"_s, u"Aktif Kampanyalar"_s }) {
            QCOMPARE(m_window->focusedName(), stop);
            m_window->key(Qt::Key_Tab);
        }
    }

private:
    bool open() const { return m_window->open(u"cityGuideButton"_s, sheetName); }
    /// Whether the sheet says that it loads, and shows nothing else.
    bool isLoading() const
    {
        const QString text = u"Rehber bilgileri yükleniyor..."_s;
        return m_window->textOf(u"guideLoadingPanel"_s) == text && m_window->called(text)
            && !m_window->named(u"cityGuidePage"_s) && !m_window->named(u"promotionsPage"_s);
    }
};

QTEST_MAIN(CityGuideSheetTest)
#include "CityGuideSheetTest.moc"
