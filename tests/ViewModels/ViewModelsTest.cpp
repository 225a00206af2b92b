#include "ViewModels/FlightSearchViewModel.h"
#include "ViewModels/RecordListModel.h"
#include "support/ClientTesting.h"
#include "support/ConsoleText.h"
#include "support/ToolAnswers.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <tuple>

using namespace Qt::StringLiterals;

namespace {

const QDateTime now(QDate(2026, 2, 20), QTime(23, 30));

const QList<Offer> fourFlights {
    { u"1"_s, 300, u"2026-03-06T10:00"_s, 240 },
    { u"2"_s, 200, u"2026-03-06T09:00"_s, 250, 2 },
    { u"3"_s, 300, u"2026-03-06T08:00"_s, 240 },
    { u"4"_s, 100, u"2026-03-06T10:00"_s, 500, 2 },
};

const QHash<QString, ScriptedAnswer> good {
    { calendarTool, calendarAnswer(2, QDate(2026, 3, 6), u"EUR"_s) },
    { flightsTool, flightsAnswer(fourFlights) },
};

QString numbers(const QList<FlightOption> &flights)
{
    QString text;
    for (const FlightOption &flight : flights)
        text += flight.flightNumber.mid(2);
    return text;
}

/// Days named by letters; a capital is another record of the same identity.
QList<DailyPrice> letters(const QString &text)
{
    QList<DailyPrice> list;
    for (const QChar letter : text)
        list.append({ .date = letter.toLower(), .isBestPrice = letter.isUpper() });
    return list;
}

} // namespace

/// The search, and what list models tell of new records.
class ViewModelsTest : public ClientTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        ClientTest::init();
        m_answers = good;
        m_model = std::make_unique<FlightSearchViewModel>(nullptr, now);
    }
    void cleanup()
    {
        m_model.reset();
        ClientTest::cleanup();
    }

    void missingAirportsAreNotSent()
    {
        m_model->setDepartureDate(now);
        for (const auto &[origin, destination] :
             { std::pair(QString(), u"LHR"_s), std::pair(u"IST"_s, QString()) }) {
            m_model->setOriginCode(origin);
            m_model->setDestinationCode(destination);
            m_model->startSearchAll();
            QCOMPARE(m_model->errorMessage(),
                     std::optional(u"Lütfen kalkış ve varış havalimanlarını seçin."_s));
            QCOMPARE(state(), u"flights: none, days: 0, currency: TRY"_s);
            QCOMPARE(m_model->selectedDate(), u"2026-03-06"_s);
        }
        m_model->swapAirports();
        m_model->setOriginCode(u" "_s); // a code like any other
        search();
        QVERIFY(!m_model->errorMessage());
        QCOMPARE(lastArguments().value("to"_L1), u"IST"_s);
    }

    void aSearchPublishesInOrder()
    {
        using Model = FlightSearchViewModel;
        QString log;
        QString before;
        connect(m_model.get(), &ObservableObject::objectWillChange, this,
                [&] { before = state(); });
        const auto follow = [&](const char *name, void (Model::*changed)()) {
            connect(m_model.get(), changed, this, [&, name] {
                log += QLatin1String(name) + u' ';
                QVERIFY2(before != state(), name); // the notice came before the change
                before = state();
            });
        };
        follow("isLoading", &Model::isLoadingChanged);
        follow("hasSearched", &Model::hasSearchedChanged);
        follow("calendar", &Model::calendarPricesChanged);
        follow("best", &Model::bestPriceChanged);
        follow("currency", &Model::currencyChanged);
        follow("flights", &Model::filteredFlightsChanged);

        m_answers.insert(flightsTool, flightsAnswer(fourFlights).held());
        m_model->startSearchAll();
        QCOMPARE(log, u"isLoading hasSearched "_s);
        QTRY_COMPARE(m_server->heldCount(), 1);
        QTRY_COMPARE(log, u"isLoading hasSearched calendar best currency "_s);
        QVERIFY(m_model->isLoading());
        m_server->release();
        QTRY_COMPARE(log, u"isLoading hasSearched calendar best currency flights isLoading "_s);
        QCOMPARE(m_model->highestPrice(), 4100.0);
    }

    void daysThatFailLeaveTheEarlierOnes()
    {
        search();
        m_answers = { { calendarTool, ScriptedAnswer::failure(u"%1\ndolu"_s) },
                      { flightsTool, flightsAnswer({ { u"9"_s } }) } };
        const QString console = consoleTextDuring([this] { search(); });
        QVERIFY(!m_model->errorMessage());
        QCOMPARE(console, u"Price calendar fetch error: %1 dolu\n"_s);
        QCOMPARE(state(), u"searched, best day, flights: 9, days: 2, currency: EUR"_s);
    }

    void quittingPrintsNothing()
    {
        m_answers = { { calendarTool, ScriptedAnswer::content().held() },
                      { flightsTool, ScriptedAnswer::content().held() } };
        const QString console = consoleTextDuring([this] {
            m_model->startSearchAll();
            QTRY_COMPARE(m_server->heldCount(), 2);
            QVERIFY(QMetaObject::invokeMethod(qApp, "aboutToQuit"));
        });
        QVERIFY(!m_model->isLoading());
        QCOMPARE(console, QString());
    }

    void choosingADay()
    {
        search();
        const QDateTime departure = m_model->departureDate();
        m_model->setTripType(TripType::roundTrip);
        m_model->setPassengers(3);
        m_answers.insert(flightsTool, flightsAnswer({ { u"7"_s } }).held());
        for (const QString &day : { u"2026-13-45"_s, u"2026-03-09"_s }) {
            m_model->startSelectCalendarDate(day);
            QCOMPARE(m_model->selectedDate(), day);
            QVERIFY(m_model->isSearchingFlightsOnly());
            QVERIFY(!m_model->isLoading());
            QTRY_COMPARE(m_server->heldCount(), 1);
            const QJsonObject asked = lastArguments();
            QCOMPARE(QJsonArray({ asked["departureDate"_L1], asked["returnDate"_L1],
                                  asked["passengers"_L1][0]["quantity"_L1] }),
                     QJsonArray({ day, m_model->returnDate().toString(u"yyyy-MM-dd"_s), 3 }));
            QCOMPARE(m_model->departureDate(),
                     day == u"2026-03-09" ? QDate(2026, 3, 9).startOfDay() : departure);
            m_server->release();
            QTRY_VERIFY(!m_model->isSearchingFlightsOnly());
        }
        QCOMPARE(numbers(m_model->filteredFlights()), u"7"_s);
    }

    void filters()
    {
        for (const auto &[option, shown] : { std::pair(FlightSortOption::cheapest, u"4213"_s),
                                             { FlightSortOption::earliest, u"3214"_s },
                                             { FlightSortOption::fastest, u"1324"_s },
                                             { FlightSortOption::directOnly, u"13"_s } }) {
            // The new list is arranged on arrival; then again.
            m_model->applyFilter(option);
            search();
            QCOMPARE(numbers(m_model->filteredFlights()), shown);
            QVERIFY(m_model->filteredFlightsList()->areNew());
            m_model->applyFilter(FlightSortOption::directOnly);
            m_model->applyFilter(option);
            QCOMPARE(numbers(m_model->filteredFlights()), shown);
            QVERIFY(!m_model->filteredFlightsList()->areNew());
        }
        QCOMPARE(numbers(m_model->flights()), u"1234"_s);
    }

    void changesOfAList()
    {
        for (const auto &[before, after, signalled] :
             { std::tuple(QString(), u"abc"_s, u" insert insert insert"_s),
               { u"abc"_s, QString(), u" remove remove remove"_s },
               { u"abc"_s, u"abc"_s, QString() },
               { u"abc"_s, u"cab"_s, u" move"_s },
               { u"abc"_s, u"Ca"_s, u" remove move change"_s },
               { u"abc"_s, u"xaYc"_s, u" remove insert insert"_s },
               { u"abc"_s, u"aab"_s, u" reset"_s },
               { u"aab"_s, u"abc"_s, u" reset"_s } })
            change(before, after, signalled);
    }

