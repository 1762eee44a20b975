// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLineEdit>
#include <QTest>

#include "timing/timing_bench.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

struct Bench : public TimingBench {
    Bench() {
        function = kFunctionTimer;
        countdown.TimerShownOnMain = true;
        tools.ShowTimerForm();
    }

    TimerForm& Form() const { return The<TimerForm>(); }
    QSpinBox& Spin(const char* name) const { return The<TimerForm, QSpinBox>(name); }
    QCheckBox& Repeat() const { return The<TimerForm, QCheckBox>("Check1"); }
    QString Caption() const { return The<TimerForm, QPushButton>("Command1").text(); }
    void Set(int hours, int minutes, int seconds) const {
        Spin("UpDown3").setValue(seconds);
        Spin("UpDown2").setValue(minutes);
        Spin("UpDown1").setValue(hours);
    }
    QList<int> Shown() const {
        return {Spin("UpDown1").value(), Spin("UpDown2").value(), Spin("UpDown3").value()};
    }
    /// The names of the enabled controls.
    QStringList Enabled() const {
        QStringList names;
        for (const char* name :
             {"Frame1", "UpDown1", "UpDown2", "UpDown3", "Text1", "Text2", "Text3", "Label1", "Label2",
              "Label3", "Check1", "Command1", "Command2", "Command3"}) {
            if (The<TimerForm, QWidget>(name).isEnabled()) {
                names.append(QString::fromLatin1(name));
            }
        }
        return names;
    }
};

const QStringList kAll{u"Frame1"_s, u"UpDown1"_s,  u"UpDown2"_s,  u"UpDown3"_s, u"Text1"_s,
                       u"Text2"_s,  u"Text3"_s,    u"Label1"_s,   u"Label2"_s,  u"Label3"_s,
                       u"Check1"_s, u"Command1"_s, u"Command2"_s, u"Command3"_s};

}  // namespace

/// The timer window.
class TstTimerWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItOpensWithFifteenSeconds();
    void ItOpensWithTheTimeThatIsSet();
    void TheEntryReadsAsASentence();
    void AChangedEntryIsShownAtOnce();
    void OpeningItWritesNoLine();
    void OneSecondDownJumpsToFifteen();
    void TheSpinsDoNotWrap();
    void TypingStaysInRange_data();
    void TypingStaysInRange();
    void AnIncompleteZeroIsNotAnEntry();
    void ATypedNumberCountsWhenEnterStarts();
    void ControlsThatSetTheTimeAreDisabledWhileItRuns();
    void StoppingEnablesTheEntry();
    void RepeatTakesEffectWhenClicked();
    void ResetRestoresTheFullTime();
    void AtZeroStartIsEnabledAgain();
    void AtZeroUnseenStartIsEnabledInAnOpenWindow();
    void AtZeroUnseenAClosedWindowStaysClosed();
    void ClosingLeavesTheCountdownRunning();
    void HelpOpensItsTopic();
    void TheTabOrderGoesFromTopToBottom();
    void EveryEntryHasAnAccessibleName();
};

