// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/search_window.h"

#include <QTest>

#include "book/book_bench.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::book;

namespace {

const Message kStartError{MessageIcon::Exclamation, u"検索開始エラー"_s,
                          u"無効なデータが条件になっています。"_s};

QString Names(const days::DayList& list) {
    QStringList names;
    for (const days::DayListRow& row : list.Rows().Kept()) {
        names.append(row.name);
    }
    return names.join(u' ');
}

/// Adds four anniversaries: one of each kind, and a second one of every year.
void Fill(BookBench& bench) {
    bench.Add({u"month"_s, 0, 0, 15, 0});
    bench.Add({u"year"_s, 0, 6, 15, 0});
    bench.Add({u"day"_s, 1998, 6, 15, 0});
    bench.Add({u"week"_s, 0, 10, 0, 22});
}

}  // namespace

/// The search window.
class TstSearchWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void OpensReadyToListAll();
    void SearchingAtOnceListsAll();
    void ALongSearchDoesNotBlockTheWindows();
    void FindsByKind_data();
    void FindsByKind();
    void FindsByName();
    void FindsByDate();
    void TheConditionsDecideWhatCanBeTyped();
    void EachConditionIsChosenByItself();
    void ARangeThatEndsBeforeItBeginsIsRefused();
    void DatesAreCheckedEvenIfTheyAreNoCondition_data();
    void DatesAreCheckedEvenIfTheyAreNoCondition();
    void ATextThatIsNoNumberIsReportedAndTheListStays();
    void AQuoteInTheNameIsReportedAndTheListStays();
    void AFailingDatabaseLeavesTheList();
    void SearchesByKeyboardAlone();
    void EscChangesNothing();
    void GoesFromTopToBottomWithTab();
    void TheArrowsBelongToTheirFields();
};

void TstSearchWindow::OpensReadyToListAll() {
    BookBench bench;
    bench.OpenSearch();
    QCOMPARE(bench.Window()->windowTitle(), u"記念日の検索"_s);
    for (const QString& name : {u"Check1"_s, u"Check2"_s, u"Check3"_s}) {
        QVERIFY(bench.The<QCheckBox>(name).isChecked());
    }
    for (const QString& name : {u"Option1(1)"_s, u"Option2(1)"_s, u"Option3(0)"_s}) {
        QVERIFY(bench.The<QRadioButton>(name).isChecked());
    }
    QStringList dates;
    for (const QString& name : {u"Text2"_s, u"Text3"_s, u"Text4"_s, u"Text5"_s, u"Text6"_s, u"Text7"_s}) {
        dates.append(bench.Text(name));
    }
    QCOMPARE(dates, QStringList({u"1998"_s, u"11"_s, u"15"_s, u"1998"_s, u"11"_s, u"15"_s}));
    QCOMPARE(bench.Focus(), u"Check1"_s);
    QCOMPARE(bench.Window()->windowModality(), Qt::WindowModal);
}

void TstSearchWindow::SearchingAtOnceListsAll() {
    BookBench bench;
    Fill(bench);
    bench.OpenSearch();
    bench.Click(u"Command1"_s);
    QVERIFY(bench.Window() == nullptr);
    QCOMPARE(Names(bench.list), u"day year week month"_s);
    QCOMPARE(bench.list.Heading(), u"検索結果 (検索対象 4件)"_s);
    QCOMPARE(bench.list.CountText(), u"ﾃﾞｰﾀ件数 4件"_s);
    QVERIFY((bench.list.Rows().Kept().at(2) ==
             days::DayListRow{u"week"_s, u"毎"_s, u"10"_s, QString(), u"第2週月"_s}));
    QCOMPARE(bench.changes.raised, 0);
}

void TstSearchWindow::FindsByKind_data() {
    QTest::addColumn<QString>("off");
    QTest::addColumn<QString>("found");

    QTest::newRow("not one day") << u"Check1"_s << u"year week month"_s;
    QTest::newRow("not every year") << u"Check2"_s << u"day month"_s;
    QTest::newRow("not every month") << u"Check3"_s << u"day year week"_s;
    QTest::newRow("none") << u"Check1 Check2 Check3"_s << QString();
}

