#include "support/ParsedJson.h"
#include "support/WindowTesting.h"

using namespace Qt::StringLiterals;

namespace {

const QString sheetName = u"cityGuideSheet"_s;

/// The guide of the known answers, but for these changes.
ScriptedAnswer guide(const QJsonObject &changes = {})
{
    QJsonObject guide = knownAnswers()[guideTool]["guide"_L1].toObject();
    for (auto change = changes.begin(); change != changes.end(); ++change)
        guide.insert(change.key(), change.value());
    return ScriptedAnswer::content({ { u"guide"_s, guide } });
}

ScriptedAnswer promotions()
{
    return ScriptedAnswer::content(knownAnswers()[promotionsTool].toObject());
}

} // namespace

/// The city guide and its promotions in the real window.
class CityGuideSheetTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        WindowTest::init();
        m_answers.insert(guideTool, guide());
        m_answers.insert(promotionsTool, promotions());
    }

    void guideAndPromotionsAreAskedForAndShownAtOnce()
    {
        m_answers = { { guideTool, guide().held() }, { promotionsTool, promotions().held() } };
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
        QTRY_COMPARE(shownPage().section(u'|', 0, 0), u"Londra, Birleşik Krallık"_s);
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
            QTRY_COMPARE(shownPage().section(u'|', 0, 0), u"Londra, Birleşik Krallık"_s);
            QVERIFY(m_window->close(sheetName));
        }
    }

    void absentPartsOfTheGuideAreNotShown()
    {
        m_answers = { { guideTool, guide({ { u"bestTimeToVisit"_s, QString() } }) },
                      { promotionsTool,
                        ScriptedAnswer::content(parsed(R"({"promotions": []})")) } };
        QVERIFY(openSheet());
        QTRY_VERIFY(m_window->named(u"cityGuidePage"_s));
        QVERIFY2(!shownPage().contains(u"En İdeal Ziyaret Zamanı"), qPrintable(shownPage()));
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
        m_answers.insert(guideTool, guide({ { u"cityName"_s, u"Londra "_s.repeated(60) } }));
        QVERIFY(openSheet());
        QTRY_VERIFY(m_window->named(u"cityGuidePage"_s));
        // The keyboard is on the tabs and scrolls the page from there.
        QQuickItem *page = m_window->named(u"sheetPage"_s);
        QVERIFY(page->property("contentHeight").toReal() > page->height());
        m_window->press("PgDown");
        QVERIFY(page->property("contentY").toReal() > 0);
        m_window->press("Right");
        QTRY_COMPARE(shownPage().section(u'|', 0, 0), u"Erken"_s);
        QCOMPARE(page->property("contentY").toReal(), 0.0);
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