void TstTimerWindow::ItOpensWithFifteenSeconds() {
    Bench bench;
    QCOMPARE(bench.Form().windowTitle(), u"タイマー"_s);
    QCOMPARE(bench.Shown(), (QList<int>{0, 0, 15}));
    QVERIFY(!bench.Repeat().isChecked());
    QCOMPARE(bench.Caption(), u"スタート"_s);
    QCOMPARE(bench.Enabled(), kAll);
    QCOMPARE(bench.countdown.CountdownDuration, 15'000);
}

void TstTimerWindow::ItOpensWithTheTimeThatIsSet() {
    TimingBench bench;
    bench.countdown.CountdownDuration = 23 * 3'600'000 + 4 * 60'000 + 5000;
    bench.countdown.CountdownRepeat = true;
    bench.tools.ShowTimerForm();
    const auto shown = [&bench](const char* name) { return bench.The<TimerForm, QLineEdit>(name).text(); };
    QCOMPARE((QStringList{shown("Text1"), shown("Text2"), shown("Text3")}),
             (QStringList{u"23"_s, u"4"_s, u"5"_s}));
    QVERIFY((bench.The<TimerForm, QCheckBox>("Check1").isChecked()));
    QCOMPARE(bench.countdown.CountdownDuration, 83'045'000);
}

void TstTimerWindow::TheEntryReadsAsASentence() {
    Bench bench;
    QCOMPARE((bench.The<TimerForm, QGroupBox>("Frame1").title()), u"タイマーの指定"_s);
    QCOMPARE((bench.The<TimerForm, QLabel>("Label1").text()), u"時間"_s);
    QCOMPARE((bench.The<TimerForm, QLabel>("Label2").text()), u"分"_s);
    QCOMPARE((bench.The<TimerForm, QLabel>("Label3").text()), u"秒後"_s);
    QCOMPARE(bench.Repeat().text(), u"指定時間が来たら繰り返す"_s);
    QCOMPARE((bench.The<TimerForm, QLineEdit>("Text3").text()), u"15"_s);
    bench.Spin("UpDown3").setValue(5);
    QCOMPARE((bench.The<TimerForm, QLineEdit>("Text3").text()), u"5"_s);  // without leading zeros
}

void TstTimerWindow::AChangedEntryIsShownAtOnce() {
    Bench bench;
    bench.Set(23, 59, 59);
    QCOMPARE(bench.countdown.CountdownDuration, 86'399'000);
    QCOMPARE(bench.journal.last(), u"lower set 23:59'59\"000"_s);
}

void TstTimerWindow::OpeningItWritesNoLine() {
    Bench bench;
    bench.Set(1, 2, 3);
    bench.Form().close();
    bench.journal.clear();
    bench.tools.ShowTimerForm();
    QCOMPARE(bench.Shown(), (QList<int>{1, 2, 3}));
    QVERIFY(bench.journal.isEmpty());
}

void TstTimerWindow::OneSecondDownJumpsToFifteen() {
    Bench bench;
    bench.Set(0, 0, 1);
    bench.Spin("UpDown3").stepDown();
    QCOMPARE(bench.Shown(), (QList<int>{0, 0, 15}));
    QCOMPARE(bench.countdown.CountdownDuration, 15'000);
    QCOMPARE(bench.lower.Text(), u"0:00'15\"000"_s);
}

void TstTimerWindow::TheSpinsDoNotWrap() {
    Bench bench;
    bench.Set(23, 59, 59);
    for (const char* name : {"UpDown1", "UpDown2", "UpDown3"}) {
        bench.Spin(name).stepUp();
    }
    QCOMPARE(bench.Shown(), (QList<int>{23, 59, 59}));
    bench.Set(0, 0, 15);
    bench.Spin("UpDown1").stepDown();
    bench.Spin("UpDown2").stepDown();
    QCOMPARE(bench.Shown(), (QList<int>{0, 0, 15}));
}

void TstTimerWindow::TypingStaysInRange_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("value");
    QTest::newRow("hours") << u"UpDown1"_s << u"23"_s << 23;
    QTest::newRow("too many hours") << u"UpDown1"_s << u"24"_s << 2;
    QTest::newRow("minutes") << u"UpDown2"_s << u"59"_s << 59;
    QTest::newRow("too many minutes") << u"UpDown2"_s << u"60"_s << 6;
    QTest::newRow("too many digits") << u"UpDown3"_s << u"123"_s << 12;
    QTest::newRow("letters") << u"UpDown3"_s << u"a7b"_s << 7;
    QTest::newRow("a sign") << u"UpDown3"_s << u"-7"_s << 7;
}

void TstTimerWindow::TypingStaysInRange() {
    QFETCH(QString, name);
    QFETCH(QString, typed);
    Bench bench;
    QSpinBox& box = bench.Spin(name.toLatin1().constData());
    box.selectAll();
    QTest::keyClicks(&box, typed);
    box.interpretText();
    QTEST(box.value(), "value");
}

void TstTimerWindow::AnIncompleteZeroIsNotAnEntry() {
    Bench bench;
    QSpinBox& box = bench.Spin("UpDown3");
    box.selectAll();
    QTest::keyClicks(&box, u"0"_s);
    QCOMPARE((bench.The<TimerForm, QLineEdit>("Text3").text()), u"0"_s);
    QTest::keyClicks(&box, u"5"_s);
    box.interpretText();
    QCOMPARE(bench.countdown.CountdownDuration, 5000);
}

void TstTimerWindow::ATypedNumberCountsWhenEnterStarts() {
    Bench bench;
    QSpinBox& box = bench.Spin("UpDown2");
    box.selectAll();
    QTest::keyClicks(&box, u"3"_s);
    QTest::keyClick(&box, Qt::Key_Return);
    QVERIFY(bench.countdown.CountdownRunning);
    QCOMPARE(bench.countdown.CountdownDuration, 195'000);
}

void TstTimerWindow::ControlsThatSetTheTimeAreDisabledWhileItRuns() {
    Bench bench;
    bench.Press<TimerForm>("Command1");
    QCOMPARE(bench.Caption(), u"ストップ"_s);
    QCOMPARE(bench.Enabled(), (QStringList{u"Command1"_s, u"Command3"_s}));
    bench.time.Advance(5000);
    QCOMPARE(bench.lower.Text(), u"0:00'10\"000"_s);
    QCOMPARE(bench.Shown(), (QList<int>{0, 0, 15}));
}

void TstTimerWindow::StoppingEnablesTheEntry() {
    Bench bench;
    bench.Press<TimerForm>("Command1");
    bench.time.Advance(5000);
    bench.Press<TimerForm>("Command1");
    QCOMPARE(bench.Caption(), u"スタート"_s);
    QCOMPARE(bench.Enabled(), kAll);
    bench.time.Advance(60'000);
    bench.Press<TimerForm>("Command1");
    bench.time.Advance(1);
    QCOMPARE(bench.lower.Text(), u"0:00'09\"999"_s);
}

void TstTimerWindow::RepeatTakesEffectWhenClicked() {
    Bench bench;
    bench.journal.clear();
    bench.Repeat().click();
    QVERIFY(bench.countdown.CountdownRepeat);
    bench.Repeat().click();
    QVERIFY(!bench.countdown.CountdownRepeat);
    QVERIFY(bench.journal.isEmpty());
}

void TstTimerWindow::ResetRestoresTheFullTime() {
    Bench bench;
    bench.Press<TimerForm>("Command1");
    bench.time.Advance(5000);
    bench.Press<TimerForm>("Command1");
    bench.Press<TimerForm>("Command2");
    QCOMPARE(bench.upper.Text(), u"タイマー"_s);
    QCOMPARE(bench.lower.Text(), u"0:00'15\"000"_s);
    bench.Press<TimerForm>("Command1");
    bench.time.Advance(1);
    QCOMPARE(bench.lower.Text(), u"0:00'14\"999"_s);
}

void TstTimerWindow::AtZeroStartIsEnabledAgain() {
    Bench bench;
    bench.Press<TimerForm>("Command1");
    bench.Form().close();
    bench.time.Advance(15'000);
    QVERIFY(bench.Form().isVisible());
    QCOMPARE(bench.Caption(), u"スタート"_s);
    QCOMPARE(bench.Enabled(), kAll);
    QVERIFY(bench.The<Form8>().isVisible());
    QCOMPARE(bench.upper.Text(), u"指定の時間が経過しました"_s);
    QCOMPARE(bench.lower.Text(), u"0:00'15\"000"_s);
}

void TstTimerWindow::AtZeroUnseenStartIsEnabledInAnOpenWindow() {
    Bench bench;
    bench.Press<TimerForm>("Command1");
    bench.ChangeFunction(kFunctionClock);
    bench.journal.clear();
    bench.time.Advance(15'000);
    QCOMPARE(bench.Caption(), u"スタート"_s);
    QCOMPARE(bench.Enabled(), kAll);
    QVERIFY(bench.journal.isEmpty());
    QVERIFY(bench.The<Form8>().isVisible());
}

void TstTimerWindow::AtZeroUnseenAClosedWindowStaysClosed() {
    Bench bench;
    bench.Press<TimerForm>("Command1");
    bench.Form().close();
    bench.ChangeFunction(kFunctionClock);
    bench.time.Advance(15'000);
    QVERIFY(!bench.Form().isVisible());
    QVERIFY(bench.The<Form8>().isVisible());
}

void TstTimerWindow::ClosingLeavesTheCountdownRunning() {
    Bench bench;
    bench.Press<TimerForm>("Command1");
    QTest::keyClick(&bench.Form(), Qt::Key_Escape);
    QVERIFY(!bench.Form().isVisible());
    bench.time.Advance(1000);
    QCOMPARE(bench.lower.Text(), u"0:00'14\"000"_s);
    bench.tools.ShowTimerForm();
    QCOMPARE(bench.Caption(), u"ストップ"_s);
}

void TstTimerWindow::HelpOpensItsTopic() {
    Bench bench;
    bench.Press<TimerForm>("Command3");
    QCOMPARE(bench.help.topics, QList<int>{32});
}

void TstTimerWindow::TheTabOrderGoesFromTopToBottom() {
    Bench bench;
    QStringList order;
    QWidget* at = &bench.Spin("UpDown1");
    for (int control = 0; control < 9; ++control) {
        order.append(at->objectName());
        at = at->nextInFocusChain();
        while ((at->focusPolicy() & Qt::TabFocus) == 0 || at->isWindow() || at->focusProxy() != nullptr ||
               at->objectName().startsWith(u"Text")) {
            at = at->nextInFocusChain();
        }
    }
    QCOMPARE(order, (QStringList{u"UpDown1"_s, u"UpDown2"_s, u"UpDown3"_s, u"Check1"_s, u"Command1"_s,
                                 u"Command2"_s, u"Command4"_s, u"Command5"_s, u"Command3"_s}));
}

void TstTimerWindow::EveryEntryHasAnAccessibleName() {
    Bench bench;
    QCOMPARE(bench.Spin("UpDown1").accessibleName(), u"時間"_s);
    QCOMPARE(bench.Spin("UpDown2").accessibleName(), u"分"_s);
    QCOMPARE(bench.Spin("UpDown3").accessibleName(), u"秒後"_s);
}

QTEST_MAIN(TstTimerWindow)
#include "tst_timer_window.moc"
