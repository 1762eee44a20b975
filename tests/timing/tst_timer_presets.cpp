// SPDX-License-Identifier: GPL-3.0-or-later
#include <QInputDialog>
#include <QMenu>

#include "timing/timers_window_bench.h"

using namespace tickwell;
using namespace tickwell::timing;

/// The presets of the list of timers.
class TstTimerPresets : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void APresetStarts();
    void APresetUsesItsEndedTimerAgain();
    void APresetIsKeptAndRemoved();
    void ARemovedPresetKeepsNoFocus();
};

void TstTimerPresets::APresetStarts() {
    TimersBench bench;
    bench.desk->Show();
    QCOMPARE(bench.Button("Preset(0)").text(), u"紅茶 4分"_s);
    QCOMPARE(bench.Button("Preset(1)").text(), u"集中 25分／休憩 5分"_s);
    bench.PressPreset(0);
    QCOMPARE(bench.Row(1), (QStringList{u"紅茶"_s, u"4:00"_s, u"21:09:07"_s, u"動作中"_s}));
    QCOMPARE(bench.Table().currentRow(), 1);
    QCOMPARE(bench.Enabled(), u"0111"_s);
    bench.PressPreset(0);  // a second pot
    QCOMPARE(bench.Table().rowCount(), 3);
}

void TstTimerPresets::APresetUsesItsEndedTimerAgain() {
    TimersBench bench;
    bench.desk->Show();
    bench.PressPreset(0);
    bench.time.Advance(5 * kMinute);
    QCOMPARE(bench.Row(1).last(), u"終了"_s);
    bench.PressPreset(0);
    QCOMPARE(bench.Table().rowCount(), 2);
    QCOMPARE(bench.Row(1)[1], u"4:00"_s);
}

void TstTimerPresets::APresetIsKeptAndRemoved() {
    TimersBench bench;
    bench.desk->Show();
    bench.The<TimersForm, QLineEdit>("Text4").setText(u"そば"_s);
    bench.Press<TimersForm>("Command6");
    auto* dialog = bench.Form().findChild<QInputDialog*>(u"PresetNameDialog"_s);
    QVERIFY(dialog != nullptr);
    QCOMPARE(dialog->textValue(), u"そば"_s);
    dialog->accept();
    QCOMPARE(bench.store.kept.presets.size(), 3);
    QCOMPARE(bench.Button("Preset(2)").text(), u"そば 3分"_s);
    bench.AskForMenu("Preset(0)");
    auto* menu = bench.Form().findChild<QMenu*>(u"PresetMenu"_s);
    QVERIFY(menu != nullptr);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(bench.store.kept.presets.size(), 2);
    QCOMPARE(bench.Button("Preset(0)").text(), u"集中 25分／休憩 5分"_s);
}

/// Of an inactive window, Qt keeps a pointer to the widget that is to have the focus.
void TstTimerPresets::ARemovedPresetKeepsNoFocus() {
    TimersBench bench;
    bench.desk->Show();
    QWidget other;
    other.show();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    const QPushButton* removed = &bench.Button("Preset(0)");
    bench.Button("Preset(0)").setFocus();
    QCOMPARE(bench.Form().focusWidget(), removed);
    bench.AskForMenu("Preset(0)");
    bench.The<TimersForm, QMenu>("PresetMenu").actions().constFirst()->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(bench.store.kept.presets.size(), 1);
    QVERIFY(bench.Form().focusWidget() != removed);
}

QTEST_MAIN(TstTimerPresets)
#include "tst_timer_presets.moc"
