// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "lines/line_look.h"
#include "timing/reading_model.h"
#include "timing/stopwatch_window_bench.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

/// The stopwatch window.
class TstStopwatchWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void ItOpensReset();
    void TheButtonsChangeWithTheState();
    void TheListIsShown();
    void ALapIsAppendedToTheList();
    void TheLowerLineRunsWithTheTicks();
    void ClosingAndOpeningWhileItRuns();
    void TheListKeepsItsLineBreaksAfterReopeningAndInPrint();
    void OpeningAnOpenWindowLeavesItsList();
    void PrintingAsksFirst();
    void CancelPrintsNothing();
    void TheFocusComesBackAfterAPrint_data();
    void TheFocusComesBackAfterAPrint();
    void AnEmptyListIsPrinted();
    void AFailedPrintLosesNothing();
    void TheQuestionMayBeAnsweredAfterTheWindowClosed();
    void TheQuestionMayOutliveTheWindow();
    void HelpOpensItsTopic();
    void AStopThatOverflowsIsReportedAndCanBeReset();
    void AMissingFolderIsReportedAndTheWindowStillOpens();
    void EverythingWorksByKeyboard();
    void NeighbouringButtonsHaveTheSameHeightInAnyFont();
    void EachControlHasItsName();
};

void TstStopwatchWindow::initTestCase() {
    lines::InstallFontSubstitutes();
}

void TstStopwatchWindow::ItOpensReset() {
    StopwatchBench bench;
    QVERIFY(bench.Form().isVisible());
    QCOMPARE(bench.Form().windowTitle(), u"ストップウォッチ"_s);
    QCOMPARE(bench.Captions(), u"スタート/リセット"_s);
    QCOMPARE(bench.List().toPlainText(), QString());
    QVERIFY(bench.List().isReadOnly());
    QCOMPARE(bench.commands, QStringList{u"folder"_s});
    QCOMPARE(bench.placed, 1);
}

void TstStopwatchWindow::TheButtonsChangeWithTheState() {
    StopwatchBench bench;
    bench.Play(u"1");
    QCOMPARE(bench.Captions(), u"ストップ/ラップ"_s);
    bench.Play(u"1");
    QCOMPARE(bench.Captions(), u"スタート/リセット"_s);
}

void TstStopwatchWindow::TheListIsShown() {
    StopwatchBench bench;
    bench.Play(u"1.2.2.1");
    QCOMPARE(bench.List().toPlainText(),
             u"Lapse1  0:00'01\"000\nLapse2  0:00'02\"000\n【Stop】 0:00'03\"000"_s);
    bench.Play(u"2");
    QCOMPARE(bench.List().toPlainText(), QString());
}

/// Whatever the document contains, a lap only appends its own line.
void TstStopwatchWindow::ALapIsAppendedToTheList() {
    StopwatchBench bench;
    bench.Play(u"1.2");
    const QString first = u"Lapse1  0:00'01\"000"_s;
    QString expected = first;
    int changed = 0;
    connect(bench.List().document(), &QTextDocument::contentsChange, &bench.Form(),
            [&changed](int /*at*/, int removed, int added) { changed += removed + added; });
    for (int lap = 2; lap <= 1000; ++lap) {
        bench.time.Advance(7);
        bench.Play(u"2");
        expected += u"\nLapse%1  %2"_s.arg(lap).arg(ReadingOf(1000 + (lap - 1) * 7));
    }
    bench.Play(u"1");
    expected += u"\n【Stop】 0:00'07\"993"_s;
    QCOMPARE(bench.List().toPlainText(), expected);
    QCOMPARE(changed, static_cast<int>(expected.size() - first.size()));
    QCOMPARE(bench.List().textCursor().position(), static_cast<int>(expected.size()));
    QVERIFY(bench.Form().close());
    QCOMPARE(bench.stopwatch.StopwatchLapText, expected.replace(u"\n"_s, u"\r\n"_s));
}

