// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/day_list_model.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include "store/day_store.h"
#include "store/row_search.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

namespace {

/// 5000 anniversaries "n1", "n2" .., more than a list keeps in memory.
struct Bench {
    store::DayStore store;
    store::DayDatabase database{store.Path()};

    Bench() {
        store.Raw(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 5000)"
            "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) SELECT 'n' || i,0,10,3,0 FROM n");
    }
    ListedRows Rows() {
        store::RowSearch search(u"SELECT * FROM Kinenbi WHERE Day = 3"_s);
        while (!search.Step(database)) {
        }
        return {database, {{search.Take(), RowForm::OfDay}}};
    }
};

}  // namespace

/// The model of the day list, queried as by a view.
class TstDayListModel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void HasFiveColumns();
    void ShowsTheTextsOfItsRows();
    void OnlyTheNameHasAPicture();
    void ShowsReplacedRowsAtOnce();
    void CanShowOnlyTheName();
    void ARowThatCannotBeReadSaysSo();
    void FindsATypedNameAmongTheNextRows();
};

void TstDayListModel::HasFiveColumns() {
    const DayListModel model(QVariant(), DayListModel::Columns::All, nullptr);
    QStringList captions;
    for (int column = 0; column < model.columnCount(); ++column) {
        captions.append(model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    }
    QCOMPARE(captions, QStringList({u"記念日"_s, u"年"_s, u"月"_s, u"日"_s, u"週"_s}));
    QVERIFY(!model.headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
}

void TstDayListModel::ShowsTheTextsOfItsRows() {
    DayListModel model(QVariant(), DayListModel::Columns::All, nullptr);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.SetRows(QList<DayListRow>{{u"a"_s, u"毎"_s, u"10"_s, u"3"_s, QString()},
                                    {u"例会"_s, u"1998"_s, u"毎"_s, QString(), u"第2週月"_s}});
    QCOMPARE(model.rowCount(), 2);
    QStringList shown;
    for (int column = 0; column < model.columnCount(); ++column) {
        shown.append(model.index(1, column).data().toString());
    }
    QCOMPARE(shown, QStringList({u"例会"_s, u"1998"_s, u"毎"_s, QString(), u"第2週月"_s}));
}

void TstDayListModel::OnlyTheNameHasAPicture() {
    DayListModel model(u"picture"_s, DayListModel::Columns::All, nullptr);
    model.SetRows(QList<DayListRow>{{u"a"_s, u"毎"_s, u"10"_s, u"3"_s, QString()}});
    QCOMPARE(model.index(0, 0).data(Qt::DecorationRole), QVariant(u"picture"_s));
    QVERIFY(!model.index(0, 1).data(Qt::DecorationRole).isValid());
}

void TstDayListModel::ShowsReplacedRowsAtOnce() {
    DayListModel model(QVariant(), DayListModel::Columns::All, nullptr);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    model.SetRows(QList<DayListRow>{{u"a"_s, u"毎"_s, u"10"_s, u"3"_s, QString()}});
    model.SetRows({});
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(resets.count(), 2);
}

void TstDayListModel::CanShowOnlyTheName() {
    DayListModel model(QVariant(), DayListModel::Columns::Name, nullptr);
    model.SetRows(QList<DayListRow>{{u"a"_s, u"毎"_s, u"10"_s, u"3"_s, QString()}});
    QCOMPARE(model.columnCount(), 1);
    QCOMPARE(model.index(0, 0).data().toString(), u"a"_s);
}

void TstDayListModel::ARowThatCannotBeReadSaysSo() {
    Bench bench;
    DayListModel model(QVariant(), DayListModel::Columns::All, nullptr);
    model.SetRows(bench.Rows());
    QCOMPARE(model.index(1999, 0).data().toString(), u"n2000"_s);
    bench.store.Raw("DELETE FROM Kinenbi WHERE id IN (1, 2000)");
    QCOMPARE(model.index(0, 0).data().toString(), u"（読み込めません）"_s);
    QCOMPARE(model.index(0, 1).data().toString(), QString());
    QCOMPARE(model.index(1999, 0).data().toString(), u"n2000"_s);  // from the cache
}

void TstDayListModel::FindsATypedNameAmongTheNextRows() {
    Bench bench;
    DayListModel model(QVariant(), DayListModel::Columns::All, nullptr);
    model.SetRows(bench.Rows());
    const auto found = [&](int from, const QString& typed) {
        const QModelIndexList matches =
            model.match(model.index(from, 3), Qt::DisplayRole, typed, 1, Qt::MatchStartsWith | Qt::MatchWrap);
        return matches.isEmpty() ? -1 : matches.constFirst().row();
    };
    QCOMPARE(found(0, u"N1999"_s), 1998);
    QCOMPARE(found(0, u"n2001"_s), -1);  // beyond the rows that are checked
    QCOMPARE(found(1000, u"n2001"_s), 2000);
    QCOMPARE(found(4999, u"n1"_s), 0);
}

QTEST_GUILESS_MAIN(TstDayListModel)
#include "tst_day_list_model.moc"
