// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAction>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QTest>

#include "app/running_bench.h"
#include "days/calendar_window.h"
#include "timing/timer_notice.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

namespace {

constexpr int kRun = 15'000;        // ms, the countdown
constexpr qint64 kAgain = 300'000;  // ms

/// The program with the timer chosen, and the switch on.
struct Bench : RunningBench {
    explicit Bench(bool isOn = true) : RunningBench(u"3"_s) {
        state.started.further.notices.tellsCountdown = isOn;
    }
    void RunOut() {
        Press("TimerForm", "Command1");
        time.Advance(kRun);
    }
    static bool IsOpen() {
        const auto* notice = FindWindow<timing::Form8>();
        return notice != nullptr && notice->isVisible();
    }
    static void Type(Qt::Key key) { QTest::keyClick(&WindowOf<timing::Form8>(), key); }
    static void TypeOnButton(Qt::Key key) {
        QTest::keyClick(&ChildOf<QPushButton>(WindowOf<timing::Form8>(), u"Command1"_s), key);
    }
};

}  // namespace

/// The desktop's notice of the countdown beside its window, in the running program.
class TstCountdownNotice : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ByDefaultThereIsOnlyTheWindow();
    void ItIsShownWithTheWindow();
    void ConfirmingClosesBoth();
    void ClosingTheWindowClosesIt();
    void AgainShowsTheWindowAfterFiveMinutes();
    void AgainFollowsASuspend();
    void AgainLeavesTheSetTimeAndARepeatAlone();
    void AgainKeepsTheName();
    void ItIsClosedWithTheProgram();
    void KeysHaveNoEffectAtFirst_data();
    void KeysHaveNoEffectAtFirst();
    void AKeyThatIsHeldDownHasNoEffect();
    void TheMouseClosesItAtOnce();
    void ByDefaultKeysCloseItAtOnce();
    void DaysOpenTheCalendar();
    void ABlockingWindowStaysInFront();
};

void TstCountdownNotice::ByDefaultThereIsOnlyTheWindow() {
    Bench bench(false);
    bench.RunOut();
    QVERIFY(Bench::IsOpen());
    QCOMPARE(bench.notices.shown, 0);
}

void TstCountdownNotice::ItIsShownWithTheWindow() {
    Bench bench;
    bench.RunOut();
    QVERIFY(Bench::IsOpen());
    QCOMPARE(bench.notices.Take(), QStringList{u"指定の時間が経過しました"_s});
    const DesktopNotice& notice = bench.notices.open.last();
    QCOMPARE(notice.body, QString());
    QCOMPARE(notice.category, u"x-tickwell.timer"_s);
    QVERIFY(notice.isUrgent && notice.isSilent);
    QCOMPARE(notice.actions.size(), 2);
    QCOMPARE(notice.actions[0].caption, u"確認"_s);
    QCOMPARE(notice.actions[1].caption, u"5分後にもう一度"_s);
}

void TstCountdownNotice::ConfirmingClosesBoth() {
    Bench bench;
    bench.RunOut();
    bench.notices.Choose("something else");
    QVERIFY(Bench::IsOpen());
    bench.notices.Choose("confirm");
    QVERIFY(!Bench::IsOpen());
    QVERIFY(bench.notices.open.isEmpty());
    bench.time.Advance(2 * kAgain);
    QVERIFY(!Bench::IsOpen());
    QCOMPARE(bench.notices.shown, 1);
}

void TstCountdownNotice::ClosingTheWindowClosesIt() {
    Bench bench;
    bench.RunOut();
    bench.Press("Form8", "Command1");
    QVERIFY(bench.notices.open.isEmpty());
    bench.RunOut();
    QCOMPARE(bench.notices.open.size(), 1);
    WindowOf<timing::Form8>().close();
    QVERIFY(bench.notices.open.isEmpty());
}

void TstCountdownNotice::AgainShowsTheWindowAfterFiveMinutes() {
    Bench bench;
    bench.RunOut();
    bench.notices.Choose("again");
    QVERIFY(!Bench::IsOpen());
    QVERIFY(bench.notices.open.isEmpty());
    bench.time.Advance(kAgain - 1);
    QVERIFY(!Bench::IsOpen());
    bench.time.Advance(1);
    QVERIFY(Bench::IsOpen());
    QCOMPARE(bench.notices.open.size(), 1);
    bench.notices.Choose("again");
    bench.time.Advance(kAgain);
    QVERIFY(Bench::IsOpen());
    bench.notices.Choose("confirm");
    bench.time.Advance(2 * kAgain);
    QVERIFY(!Bench::IsOpen());
}

void TstCountdownNotice::AgainFollowsASuspend() {
    Bench bench;
    bench.RunOut();
    bench.notices.Choose("again");
    bench.time.Suspend(kAgain - 1);
    QVERIFY(!Bench::IsOpen());
    bench.time.Suspend(1);
    QVERIFY(Bench::IsOpen());
}

void TstCountdownNotice::AgainLeavesTheSetTimeAndARepeatAlone() {
    Bench bench;
    bench.RunOut();
    bench.notices.Choose("again");
    QCOMPARE(bench.state.countdown.CountdownDuration, kRun);
    QVERIFY(!bench.state.countdown.CountdownRunning);
    bench.time.Advance(kAgain);
    bench.notices.Choose("confirm");
    ChildOf<QCheckBox>(bench.Window("TimerForm"), u"Check1"_s).click();
    bench.RunOut();
    const qint32 loops = bench.state.countdown.CountdownLoopCount;
    bench.notices.Choose("again");
    QVERIFY(bench.state.countdown.CountdownRunning);
    bench.time.Advance(kRun);
    QCOMPARE(bench.state.countdown.CountdownLoopCount, loops + 1);
    QVERIFY(Bench::IsOpen());
}

