// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLabel>
#include <QTest>

#include "timing/timing_bench.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

const QStringList kOpened{u"folder"_s, u"open TKW00.wav alias Timer"_s, u"play Timer"_s};

}  // namespace

/// The notice that the countdown has reached zero.
class TstTimerNotice : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItComesToTheFrontWithItsSound();
    void ItIsClosedOnceWhicheverWay_data();
    void ItIsClosedOnceWhicheverWay();
    void OneNoticeAtATimeWhileCyclesContinue();
    void ItComesAgainAfterItWasClosed();
    void WhileItIsQuietItHasNoSound();
    void ItStaysWithoutItsSound();
    void ClosingAllWindowsClosesTheSound();
    void AClosedNoticeIsNotClosedAgain();
    void ANameIsShownAsItIs_data();
    void ANameIsShownAsItIs();
};

void TstTimerNotice::ItComesToTheFrontWithItsSound() {
    TimingBench bench;
    bench.tools.ShowNotice();
    const auto& form = bench.The<Form8>();
    QVERIFY(form.isVisible());
    QCOMPARE(form.windowTitle(), u"タイマー"_s);
    QCOMPARE((bench.The<Form8, QLabel>("Label1").text()), u"指定の時間が経過しました"_s);
    QVERIFY(!(bench.The<Form8, QLabel>("Image1")).pixmap(Qt::ReturnByValue).isNull());
    QCOMPARE((bench.The<Form8, QPushButton>("Command1").text()), u"確認"_s);
    QVERIFY(form.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    QCOMPARE(form.windowModality(), Qt::ApplicationModal);
    QVERIFY(QTest::qWaitForWindowActive(&bench.The<Form8>()));
    QCOMPARE(bench.commands, kOpened);
}

void TstTimerNotice::ItIsClosedOnceWhicheverWay_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("its button") << 0;
    QTest::newRow("Enter") << 1;
    QTest::newRow("Esc") << 2;
    QTest::newRow("the title bar") << 3;
}

void TstTimerNotice::ItIsClosedOnceWhicheverWay() {
    QFETCH(int, way);
    TimingBench bench;
    bench.tools.ShowNotice();
    switch (way) {
        case 0:
            bench.Press<Form8>("Command1");
            break;
        case 1:
            QTest::keyClick(&bench.The<Form8>(), Qt::Key_Return);
            break;
        case 2:
            QTest::keyClick(&bench.The<Form8>(), Qt::Key_Escape);
            break;
        default:
            bench.The<Form8>().close();
            break;
    }
    QVERIFY(!bench.The<Form8>().isVisible());
    QCOMPARE(bench.commands, kOpened + QStringList{u"close Timer"_s});
}

void TstTimerNotice::OneNoticeAtATimeWhileCyclesContinue() {
    TimingBench bench;
    bench.countdown.CountdownRepeat = true;
    bench.ChangeFunction(kFunctionTimer);
    bench.The<TimerForm, QSpinBox>("UpDown3").setValue(1);
    bench.Press<TimerForm>("Command1");
    const qint32 start = bench.countdown.CountdownStart;
    bench.time.Advance(10'000);
    QCOMPARE(bench.countdown.CountdownStart, start + 10'000);
    QCOMPARE(bench.countdown.CountdownLoopCount, 10);
    QCOMPARE(bench.upper.Text(), u"ループ 10回目です"_s);
    QCOMPARE(bench.commands, kOpened);
}

void TstTimerNotice::ItComesAgainAfterItWasClosed() {
    TimingBench bench;
    bench.tools.ShowNotice();
    bench.Press<Form8>("Command1");
    bench.commands.clear();
    bench.tools.ShowNotice();
    QVERIFY(bench.The<Form8>().isVisible());
    QCOMPARE(bench.commands, kOpened);
}

/// What was not opened is not closed either, even if it is no longer quiet by then.
void TstTimerNotice::WhileItIsQuietItHasNoSound() {
    TimingBench bench;
    bench.isSilent = true;
    bench.tools.ShowNotice();
    QVERIFY(bench.The<Form8>().isVisible());
    QCOMPARE(bench.commands, QStringList{u"folder"_s});
    bench.isSilent = false;
    bench.Press<Form8>("Command1");
    QCOMPARE(bench.commands, QStringList{u"folder"_s});
    bench.tools.ShowNotice();
    QCOMPARE(bench.commands.mid(1), kOpened);
    bench.isSilent = true;
    bench.Press<Form8>("Command1");
    QCOMPARE(bench.commands.last(), u"close Timer"_s);
}

void TstTimerNotice::ItStaysWithoutItsSound() {
    TimingBench bench;
    bench.enterFolder = [] { throw RunTimeError(u"/nowhere"_s); };
    bench.tools.ShowNotice();
    QVERIFY(bench.The<Form8>().isVisible());
    QCOMPARE(bench.boxes.Shown().size(), 1);
}

void TstTimerNotice::ClosingAllWindowsClosesTheSound() {
    TimingBench bench;
    bench.tools.ShowStopForm();
    bench.tools.ShowTimerForm();
    bench.tools.ShowNotice();
    bench.tools.CloseWindows();
    QVERIFY(!bench.The<Form8>().isVisible());
    QVERIFY(!bench.The<StopForm>().isVisible());
    QVERIFY(!bench.The<TimerForm>().isVisible());
    QCOMPARE(bench.commands.last(), u"close Timer"_s);
}

void TstTimerNotice::AClosedNoticeIsNotClosedAgain() {
    TimingBench bench;
    bench.tools.CloseWindows();
    bench.tools.ShowNotice();
    bench.Press<Form8>("Command1");
    bench.commands.clear();
    bench.tools.CloseWindows();
    QVERIFY(bench.commands.isEmpty());
}

void TstTimerNotice::ANameIsShownAsItIs_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isWhole");
    QTest::newRow("none") << u""_s << true;
    QTest::newRow("a word") << u"茹で卵"_s << true;
    QTest::newRow("markup") << u"<b>5 &amp; 6</b>"_s << true;
    QTest::newRow("the longest") << QString(200, u'卵') << false;
    QTest::newRow("the longest without a place to break") << QString(200, u'W') << false;
}

void TstTimerNotice::ANameIsShownAsItIs() {
    QFETCH(const QString, name);
    QFETCH(const bool, isWhole);
    TimingBench bench;
    bench.tools.StartCountdown(1000, name);
    bench.time.Advance(1000);
    const auto& label = bench.The<Form8, QLabel>("Label2");
    QCOMPARE(label.isVisible(), !name.isEmpty());
    QCOMPARE(label.accessibleName(), name);
    QCOMPARE(label.textFormat(), Qt::PlainText);
    QCOMPARE(label.text() == name, isWhole);
    QVERIFY(label.text().endsWith(u'…') != isWhole);
    QVERIFY2(bench.The<Form8>().width() < 700, qPrintable(QString::number(bench.The<Form8>().width())));
}

QTEST_MAIN(TstTimerNotice)
#include "tst_timer_notice.moc"
