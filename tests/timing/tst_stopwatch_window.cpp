// SPDX-License-Identifier: GPL-3.0-or-later
#include <QClipboard>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QTest>

#include "lines/line_look.h"
#include "support/child.h"
#include "support/files.h"
#include "timing/reading_model.h"
#include "timing/timing_bench.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

struct Bench : public TimingBench {
    Bench() { tools.ShowStopForm(); }

    StopForm& Form() const { return The<StopForm>(); }
    QPlainTextEdit& List() const { return The<StopForm, QPlainTextEdit>("Text1"); }
    QString Captions() const {
        return The<StopForm, QPushButton>("Command1").text() + u'/' +
               The<StopForm, QPushButton>("Command2").text();
    }
    /// 1 to 4 press the buttons; a dot advances time by 1000 ms.
    void Play(QStringView script) {
        for (const QChar step : script) {
            if (step == u'.') {
                time.Advance(1000);
            } else {
                Press<StopForm>(QByteArray("Command").append(static_cast<char>(step.unicode())).constData());
            }
        }
    }
};

}  // namespace

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
    void LapsLeaveTheWindowOnlyIfThereAreSome();
    void LapsAreCopied();
    void LapsAreSaved();
    void ALapListThatCannotBeSavedIsReported();
    void WithoutAPrinterTheReportIsKeptAsAPdf();
    void TheExistingControlsStayWhereTheyAre();
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
    Bench bench;
    QVERIFY(bench.Form().isVisible());
    QCOMPARE(bench.Form().windowTitle(), u"ストップウォッチ"_s);
    QCOMPARE(bench.Captions(), u"スタート/リセット"_s);
    QCOMPARE(bench.List().toPlainText(), QString());
    QVERIFY(bench.List().isReadOnly());
    QCOMPARE(bench.commands, QStringList{u"folder"_s});
    QCOMPARE(bench.placed, 1);
}

void TstStopwatchWindow::TheButtonsChangeWithTheState() {
    Bench bench;
    bench.Play(u"1");
    QCOMPARE(bench.Captions(), u"ストップ/ラップ"_s);
    bench.Play(u"1");
    QCOMPARE(bench.Captions(), u"スタート/リセット"_s);
}

void TstStopwatchWindow::TheListIsShown() {
    Bench bench;
    bench.Play(u"1.2.2.1");
    QCOMPARE(bench.List().toPlainText(),
             u"Lapse1  0:00'01\"000\nLapse2  0:00'02\"000\n【Stop】 0:00'03\"000"_s);
    bench.Play(u"2");
    QCOMPARE(bench.List().toPlainText(), QString());
}

/// Whatever the document contains, a lap only appends its own line.
void TstStopwatchWindow::ALapIsAppendedToTheList() {
    Bench bench;
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
    Bench bench;
    bench.Play(u"1");
    bench.time.Advance(3);
    QCOMPARE(bench.journal, (Journal{u"lower set 0:00'00\"001"_s, u"lower set 0:00'00\"002"_s,
                                     u"lower set 0:00'00\"003"_s}));
}

void TstStopwatchWindow::ClosingAndOpeningWhileItRuns() {
    Bench bench;
    bench.Play(u"1.2");
    QVERIFY(bench.Form().close());
    bench.time.Advance(1000);
    QCOMPARE(bench.lower.Text(), u"0:00'02\"000"_s);
    bench.tools.ShowStopForm();
    QCOMPARE(bench.Captions(), u"ストップ/ラップ"_s);
    QCOMPARE(bench.List().toPlainText(), u"Lapse1  0:00'01\"000"_s);
}

void TstStopwatchWindow::TheListKeepsItsLineBreaksAfterReopeningAndInPrint() {
    Bench bench;
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
    Bench bench;
    bench.Play(u"1.2");
    bench.tools.ShowStopForm();
    QCOMPARE(bench.List().toPlainText(), u"Lapse1  0:00'01\"000"_s);
    QCOMPARE(bench.placed, 1);
}

void TstStopwatchWindow::PrintingAsksFirst() {
    Bench bench;
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
    Bench bench;
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
    Bench bench;
    bench.The<StopForm, QPushButton>("Command3").setFocus();
    bench.Play(u"3");
    if (moves) {
        bench.List().setFocus();
    }
    bench.boxes.Answer(prints);
    QCOMPARE(bench.Form().focusWidget()->objectName(), moves ? u"Text1"_s : u"Command3"_s);
}

void TstStopwatchWindow::AnEmptyListIsPrinted() {
    Bench bench;
    bench.Play(u"3");
    bench.boxes.Answer(true);
    QCOMPARE(bench.printer.jobs.first().lines.mid(6),
             (QStringList{u"<<ラップ/経歴一覧表>>"_s, QString(), QString(), u"<<終>>"_s}));
}