void TstStopwatchWindow::TheLowerLineRunsWithTheTicks() {
    StopwatchBench bench;
    bench.Play(u"1");
    bench.time.Advance(3);
    QCOMPARE(bench.journal, (Journal{u"lower set 0:00'00\"001"_s, u"lower set 0:00'00\"002"_s,
                                     u"lower set 0:00'00\"003"_s}));
}

void TstStopwatchWindow::ClosingAndOpeningWhileItRuns() {
    StopwatchBench bench;
    bench.Play(u"1.2");
    QVERIFY(bench.Form().close());
    bench.time.Advance(1000);
    QCOMPARE(bench.lower.Text(), u"0:00'02\"000"_s);
    bench.tools.ShowStopForm();
    QCOMPARE(bench.Captions(), u"ストップ/ラップ"_s);
    QCOMPARE(bench.List().toPlainText(), u"Lapse1  0:00'01\"000"_s);
}

void TstStopwatchWindow::TheListKeepsItsLineBreaksAfterReopeningAndInPrint() {
    StopwatchBench bench;
    bench.Play(u"1.1");
    QTest::keyClick(&bench.Form(), Qt::Key_Escape);
    QVERIFY(!bench.Form().isVisible());
    QCOMPARE(bench.stopwatch.StopwatchLapText, u"\r\n【Stop】 0:00'01\"000"_s);
    bench.tools.ShowStopForm();
    bench.Play(u"1.1");
    QVERIFY(bench.Form().close());
    QCOMPARE(bench.stopwatch.StopwatchLapText, u"\r\n【Stop】 0:00'01\"000\r\n【Stop】 0:00'02\"000"_s);
    bench.tools.ShowStopForm();
    bench.Play(u"3");
    bench.boxes.Answer(true);
    QCOMPARE(bench.printer.jobs.size(), 1);
    QCOMPARE(bench.printer.jobs.first().lines,
             (QStringList{u"Tickwell Ver.2  ストップウォッチ機能"_s, u"<<基本情報>>"_s,
                          u"バージョン：2.0.0"_s, u"印刷日：1998年11月15日 日曜日"_s, u"印刷時刻：21:05:09"_s,
                          QString(), u"<<ラップ/経歴一覧表>>"_s, QString(), u"【Stop】 0:00'01\"000"_s,
                          u"【Stop】 0:00'02\"000"_s, QString(), u"<<終>>"_s}));
}

void TstStopwatchWindow::OpeningAnOpenWindowLeavesItsList() {
    StopwatchBench bench;
    bench.Play(u"1.2");
    bench.tools.ShowStopForm();
    QCOMPARE(bench.List().toPlainText(), u"Lapse1  0:00'01\"000"_s);
    QCOMPARE(bench.placed, 1);
}

void TstStopwatchWindow::PrintingAsksFirst() {
    StopwatchBench bench;
    bench.Play(u"1.23");
    QCOMPARE(bench.boxes.Asked(),
             (QList<Message>{{MessageIcon::Question, u"印刷"_s,
                              u"ラップ情報などを印刷します。\r\n準備はよろしいですか？"_s}}));
    QVERIFY(bench.printer.jobs.isEmpty());
    const auto& print = bench.The<StopForm, QPushButton>("Command3");
    QVERIFY(!print.isEnabled());  // one question at a time
    bench.printer.accepts = false;
    bench.boxes.Answer(true);
    QCOMPARE(bench.printer.jobs.size(), 1);
    QCOMPARE(bench.printer.jobs.first().title, u"ストップウォッチ"_s);
    QVERIFY(bench.printer.jobs.first().lines.contains(u"Lapse1  0:00'01\"000"_s));
    QVERIFY(!print.isEnabled());  // and one print at a time
    bench.printer.Tell({PrintStage::Accepted, {}});
    QVERIFY(print.isEnabled());
}

