#include "inspect/SeenTexts.h"
#include "support/WindowTesting.h"

#include <QBuffer>
#include <QImage>
#include <QQmlComponent>
#include <QQmlEngine>

using namespace Qt::StringLiterals;

/// Every text that a server or a user can send says in several languages of markup: fetch an
/// image.
class HostileTextsTest : public WindowTest
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsFetched()
    {
        QBuffer image;
        QImage(1, 1, QImage::Format_RGB32).save(&image, "png");
        const QJsonObject answers = hostile(knownAnswers(), u""_s).toObject();
        m_server->onToolCall = [this, answers, png = image.data()](const ReceivedRequest &request) {
            if (request.method == "GET")
                return ScriptedAnswer::text(png);
            const QString tool = request.tool();
            return m_fails.contains(tool) ? ScriptedAnswer::failure(hostile(u"error"_s))
                                          : ScriptedAnswer::content(answers[tool].toObject());
        };
        m_window->window()->resize(1280, 1500);
        m_window->viewModel()->startSearchAll();
        QVERIFY(m_window->waitForSearch());
        look(u"currency"_s);
        look(u"departureAirportCode"_s);
        // The digits of the port may be taken for a type of aircraft, whose name is shown then.
        m_seen.insert(u"equipment"_s);
        m_fails = { flightsTool, statusTool };
        m_window->viewModel()->startSelectCalendarDate(hostile(u"day"_s));
        look(u"error"_s);

        QVERIFY(m_window->open(u"flightStatusButton"_s, u"flightStatusSheet"_s));
        m_window->type(hostile(u"number"_s));
        m_window->press("Return");
        look(u"error"_s);
        m_fails.clear();
        m_window->press("Return");
        look(u"status"_s);
        QVERIFY(m_window->close(u"flightStatusSheet"_s));
        QVERIFY(m_window->open(u"cityGuideButton"_s, u"cityGuideSheet"_s));
        look(u"overview"_s);
        m_window->press("PgDown");
        look(u"localTips"_s);
        m_window->press("Right");
        look(u"discount"_s);
        QVERIFY(m_window->close(u"cityGuideSheet"_s));
        m_window->press("Return", u"originButton"_s);
        m_window->type(hostile(u"query"_s));
        look(u"query"_s);

        QStringList unseen = m_sent;
        unseen.removeIf([this](const QString &field) { return m_seen.contains(field); });
        // Nothing shows these, or only what of them is a day, a time or short enough for a price.
        QCOMPARE(unseen.join(u' '),
                 u"date estimatedDeparture culinaryHighlights cheapestBookingPriceType "
                 "cheapestPriceCurrency deeplinks arrivalDateTime departureDateTime"_s);

        // The engine can fetch, and did so from here alone.
        QQmlComponent bait(qmlEngine(m_window->window()));
        bait.setData("import QtQuick; Text { property string bait; text: bait }", QUrl());
        const std::unique_ptr<QObject> eater(
            bait.createWithInitialProperties({ { u"bait"_s, hostile(u"bait"_s) } }));
        QTRY_VERIFY(!fetched().isEmpty());
        QCOMPARE(fetched().join(u' '), u"/bait"_s);
    }

private:
    QString hostile(const QString &field)
    {
        if (!m_sent.contains(field))
            m_sent.append(field);
        const QString address = m_server->endpoint().resolved(QUrl(u'/' + field)).toString();
        return u"<img src='%1'><b>x</b> ![](%1)"_s.arg(address);
    }
    /// The same with every text made hostile.
    QJsonValue hostile(const QJsonValue &json, const QString &key)
    {
        QJsonArray array = json.toArray();
        for (auto element : array)
            element = hostile(element, key);
        QJsonObject object = json.toObject();
        for (auto member = object.begin(); member != object.end(); ++member)
            member.value() = hostile(member.value(), member.key());
        return json.isArray() ? array
            : json.isObject() ? object
            : json.isString() ? hostile(key)
                              : json;
    }
    /// Notes which fields are seen, once this one is.
    void look(const QString &field)
    {
        QTRY_VERIFY2(seenTexts(m_window->window()).join(u'\n').contains(u'/' + field + u'\''),
                     qPrintable(seenTexts(m_window->window()).join(u'\n')));
        const QString seen = seenTexts(m_window->window()).join(u'\n');
        for (const QString &sent : std::as_const(m_sent)) {
            if (seen.contains(u'/' + sent + u'\''))
                m_seen.insert(sent);
        }
    }
    /// The paths of all that was asked for but for calls.
    QStringList fetched() const
    {
        QStringList paths;
        for (const ReceivedRequest &request : m_server->requests()) {
            if (request.method != "POST" || request.path != "/mcp")
                paths.append(QString::fromLatin1(request.path));
        }
        return paths;
    }

    QStringList m_sent;
    QSet<QString> m_seen;
    /// The tools that fail.
    QStringList m_fails;
};

QTEST_MAIN(HostileTextsTest)
#include "HostileTextsTest.moc"