private:
    void change(const QString &before, const QString &after, const QString &signalled)
    {
        RecordListModel<DailyPrice> model("price");
        const QAbstractItemModelTester tester(
            &model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.setRecords(letters(before));
        QList<QPersistentModelIndex> rows;
        for (int row = 0; row < model.rowCount(); ++row)
            rows.append(model.index(row));

        QString seen;
        using Model = QAbstractItemModel;
        connect(&model, &Model::rowsInserted, &model, [&] { seen += u" insert"; });
        connect(&model, &Model::rowsRemoved, &model, [&] { seen += u" remove"; });
        connect(&model, &Model::rowsMoved, &model, [&] { seen += u" move"; });
        connect(&model, &Model::dataChanged, &model, [&](const QModelIndex &changed) {
            seen += u" change";
            QVERIFY(model.records().at(changed.row()).isBestPrice);
        });
        connect(&model, &Model::modelReset, &model, [&] { seen += u" reset"; });
        const QSignalSpy counts(&model, &CountedListModel::countChanged);
        model.setRecords(letters(after));

        QCOMPARE(seen, signalled);
        QCOMPARE(model.records(), letters(after));
        // Every row stays that of its letter.
        for (qsizetype i = 0; i < rows.size() && signalled != u" reset"; ++i)
            QCOMPARE(rows.at(i).row(), after.toLower().indexOf(before.at(i)));
        QCOMPARE(counts.size(), before.size() == after.size() ? 0 : 1);
    }
    QString state() const
    {
        const QString flights = numbers(m_model->filteredFlights());
        return u"%1%2%3flights: %4, days: %5, currency: %6"_s
            .arg(m_model->isLoading() ? u"loading, "_s : QString())
            .arg(m_model->hasSearched() ? u"searched, "_s : QString())
            .arg(m_model->bestPrice() ? u"best day, "_s : QString())
            .arg(flights.isEmpty() ? u"none"_s : flights)
            .arg(m_model->calendarPrices().size())
            .arg(m_model->currency());
    }
    void search()
    {
        m_model->startSearchAll();
        QTRY_VERIFY(!m_model->isLoading());
    }
    /// Of the last search for flights.
    QJsonObject lastArguments() const
    {
        return m_server->toolCalls(flightsTool).constLast().arguments();
    }

    std::unique_ptr<FlightSearchViewModel> m_model;
};

QTEST_GUILESS_MAIN(ViewModelsTest)
#include "ViewModelsTest.moc"
