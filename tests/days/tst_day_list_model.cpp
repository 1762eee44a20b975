// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/day_list_model.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace tickwell;

/// The day list as a view asks for it.
class TstDayListModel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void HasFiveColumns();
    void ShowsTheTextsOfItsRows();
    void PutsThePictureBeforeTheNameAlone();
    void TakesOtherRowsAtOnce();
};

void TstDayListModel::HasFiveColumns() {
    const DayListModel model(QVariant(), nullptr);
    QStringList captions;
    for (int column = 0; column < model.columnCount(); ++column) {
        captions.append(model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    }
    QCOMPARE(captions, QStringList({u"記念日"_s, u"年"_s, u"月"_s, u"日"_s, u"週"_s}));
    QVERIFY(!model.headerData(0, Qt::Vertical, Qt::DisplayRole).isValid());
}

void TstDayListModel::ShowsTheTextsOfItsRows() {
    DayListModel model(QVariant(), nullptr);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.SetRows({{u"a"_s, u"毎"_s, u"10"_s, u"3"_s, QString()},
                   {u"例会"_s, u"1998"_s, u"毎"_s, QString(), u"第2週月"_s}});
    QCOMPARE(model.rowCount(), 2);
    QStringList shown;
    for (int column = 0; column < model.columnCount(); ++column) {
        shown.append(model.index(1, column).data().toString());
    }
    QCOMPARE(shown, QStringList({u"例会"_s, u"1998"_s, u"毎"_s, QString(), u"第2週月"_s}));
}

void TstDayListModel::PutsThePictureBeforeTheNameAlone() {
    DayListModel model(u"picture"_s, nullptr);
    model.SetRows({{u"a"_s, u"毎"_s, u"10"_s, u"3"_s, QString()}});
    QCOMPARE(model.index(0, 0).data(Qt::DecorationRole), QVariant(u"picture"_s));
    QVERIFY(!model.index(0, 1).data(Qt::DecorationRole).isValid());
}

void TstDayListModel::TakesOtherRowsAtOnce() {
    DayListModel model(QVariant(), nullptr);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    model.SetRows({{u"a"_s, u"毎"_s, u"10"_s, u"3"_s, QString()}});
    model.SetRows({});
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(resets.count(), 2);
}

QTEST_GUILESS_MAIN(TstDayListModel)
#include "tst_day_list_model.moc"