void TstStopwatchWindow::CancelPrintsNothing() {
    StopwatchBench bench;
    bench.Play(u"3");
    bench.boxes.Answer(false);
    QVERIFY(bench.printer.jobs.isEmpty());
    QVERIFY((bench.The<StopForm, QPushButton>("Command3")).isEnabled());
}

void TstStopwatchWindow::TheFocusComesBackAfterAPrint_data() {
    QTest::addColumn<bool>("prints");
    QTest::addColumn<bool>("moves");
    QTest::newRow("cancelled question") << false << false;
    QTest::newRow("printed") << true << false;
    QTest::newRow("moved by the user meanwhile") << true << true;
}

void TstStopwatchWindow::TheFocusComesBackAfterAPrint() {
    QFETCH(bool, prints);
    QFETCH(bool, moves);
    StopwatchBench bench;
    bench.The<StopForm, QPushButton>("Command3").setFocus();
    bench.Play(u"3");
    if (moves) {
        bench.List().setFocus();
    }
    bench.boxes.Answer(prints);
    QCOMPARE(bench.Form().focusWidget()->objectName(), moves ? u"Text1"_s : u"Command3"_s);
}

void TstStopwatchWindow::AnEmptyListIsPrinted() {
    StopwatchBench bench;
    bench.Play(u"3");
    bench.boxes.Answer(true);
    QCOMPARE(bench.printer.jobs.first().lines.mid(6),
             (QStringList{u"<<ラップ/経歴一覧表>>"_s, QString(), QString(), u"<<終>>"_s}));
}

void TstStopwatchWindow::AFailedPrintLosesNothing() {
    StopwatchBench bench;
    bench.printer.accepts = false;
    bench.Play(u"1.23");
    bench.boxes.Answer(true);
    bench.printer.Tell({PrintStage::Failed, u"紙がありません。"_s});
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.boxes.Shown().first().title, u"Tickwell"_s);
    QCOMPARE(bench.boxes.Shown().first().icon, MessageIcon::Critical);
    bench.boxes.Close();
    QCOMPARE(bench.List().toPlainText(), u"Lapse1  0:00'01\"000"_s);
    QVERIFY(bench.stopwatch.StopwatchRunning);
    bench.Play(u"3");
    bench.boxes.Answer(true);
    QCOMPARE(bench.printer.jobs.size(), 2);
}

void TstStopwatchWindow::TheQuestionMayBeAnsweredAfterTheWindowClosed() {
    StopwatchBench bench;
    bench.Play(u"1.23");
    QVERIFY(bench.Form().close());
    bench.boxes.Answer(true);
    QVERIFY(bench.printer.jobs.first().lines.contains(u"Lapse1  0:00'01\"000"_s));
}

void TstStopwatchWindow::TheQuestionMayOutliveTheWindow() {
    FakeMessageBoxes boxes;
    Handlers handlers(boxes);
    FakePrinter printer;
    TimingBench bench;
    Stopwatch stopwatch(bench.stopwatch, bench.time);
    StopwatchPanel panel({.stopwatch = stopwatch,
                          .lines = {.upper = bench.upper, .lower = bench.lower},
                          .functions = bench,
                          .readingTimer = bench.tools.Timer1(),
                          .further = bench.further});
    auto form = std::make_unique<StopForm>(StopwatchWindowParts{.panel = panel,
                                                                .further = bench.further,
                                                                .clock = bench.time,
                                                                .handlers = handlers,
                                                                .boxes = boxes,
                                                                .printer = printer,
                                                                .help = bench.help,
                                                                .enterFolder = [] {},
                                                                .version = u"2.0.0"_s},
                                           nullptr);
    form->BringUp();
    ChildOf<QPushButton>(*form, u"Command3"_s).click();
    form.reset();
    boxes.Answer(true);
    QVERIFY(printer.jobs.isEmpty());
}

