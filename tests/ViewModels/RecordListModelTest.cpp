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
        QTest::addColumn<QString>("after");
        // i: insert, r: remove, m: move, c: change, R: reset
        QTest::addColumn<QString>("signalled");
        const auto row = [](const char *before, const QString &after, const QString &signalled) {
            QTest::addRow("%s > %s", before, qPrintable(after)) << after << signalled;
        };
        row("", u"abc"_s, u"iii"_s);
        row("abc", QString(), u"rrr"_s);
        row("abc", u"abc"_s, QString());
        row("abc", u"cab"_s, u"m"_s);
        row("abc", u"Ca"_s, u"rmc"_s);
        row("abc", u"xaYc"_s, u"rii"_s);
        row("abc", u"aab"_s, u"R"_s);
        row("aab", u"abc"_s, u"R"_s);
    }
    void changes()
    {
        const QString before = QString::fromUtf8(QTest::currentDataTag()).section(u' ', 0, 0);
        QFETCH(QString, after);
        QFETCH(QString, signalled);
        RecordListModel<Letter> model("letter");
        const QAbstractItemModelTester tester(
            &model, QAbstractItemModelTester::FailureReportingMode::QtTest);
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
        const QSignalSpy counts(&model, &CountedListModel::countChanged);
        model.setRecords(letters(after));

        QCOMPARE(seen, signalled);
        QCOMPARE(view, letters(after));
        QCOMPARE(counts.size(), before.size() == after.size() ? 0 : 1);
    }
};

QTEST_GUILESS_MAIN(RecordListModelTest)
#include "RecordListModelTest.moc"
