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
        QList<QPersistentModelIndex> rows;
        for (int row = 0; row < model.rowCount(); ++row)
            rows.append(model.index(row));

        QString seen;
        using Model = QAbstractItemModel;
        connect(&model, &Model::rowsInserted, &model, [&] { seen += u'i'; });
        connect(&model, &Model::rowsRemoved, &model, [&] { seen += u'r'; });
        connect(&model, &Model::rowsMoved, &model, [&] { seen += u'm'; });
        connect(&model, &Model::dataChanged, &model, [&](const QModelIndex &changed) {
            seen += u'c';
            QVERIFY(model.records().at(changed.row()).letter.isUpper());
        });
        connect(&model, &Model::modelReset, &model, [&] { seen += u'R'; });
        const QSignalSpy counts(&model, &CountedListModel::countChanged);
        model.setRecords(letters(after));

        QCOMPARE(seen, signalled);
        QCOMPARE(model.records(), letters(after));
        // Every row stays that of its letter.
        for (qsizetype i = 0; i < rows.size() && signalled != u"R"; ++i)
            QCOMPARE(rows.at(i).row(), after.toLower().indexOf(before.at(i)));
        QCOMPARE(counts.size(), before.size() == after.size() ? 0 : 1);
    }
};

QTEST_GUILESS_MAIN(RecordListModelTest)
#include "RecordListModelTest.moc"