void TstStopwatchWindow::HelpOpensItsTopic() {
    StopwatchBench bench;
    bench.Play(u"4");
    QCOMPARE(bench.help.topics, QList<int>{31});
}

void TstStopwatchWindow::AStopThatOverflowsIsReportedAndCanBeReset() {
    StopwatchBench bench;
    bench.stopwatch.StopwatchElapsed = 2'147'483'647;
    bench.Play(u"1");
    bench.time.Advance(1);  // the tick overflows and stops its timer
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QVERIFY(!bench.tools.Timer1().IsRunning());
    bench.boxes.Close();
    bench.Play(u"1");
    QCOMPARE(bench.boxes.Shown().size(), 2);
    QCOMPARE(bench.Captions(), u"スタート/リセット"_s);
    bench.boxes.Close();
    bench.Play(u"2");
    QCOMPARE(bench.boxes.Shown().size(), 2);
    QCOMPARE(bench.stopwatch.StopwatchElapsed, 0);
    bench.Play(u"1.1");
    QCOMPARE(bench.List().toPlainText(), u"\n【Stop】 0:00'01\"000"_s);
}

void TstStopwatchWindow::AMissingFolderIsReportedAndTheWindowStillOpens() {
    TimingBench bench;
    bench.enterFolder = [] { throw RunTimeError(u"/nowhere"_s); };
    bench.tools.ShowStopForm();
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QVERIFY(bench.The<StopForm>().isVisible());
}

void TstStopwatchWindow::EverythingWorksByKeyboard() {
    StopwatchBench bench;
    StopForm& form = bench.Form();
    QTest::keyClick(&form, Qt::Key_Return);
    QVERIFY(bench.stopwatch.StopwatchRunning);
    QStringList order;
    QWidget* at = &bench.The<StopForm, QPushButton>("Command1");
    bench.Play(u"2");  // a lap, so that all controls are enabled
    for (int control = 0; control < 7; ++control) {
        order.append(at->objectName());
        at = at->nextInFocusChain();
        while ((at->focusPolicy() & Qt::TabFocus) == 0 || at->isWindow()) {
            at = at->nextInFocusChain();
        }
    }
    QCOMPARE(order, (QStringList{u"Command1"_s, u"Command2"_s, u"Text1"_s, u"Command3"_s, u"Command4"_s,
                                 u"Command5"_s, u"Command6"_s}));
    QVERIFY(bench.List().tabChangesFocus());
}

void TstStopwatchWindow::NeighbouringButtonsHaveTheSameHeightInAnyFont() {
    StopwatchBench bench;
    auto& print = bench.The<StopForm, QPushButton>("Command3");
    QFont high = print.font();
    high.setPointSizeF(high.pointSizeF() * 2);
    print.setFont(high);
    bench.Form().layout()->activate();
    const QRect help = bench.The<StopForm, QPushButton>("Command4").geometry();
    QCOMPARE(help.top(), print.geometry().top());
    QCOMPARE(help.height(), print.geometry().height());
}

void TstStopwatchWindow::EachControlHasItsName() {
    StopwatchBench bench;
    QCOMPARE(bench.Form().objectName(), u"StopForm"_s);
    QCOMPARE(bench.The<StopForm>().findChildren<QPushButton*>().size(), 6);
    QCOMPARE((bench.The<StopForm, QPushButton>("Command3").text()), u"印刷"_s);
    QCOMPARE((bench.The<StopForm, QPushButton>("Command4").text()), u"ヘルプ"_s);
    QCOMPARE((bench.The<StopForm, QPushButton>("Command5").text()), u"コピー"_s);
    QCOMPARE((bench.The<StopForm, QPushButton>("Command6").text()), u"保存..."_s);
    QVERIFY(!bench.List().accessibleName().isEmpty());
}

QTEST_MAIN(TstStopwatchWindow)
#include "tst_stopwatch_window.moc"