void TstSearchWindow::FindsByKind() {
    QFETCH(QString, off);
    QFETCH(QString, found);
    BookBench bench;
    Fill(bench);
    bench.OpenSearch();
    for (const QString& name : off.split(u' ')) {
        bench.Click(name);
    }
    bench.Click(u"Command1"_s);
    QCOMPARE(Names(bench.list), found);
    QCOMPARE(bench.list.CountText(), u"ﾃﾞｰﾀ件数 %1件"_s.arg(bench.list.Rows().Kept().size()));
}

void TstSearchWindow::FindsByName() {
    BookBench bench;
    Fill(bench);
    bench.OpenSearch();
    bench.Click(u"Option1(0)"_s);
    bench.Type(u"Text1"_s, u"year"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(Names(bench.list), u"year"_s);
    bench.OpenSearch();
    bench.Click(u"Option1(0)"_s);
    bench.Type(u"Text1"_s, u"yea"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(Names(bench.list), QString());
}

void TstSearchWindow::FindsByDate() {
    BookBench bench;
    Fill(bench);
    bench.OpenSearch();
    bench.Click(u"Option2(0)"_s);
    bench.Type(u"Text3"_s, u"6"_s);
    bench.Type(u"Text6"_s, u"6"_s);
    bench.Type(u"Text4"_s, u"10"_s);
    bench.Type(u"Text7"_s, u"20"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(Names(bench.list), u"year month"_s);
    bench.OpenSearch();
    bench.Click(u"Option2(0)"_s);
    bench.Click(u"Option3(1)"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(Names(bench.list), u"year week month"_s);
}

void TstSearchWindow::TheConditionsDecideWhatCanBeTyped() {
    BookBench bench;
    bench.OpenSearch();
    const auto reachable = [&bench] {
        QStringList names;
        for (const QString& name :
             {u"Text1"_s, u"Label1"_s, u"Frame5"_s, u"Option3(0)"_s, u"Option3(2)"_s, u"Frame3"_s, u"Text2"_s,
              u"UpDown3"_s, u"Label4"_s, u"Frame4"_s, u"Text5"_s, u"UpDown6"_s}) {
            if (bench.IsEnabled(name)) {
                names.append(name);
            }
        }
        return names.join(u' ');
    };
    QCOMPARE(reachable(), QString());
    bench.Click(u"Option1(0)"_s);
    QCOMPARE(reachable(), u"Text1 Label1"_s);
    bench.Click(u"Option1(1)"_s);
    bench.Click(u"Option2(0)"_s);
    QCOMPARE(reachable(), u"Frame5 Option3(0) Option3(2) Frame3 Text2 UpDown3 Label4 Frame4 Text5 UpDown6"_s);
    bench.Click(u"Option3(1)"_s);
    QCOMPARE(reachable(), u"Frame5 Option3(0) Option3(2) Frame3 Text2 UpDown3 Label4"_s);
    bench.Click(u"Option3(2)"_s);
    QCOMPARE(reachable(), u"Frame5 Option3(0) Option3(2) Frame4 Text5 UpDown6"_s);
    bench.Click(u"Option2(1)"_s);
    QCOMPARE(reachable(), QString());
}

void TstSearchWindow::EachConditionIsChosenByItself() {
    BookBench bench;
    bench.OpenSearch();
    const auto chosen = [&bench] {
        QStringList names;
        for (const QRadioButton* option : bench.Window()->findChildren<QRadioButton*>()) {
            if (option->isChecked()) {
                names.append(option->objectName());
            }
        }
        names.sort();
        return names.join(u' ');
    };
    QCOMPARE(chosen(), u"Option1(1) Option2(1) Option3(0)"_s);
    bench.Click(u"Option2(0)"_s);
    bench.Click(u"Option3(2)"_s);
    QCOMPARE(chosen(), u"Option1(1) Option2(0) Option3(2)"_s);
    bench.Click(u"Option2(1)"_s);
    bench.Click(u"Option2(0)"_s);
    bench.Click(u"Option1(0)"_s);
    QCOMPARE(chosen(), u"Option1(0) Option2(0) Option3(2)"_s);
}

void TstSearchWindow::ARangeThatEndsBeforeItBeginsIsRefused() {
    BookBench bench;
    Fill(bench);
    bench.ListSelectedDay();
    bench.OpenSearch();
    bench.Click(u"Option2(0)"_s);
    bench.Type(u"Text7"_s, u"14"_s);
    bench.Click(u"Command1"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.boxes.Shown(), QList<Message>{kStartError});
    bench.boxes.Close();
    QVERIFY(bench.Window()->isVisible());
    QCOMPARE(bench.list.Heading(), u"1998年10月3日の記念日"_s);
    bench.Click(u"Option3(1)"_s);
    bench.Click(u"Command1"_s);
    QVERIFY(bench.Window() == nullptr);
}

void TstSearchWindow::DatesAreCheckedEvenIfTheyAreNoCondition_data() {
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isReported");

    QTest::newRow("start after end") << u"Text2"_s << u"1999"_s << false;
    QTest::newRow("no number") << u"Text6"_s << u"x"_s << true;
    QTest::newRow("no year of a calendar") << u"Text5"_s << u"98"_s << true;
}

void TstSearchWindow::DatesAreCheckedEvenIfTheyAreNoCondition() {
    QFETCH(QString, field);
    QFETCH(QString, text);
    QFETCH(bool, isReported);
    BookBench bench;
    bench.OpenSearch();
    bench.Click(u"Option2(0)"_s);
    bench.Type(field, text);
    bench.Click(u"Option2(1)"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    if (isReported) {
        QCOMPARE(bench.boxes.Shown().constFirst().icon, MessageIcon::Critical);
        QCOMPARE(bench.boxes.Shown().constFirst().title, u"Tickwell"_s);
    } else {
        QCOMPARE(bench.boxes.Shown().constFirst(), kStartError);
    }
    QVERIFY(bench.Window()->isVisible());
    QCOMPARE(bench.list.Heading(), u"記念日"_s);
}

void TstSearchWindow::ALongSearchDoesNotBlockTheWindows() {
    BookBench bench;
    bench.AddMany();
    bench.OpenSearch();
    bench.Click(u"Command1"_s);
    QVERIFY(bench.Window()->isVisible());
    QVERIFY(!bench.IsEnabled(u"Command1"_s));
    QCOMPARE(bench.list.Heading(), u"記念日"_s);
    bench.time.Advance(10'000);
    QVERIFY(bench.Window() == nullptr);
    QCOMPARE(bench.list.Heading(), u"検索結果 (検索対象 70000件)"_s);
    QCOMPARE(bench.list.CountText(), u"ﾃﾞｰﾀ件数 70000件"_s);
    QCOMPARE(bench.list.Rows().Read(69'999)->name, u"n70000"_s);
}

void TstSearchWindow::ATextThatIsNoNumberIsReportedAndTheListStays() {
    BookBench bench;
    Fill(bench);
    bench.list.ListFound(QList<days::DayListRow>{{u"before"_s, {}, {}, {}, {}}}, 1);
    bench.OpenSearch();
    bench.Click(u"Option2(0)"_s);
    bench.Click(u"Option3(1)"_s);
    bench.Click(u"Option3(0)"_s);
    bench.Type(u"Text5"_s, u"next year"_s);
    bench.Click(u"Option3(1)"_s);  // the end is ignored, but still parsed
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.boxes.Shown().constFirst().icon, MessageIcon::Critical);
    QCOMPARE(Names(bench.list), u"before"_s);
    QVERIFY(bench.Window()->isVisible());
}

void TstSearchWindow::AQuoteInTheNameIsReportedAndTheListStays() {
    BookBench bench;
    bench.list.ListFound(QList<days::DayListRow>{{u"before"_s, {}, {}, {}, {}}}, 1);
    bench.OpenSearch();
    bench.Click(u"Check1"_s);
    bench.Click(u"Check2"_s);
    bench.Click(u"Option1(0)"_s);
    bench.Type(u"Text1"_s, u"x\" OR \"1\"=\"1"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.boxes.Shown().constFirst().icon, MessageIcon::Critical);
    QCOMPARE(Names(bench.list), u"before"_s);
    QCOMPARE(bench.list.Heading(), u"検索結果 (検索対象 1件)"_s);
    QCOMPARE(bench.Text(u"Text1"_s), u"x\" OR \"1\"=\"1"_s);
    bench.boxes.Close();
    bench.Click(u"Check3"_s);  // without any kind of anniversary the name is not searched
    bench.Click(u"Command1"_s);
    QCOMPARE(Names(bench.list), QString());
    QVERIFY(bench.Window() == nullptr);
}

void TstSearchWindow::AFailingDatabaseLeavesTheList() {
    BookBench bench;
    bench.list.ListFound(QList<days::DayListRow>{{u"before"_s, {}, {}, {}, {}}}, 1);
    bench.OpenSearch();
    bench.database.Close();
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(Names(bench.list), u"before"_s);
    QVERIFY(bench.Window()->isVisible());
}

void TstSearchWindow::SearchesByKeyboardAlone() {
    BookBench bench;
    Fill(bench);
    bench.OpenSearch();
    bench.Press(Qt::Key_Space);
    bench.Press(Qt::Key_Tab);
    bench.Press(Qt::Key_Tab);
    bench.Press(Qt::Key_Space);
    bench.Press(Qt::Key_Return);
    QVERIFY(bench.Window() == nullptr);
    QCOMPARE(Names(bench.list), u"year week"_s);
}

void TstSearchWindow::EscChangesNothing() {
    BookBench bench;
    bench.list.ListFound(QList<days::DayListRow>{{u"before"_s, {}, {}, {}, {}}}, 1);
    bench.OpenSearch();
    bench.Press(Qt::Key_Escape);
    QVERIFY(bench.Window() == nullptr);
    QCOMPARE(Names(bench.list), u"before"_s);
}

void TstSearchWindow::GoesFromTopToBottomWithTab() {
    BookBench bench;
    bench.OpenSearch();
    bench.Click(u"Option1(0)"_s);
    bench.Click(u"Option2(0)"_s);
    bench.The<QCheckBox>(u"Check1"_s).setFocus();
    QCOMPARE(bench.TabOrder(),
             QStringList({u"Check1"_s, u"Check2"_s, u"Check3"_s, u"Option1(0)"_s, u"Text1"_s, u"Option2(0)"_s,
                          u"Option3(0)"_s, u"Text2"_s, u"Text3"_s, u"Text4"_s, u"Text5"_s, u"Text6"_s,
                          u"Text7"_s, u"Command1"_s, u"Command2"_s}));
}

void TstSearchWindow::TheArrowsBelongToTheirFields() {
    BookBench bench;
    bench.OpenSearch();
    for (const auto& [upDown, text] : {std::pair{u"UpDown1"_s, u"Text2"_s},
                                       {u"UpDown2"_s, u"Text3"_s},
                                       {u"UpDown3"_s, u"Text4"_s},
                                       {u"UpDown5"_s, u"Text5"_s},
                                       {u"UpDown4"_s, u"Text6"_s},
                                       {u"UpDown6"_s, u"Text7"_s}}) {
        ChildOf<QLineEdit>(bench.The<QWidget>(upDown), text);  // fails the test if there is none
    }
}

QTEST_MAIN(TstSearchWindow)
#include "tst_search_window.moc"
