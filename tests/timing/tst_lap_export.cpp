// SPDX-License-Identifier: GPL-3.0-or-later
#include <QClipboard>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>

#include "lines/line_look.h"
#include "support/files.h"
#include "timing/stopwatch_window_bench.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

/// Laps leave the stopwatch's window.
class TstLapExport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { lines::InstallFontSubstitutes(); }
    void LapsLeaveTheWindowOnlyIfThereAreSome();
    void LapsAreCopied();
    void LapsAreSaved();
    void ALapListThatCannotBeSavedIsReported();
    void WithoutAPrinterTheReportIsKeptAsAPdf();
    void TheExistingControlsStayWhereTheyAre();
};

void TstLapExport::LapsLeaveTheWindowOnlyIfThereAreSome() {
    StopwatchBench bench;
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

void TstLapExport::LapsAreCopied() {
    StopwatchBench bench;
    bench.Play(u"1.2.2");
    bench.Press<StopForm>("Command5");
    QCOMPARE(QGuiApplication::clipboard()->text(),
             u"番号\t種類\t経過時間\t経過ミリ秒\t区間\t区間ミリ秒\n"
             u"1\tラップ\t0:00'01\"000\t1000\t0:00'01\"000\t1000\n"
             u"2\tラップ\t0:00'02\"000\t2000\t0:00'01\"000\t1000\n"_s);
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstLapExport::LapsAreSaved() {
    StopwatchBench bench;
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

void TstLapExport::ALapListThatCannotBeSavedIsReported() {
    StopwatchBench bench;
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

void TstLapExport::WithoutAPrinterTheReportIsKeptAsAPdf() {
    StopwatchBench bench;
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
void TstLapExport::TheExistingControlsStayWhereTheyAre() {
    StopwatchBench bench;
    const int bottom = bench.The<StopForm, QPushButton>("Command4").geometry().bottom();
    for (const char* name : {"Command5", "Command6"}) {
        QVERIFY((bench.The<StopForm, QPushButton>(name).geometry().top()) > bottom);
    }
    const int plain = bench.List().minimumWidth() + bench.Form().layout()->contentsMargins().left() +
                      bench.Form().layout()->contentsMargins().right();
    QVERIFY(bench.Form().minimumSizeHint().width() <=
            std::max(plain, bench.The<StopForm, QPushButton>("Command3").sizeHint().width() * 3 + 60));
}

QTEST_MAIN(TstLapExport)
#include "tst_lap_export.moc"