void TstStopwatchWindow::AFailedPrintLosesNothing() {
    Bench bench;
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
    Bench bench;
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

void TstStopwatchWindow::LapsLeaveTheWindowOnlyIfThereAreSome() {
    Bench bench;
    const auto areEnabled = [&bench](bool expected) {
        return (bench.The<StopForm, QPushButton>("Command5").isEnabled() == expected) &&
               (bench.The<StopForm, QPushButton>("Command6").isEnabled() == expected);
    };
    QVERIFY(areEnabled(false));
    bench.Play(u"1.");
    QVERIFY(areEnabled(false));
    bench.Play(u"2");
    QVERIFY(areEnabled(true));
    bench.Play(u"1");
    bench.The<StopForm, QPushButton>("Command6").setFocus();
    QVERIFY(bench.Form().close());
    bench.tools.ShowStopForm();
    QVERIFY(areEnabled(true));
    bench.The<StopForm, QPushButton>("Command6").setFocus();
    bench.tools.LapOrResetStopwatch();  // another program resets it
    QVERIFY(areEnabled(false));
    QCOMPARE(bench.Form().focusWidget()->objectName(), u"Command2"_s);
}

void TstStopwatchWindow::LapsAreCopied() {
    Bench bench;
    bench.Play(u"1.2.2");
    bench.Press<StopForm>("Command5");
    QCOMPARE(QGuiApplication::clipboard()->text(),
             u"番号\t種類\t経過時間\t経過ミリ秒\t区間\t区間ミリ秒\n"
             u"1\tラップ\t0:00'01\"000\t1000\t0:00'01\"000\t1000\n"
             u"2\tラップ\t0:00'02\"000\t2000\t0:00'01\"000\t1000\n"_s);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstStopwatchWindow::LapsAreSaved() {
    Bench bench;
    const QTemporaryDir dir;
    bench.Play(u"1.2");
    bench.Press<StopForm>("Command6");
    auto& dialog = bench.The<StopForm, QFileDialog>("LapFileDialog");
    QCOMPARE(dialog.acceptMode(), QFileDialog::AcceptSave);
    bench.tools.LapOrResetStopwatch();  // a lap of another program: the file has the list as it was
    dialog.setDirectory(dir.path());
    dialog.selectFile(u"laps"_s);  // gets its suffix
    QMetaObject::invokeMethod(&dialog, "accept");
    QVERIFY(bench.boxes.Shown().isEmpty());
    QCOMPARE(ReadAll(dir.filePath(u"laps.csv"_s)),
             u"\uFEFF番号,種類,経過時間,経過ミリ秒,区間,区間ミリ秒\r\n"
             u"1,ラップ,\"0:00'01\"\"000\",1000,\"0:00'01\"\"000\",1000\r\n"_s.toUtf8());
}

void TstStopwatchWindow::ALapListThatCannotBeSavedIsReported() {
    Bench bench;
    const QTemporaryDir dir;
    bench.Play(u"1.2");
    bench.Press<StopForm>("Command6");
    auto& dialog = bench.The<StopForm, QFileDialog>("LapFileDialog");
    const QString path = dir.filePath(u"gone/laps.csv"_s);
    Q_EMIT dialog.fileSelected(path);  // the folder was removed while the dialog was open
    QCOMPARE(bench.boxes.Shown().size(), 1);
    const QString text = bench.boxes.Shown().first().text;
    QVERIFY2(text.startsWith(u"実行時エラー\r\nラップの一覧を保存できませんでした。\r\n"_s + path + u"\r\n"),
             qPrintable(text));
    QVERIFY(text.endsWith(u"書き込めるフォルダーと、空き容量を確かめてください。"));
    QCOMPARE(bench.List().toPlainText(), u"Lapse1  0:00'01\"000"_s);
}

void TstStopwatchWindow::WithoutAPrinterTheReportIsKeptAsAPdf() {
    Bench bench;
    const QTemporaryDir dir;
    bench.printer.accepts = false;
    bench.Play(u"1.23");
    bench.boxes.Answer(true);
    const PrintJob printed = bench.printer.jobs.last();
    bench.printer.Tell({PrintStage::Failed, u"ありません。"_s, true});
    bench.Play(u".2");  // after the report was made
    bench.boxes.Answer(true);
    auto& dialog = bench.The<StopForm, QFileDialog>("PdfFileDialog");
    QCOMPARE(bench.printer.jobs.size(), 1);
    dialog.setDirectory(dir.path());
    dialog.selectFile(u"laps"_s);
    QMetaObject::invokeMethod(&dialog, "accept");
    QCOMPARE(bench.printer.jobs.size(), 2);
    QCOMPARE(bench.printer.jobs.last().file, dir.filePath(u"laps.pdf"_s));
    QCOMPARE(bench.printer.jobs.last().lines, printed.lines);
    const auto& print = bench.The<StopForm, QPushButton>("Command3");
    QVERIFY(!print.isEnabled());
    bench.printer.Tell({PrintStage::Accepted, {}});
    QVERIFY(print.isEnabled());
}

/// The new buttons are below everything, and as wide as the others together at most.
void TstStopwatchWindow::TheExistingControlsStayWhereTheyAre() {
    Bench bench;
    const int bottom = bench.The<StopForm, QPushButton>("Command4").geometry().bottom();
    for (const char* name : {"Command5", "Command6"}) {
        QVERIFY((bench.The<StopForm, QPushButton>(name).geometry().top()) > bottom);
    }
    const int plain = bench.List().minimumWidth() + bench.Form().layout()->contentsMargins().left() +
                      bench.Form().layout()->contentsMargins().right();
    QVERIFY(bench.Form().minimumSizeHint().width() <=
            std::max(plain, bench.The<StopForm, QPushButton>("Command3").sizeHint().width() * 3 + 60));
}

void TstStopwatchWindow::HelpOpensItsTopic() {
    Bench bench;
    bench.Play(u"4");
    QCOMPARE(bench.help.topics, QList<int>{31});
}

void TstStopwatchWindow::AStopThatOverflowsIsReportedAndCanBeReset() {
    Bench bench;
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
    Bench bench;
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
    Bench bench;
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
    Bench bench;
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
