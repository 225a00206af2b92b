#include "ViewModels/RecordListModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A letter; its capital is another record of the same identity.
struct Letter
{
    QChar letter;
    friend bool operator==(const Letter &, const Letter &) = default;
};
QString identity(const Letter &record) { return record.letter.toLower(); }

QList<Letter> letters(const QString &text)
{
    QList<Letter> list;
    for (const QChar letter : text)
        list.append({ letter });
    return list;
}

} // namespace

class RecordListModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changes_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>(
            "signalled"); // i: insert, r: remove, m: move, c: change, R: reset

        const auto row = [](const QString &before, const QString &after, const QString &signalled) {
            QTest::newRow(qPrintable(before + u" > "_s + after)) << before << after << signalled;
        };
        row(QString(), u"abc"_s, u"iii"_s);
        row(u"abc"_s, QString(), u"rrr"_s);
        row(u"abc"_s, u"abc"_s, QString());
        row(u"abc"_s, u"cab"_s, u"m"_s);
        row(u"abc"_s, u"aBc"_s, u"c"_s);
        row(u"abc"_s, u"Ca"_s, u"rmc"_s);
        row(u"abc"_s, u"xaYc"_s, u"rii"_s);
        row(u"abc"_s, u"aab"_s, u"R"_s);
        row(u"aab"_s, u"abc"_s, u"R"_s);
    }
    void changes()
    {
        QFETCH(QString, before);
        QFETCH(QString, after);
        QFETCH(QString, signalled);
        RecordListModel<Letter> model("letter");
        QAbstractItemModelTester tester(&model,
                                        QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.setRecords(letters(before));

        QString seen;
        QList<Letter> view = letters(before); // follows the signals
        using Model = QAbstractItemModel;
        connect(&model, &Model::rowsInserted, &model, [&](const QModelIndex &, int first) {
            seen += u'i';
            view.insert(first, model.records().at(first));
        });
        connect(&model, &Model::rowsRemoved, &model, [&](const QModelIndex &, int first) {
            seen += u'r';
            view.removeAt(first);
        });
        connect(&model, &Model::rowsMoved, &model,
                [&](const QModelIndex &, int from, int, const QModelIndex &, int to) {
                    seen += u'm';
                    view.move(from, to > from ? to - 1 : to);
                });
        connect(&model, &Model::dataChanged, &model, [&](const QModelIndex &index) {
            seen += u'c';
            view[index.row()] = model.records().at(index.row());
        });
        connect(&model, &Model::modelReset, &model, [&] {
            seen += u'R';
            view = model.records();
        });
        QSignalSpy counts(&model, &CountedListModel::countChanged);
        model.setRecords(letters(after));

        QCOMPARE(seen, signalled);
        QCOMPARE(model.records(), letters(after));
        QCOMPARE(view, letters(after));
        QCOMPARE(counts.size(), before.size() == after.size() ? 0 : 1);
    }
};

QTEST_GUILESS_MAIN(RecordListModelTest)
#include "RecordListModelTest.moc"