void TstCountdownNotice::AgainKeepsTheName() {
    Bench bench;
    bench.state.countdown.CountdownName = u"<b>茹で卵\n"_s;
    Bench::Press("TimerForm", "Command1");
    bench.state.countdown.CountdownName = u"<b>茹で卵\n"_s;
    bench.time.Advance(kRun);
    QCOMPARE(bench.notices.open.last().body, u"<b>茹で卵 "_s);
    bench.notices.Choose("again");
    bench.state.countdown.CountdownName = u"別の"_s;
    bench.time.Advance(kAgain);
    QCOMPARE(bench.notices.open.last().body, u"<b>茹で卵 "_s);
    QCOMPARE(ChildOf<QLabel>(WindowOf<timing::Form8>(), u"Label2"_s).accessibleName(), u"<b>茹で卵\n"_s);
}

void TstCountdownNotice::ItIsClosedWithTheProgram() {
    Bench bench;
    bench.RunOut();
    bench.Window("Form1").close();
    QVERIFY(bench.notices.open.isEmpty());
    QVERIFY(bench.journal.contains(u"closed"_s));
}

void TstCountdownNotice::KeysHaveNoEffectAtFirst_data() {
    QTest::addColumn<int>("key");
    QTest::newRow("Enter") << static_cast<int>(Qt::Key_Return);
    QTest::newRow("Esc") << static_cast<int>(Qt::Key_Escape);
    QTest::newRow("Space") << static_cast<int>(Qt::Key_Space);
}

void TstCountdownNotice::KeysHaveNoEffectAtFirst() {
    QFETCH(const int, key);
    Bench bench;
    bench.RunOut();
    Bench::Type(static_cast<Qt::Key>(key));
    Bench::TypeOnButton(static_cast<Qt::Key>(key));
    bench.time.Advance(timing::Form8::kIgnoresKeysFor - 1);
    Bench::Type(static_cast<Qt::Key>(key));
    Bench::TypeOnButton(static_cast<Qt::Key>(key));
    QVERIFY(Bench::IsOpen());
    bench.time.Advance(1);
    Bench::TypeOnButton(static_cast<Qt::Key>(key));
    QVERIFY(!Bench::IsOpen());
    bench.RunOut();  // the two seconds begin again
    Bench::TypeOnButton(static_cast<Qt::Key>(key));
    QVERIFY(Bench::IsOpen());
}

void TstCountdownNotice::AKeyThatIsHeldDownHasNoEffect() {
    Bench bench;
    bench.RunOut();
    bench.time.Advance(timing::Form8::kIgnoresKeysFor);
    auto& button = ChildOf<QPushButton>(WindowOf<timing::Form8>(), u"Command1"_s);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
    QCoreApplication::sendEvent(&button, &held);
    QVERIFY(Bench::IsOpen());
}

void TstCountdownNotice::TheMouseClosesItAtOnce() {
    Bench bench;
    bench.RunOut();
    QTest::mouseClick(&ChildOf<QPushButton>(WindowOf<timing::Form8>(), u"Command1"_s), Qt::LeftButton);
    QVERIFY(!Bench::IsOpen());
}

void TstCountdownNotice::ByDefaultKeysCloseItAtOnce() {
    Bench bench(false);
    bench.RunOut();
    Bench::TypeOnButton(Qt::Key_Return);
    QVERIFY(!Bench::IsOpen());
    bench.RunOut();
    Bench::Type(Qt::Key_Escape);
    QVERIFY(!Bench::IsOpen());
}

void TstCountdownNotice::DaysOpenTheCalendar() {
    Bench bench(false);
    bench.state.started.further.notices = {.tellsDays = true, .daysAhead = {0}};
    bench.time.SetNow(QDateTime(QDate(2026, 11, 23), QTime(8, 59)));
    bench.Press("TimerForm", "Command3");  // anything
    ChildOf<QAction>(bench.Window("Form1"), u"Menu17"_s).trigger();
    bench.Press("Form2", "Command1");
    bench.time.Advance(60'000);
    QCOMPARE(bench.notices.Take(), QStringList{u"今日 11月23日(月)は「勤労感謝の日」です"_s});
    bench.time.SetNow(QDateTime(QDate(2027, 2, 1), QTime(8, 0)));
    bench.notices.Choose("calendar");
    const auto& calendar = WindowOf<days::Form5>();
    QVERIFY(calendar.isVisible());
    const auto heading = [&calendar] {
        QStringList labels;
        for (const QLabel* label : calendar.findChildren<QLabel*>()) {
            labels.append(label->text());
        }
        return labels.join(u'|');
    };
    QVERIFY2(heading().contains(u"11月"), qPrintable(heading()));
}

void TstCountdownNotice::ABlockingWindowStaysInFront() {
    Bench bench(false);
    bench.state.started.further.notices = {.tellsDays = true, .daysAhead = {0}};
    bench.time.SetNow(QDateTime(QDate(2026, 11, 23), QTime(10, 0)));
    ChildOf<QAction>(bench.Window("Form1"), u"Menu17"_s).trigger();
    bench.Press("Form2", "Command3");
    QCOMPARE(bench.notices.Take().size(), 1);
    bench.notices.Choose("default");
    QVERIFY(FindWindow<days::Form5>() == nullptr);
    bench.Press("Form2", "Command2");
    bench.notices.Choose("default");
    QVERIFY(WindowOf<days::Form5>().isVisible());
}

QTEST_MAIN(TstCountdownNotice)
#include "tst_countdown_notice.moc"
