#include "ViewModels/FlightSearchViewModel.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// One flight for each letter; a capital is another record of the same identity.
QList<FlightOption> flights(const QString &letters)
{
    QList<FlightOption> list;
    for (const QChar letter : letters) {
        FlightOption flight;
        flight.id = letter.toLower();
        flight.price = letter.isUpper() ? 2 : 1;
        list.append(flight);
    }
    return list;
}

} // namespace

class RecordListModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changes_data();
    void changes();
    void aViewThatFollowsTheSignalsEndsUpRight();
    void longListsAreReplacedAtOnce();
};

void RecordListModelTest::changes_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("signalled"); // i: insert, r: remove, m: move, c: change, R: reset

    const auto row = [](const QString &before, const QString &after, const QString &signalled) {
        QTest::newRow(qPrintable(before + u" > "_s + after)) << before << after << signalled;
    };
    row(QString(), u"abc"_s, u"iii"_s);
    row(u"abc"_s, QString(), u"rrr"_s);
    row(u"abc"_s, u"abc"_s, QString());
    row(u"abc"_s, u"cab"_s, u"m"_s);
    row(u"abc"_s, u"bca"_s, u"mm"_s);
    row(u"abc"_s, u"aBc"_s, u"c"_s);
    row(u"abc"_s, u"Ca"_s, u"rmc"_s);
    row(u"abc"_s, u"xaYc"_s, u"rii"_s);
    row(u"abc"_s, u"aab"_s, u"R"_s);
    row(u"aab"_s, u"abc"_s, u"R"_s);
}

void RecordListModelTest::changes()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    QFETCH(QString, signalled);
    FlightListModel model("flight");
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.setRecords(flights(before));

    QString seen;
    connect(&model, &QAbstractItemModel::rowsInserted, &model, [&] { seen += u'i'; });
    connect(&model, &QAbstractItemModel::rowsRemoved, &model, [&] { seen += u'r'; });
    connect(&model, &QAbstractItemModel::rowsMoved, &model, [&] { seen += u'm'; });
    connect(&model, &QAbstractItemModel::dataChanged, &model, [&] { seen += u'c'; });
    connect(&model, &QAbstractItemModel::modelReset, &model, [&] { seen += u'R'; });
    QSignalSpy counts(&model, &CountedListModel::countChanged);
    model.setRecords(flights(after));

    QCOMPARE(seen, signalled);
    QCOMPARE(model.records(), flights(after));
    QCOMPARE(counts.size(), before.size() == after.size() ? 0 : 1);
}

void RecordListModelTest::aViewThatFollowsTheSignalsEndsUpRight()
{
    FlightListModel model("flight");
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QStringList view;
    connect(&model, &QAbstractItemModel::rowsInserted, &model,
            [&](const QModelIndex &, int first, int) {
                view.insert(first, model.records().at(first).id);
            });
    connect(&model, &QAbstractItemModel::rowsRemoved, &model,
            [&](const QModelIndex &, int first, int) { view.removeAt(first); });
    connect(&model, &QAbstractItemModel::rowsMoved, &model,
            [&](const QModelIndex &, int from, int, const QModelIndex &, int to) {
                view.move(from, to > from ? to - 1 : to);
            });

    QRandomGenerator random(1);
    for (int round = 0; round < 200; ++round) {
        QString letters;
        for (char16_t letter = u'a'; letter <= u'l'; ++letter) {
            if (random.bounded(3) > 0)
                letters.insert(random.bounded(letters.size() + 1), letter);
        }
        model.setRecords(flights(letters));
        QCOMPARE(view.join(QString()), letters);
    }
}

void RecordListModelTest::longListsAreReplacedAtOnce()
{
    QList<FlightOption> list;
    for (int number = 0; number < 10'000; ++number) {
        list.append(FlightOption());
        list.last().id = QString::number(number);
    }
    FlightListModel model("flight");
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    QSignalSpy moves(&model, &QAbstractItemModel::rowsMoved);
    model.setRecords(list);
    std::reverse(list.begin(), list.end());
    model.setRecords(list);
    QCOMPARE(resets.size(), 2);
    QCOMPARE(moves.size(), 0);
    // Back among the short ones, rows change one by one again.
    list = list.first(300);
    model.setRecords(list);
    std::reverse(list.begin(), list.end());
    model.setRecords(list);
    QCOMPARE(resets.size(), 3);
    QCOMPARE(moves.size(), 299);
}

QTEST_GUILESS_MAIN(RecordListModelTest)
#include "RecordListModelTest.moc"
