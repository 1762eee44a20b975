// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAction>
#include <QDir>
#include <QRegularExpression>
#include <QTest>

#include "app/running_bench.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

/// The interplay of the program's parts, from the end of start-up until the program ends.
class TstRunningProgram : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ANoticeReportsItsMissingSound();
    void TheNoticeChangesToTheFolder();
    void TheCdPlayerOpensFromItsDisplay();
    void WhileItIsQuietNothingIsStruck_data();
    void WhileItIsQuietNothingIsStruck();
    void TheDesktopIsFollowedOnceItIsChosen();
    void TheNoticeIsSilentWhileItIsQuiet();
    void TheVolumeIsThatOfTheSettings();
    void SoundEndsBeforeTheDiscAndBothBeforeTheDayDatabase();
    void SettingsThatCannotBeStoredAtTheEndOfTheSessionAreLogged();
};

void TstRunningProgram::ANoticeReportsItsMissingSound() {
    RunningBench bench(u"3"_s);
    QVERIFY(QFile::remove(bench.dir.filePath(u"TKW00.wav"_s)));
    bench.Press("TimerForm", "Command1");
    bench.time.Advance(14'999);
    QVERIFY(bench.boxes.Shown().isEmpty());
    bench.time.Advance(1);
    QVERIFY(bench.Window("Form8").isVisible());
    QVERIFY(!bench.boxes.Shown().isEmpty());
    const Message told = bench.boxes.Shown().constFirst();
    QCOMPARE(told.icon, MessageIcon::Critical);
    QCOMPARE(told.title, u"マルチメディアエラー"_s);
    QVERIFY(!told.text.isEmpty());
    QCOMPARE(bench.program->Player().State().CdState, media::kCdNotReady);  // like any failed command
}

void TstRunningProgram::TheNoticeChangesToTheFolder() {
    RunningBench bench(u"3"_s);
    bench.time.Advance(10'000);  // past the chime at nine, which also changes to the folder
    bench.Press("TimerForm", "Command1");
    QVERIFY(QDir::setCurrent(QDir::rootPath()));
    bench.time.Advance(15'000);
    QVERIFY(bench.Window("Form8").isVisible());
    QCOMPARE(QDir::currentPath(), QDir(bench.dir.path()).canonicalPath());
}

void TstRunningProgram::TheCdPlayerOpensFromItsDisplay() {
    RunningBench bench(u"6"_s);
    ChildOf<QAction>(bench.Window("Form1"), u"Menu0"_s).trigger();
    QVERIFY(bench.Window("CDForm").isVisible());
}

void TstRunningProgram::WhileItIsQuietNothingIsStruck_data() {
    QTest::addColumn<bool>("hasHours");
    QTest::addColumn<bool>("follows");
    QTest::addColumn<bool>("isOn");
    QTest::addColumn<bool>("strikes");
    QTest::newRow("no quiet hours") << false << false << true << true;
    QTest::newRow("quiet hours") << true << false << false << false;
    QTest::newRow("the desktop") << false << true << true << false;
    QTest::newRow("the desktop, off") << false << true << false << true;
}

/// Nine o'clock is struck 15 seconds after the start.
void TstRunningProgram::WhileItIsQuietNothingIsStruck() {
    QFETCH(const bool, hasHours);
    QFETCH(const bool, follows);
    QFETCH(const bool, isOn);
    QFETCH(const bool, strikes);
    RunningBench bench(u"0"_s);
    QVERIFY(!bench.doNotDisturb.isWatched);
    QuietSettings& quiet = bench.state.started.further.quiet;
    quiet.hasHours = hasHours;
    quiet.from = 21 * 60;
    quiet.followsDesktop = follows;
    bench.doNotDisturb.mode = isOn;
    bench.doNotDisturb.isWatched = follows;
    bench.time.Advance(5000);
    QCOMPARE(!bench.sound.Devices().isEmpty(), strikes);
}

void TstRunningProgram::TheDesktopIsFollowedOnceItIsChosen() {
    RunningBench bench(u"0"_s);
    ChildOf<QAction>(bench.Window("Form1"), u"Menu17"_s).trigger();  // the settings
    auto& follows = ChildOf<QAbstractButton>(bench.Window("Form2"), u"Check63"_s);
    follows.click();
    QVERIFY(!bench.doNotDisturb.isWatched);
    bench.Press("Form2", "Command3");
    QVERIFY(bench.doNotDisturb.isWatched);
    follows.click();
    bench.Press("Form2", "Command3");
    QVERIFY(!bench.doNotDisturb.isWatched);
}

void TstRunningProgram::TheNoticeIsSilentWhileItIsQuiet() {
    RunningBench bench(u"3"_s);
    bench.state.started.further.quiet = {.hasHours = true, .from = 0, .to = 0, .silencesTimer = true};
    bench.Press("TimerForm", "Command1");
    bench.time.Advance(15'000);
    QVERIFY(bench.Window("Form8").isVisible());
    QVERIFY(bench.sound.Devices().isEmpty());  // nor was nine o'clock struck
    bench.Press("Form8", "Command1");
    QVERIFY(bench.boxes.Shown().isEmpty());
}

void TstRunningProgram::TheVolumeIsThatOfTheSettings() {
    std::vector<qint16> full;
    {
        RunningBench bench(u"0"_s);
        bench.time.Advance(5000);
        full = bench.sound.Devices().last()->samples;
    }
    RunningBench bench(u"0"_s);
    bench.state.started.further.quiet.volume = 50;
    bench.time.Advance(5000);
    const std::vector<qint16>& half = bench.sound.Devices().last()->samples;
    QVERIFY(full.size() > 1000);
    QCOMPARE(half.size(), full.size());
    for (std::size_t i = 0; i < full.size(); ++i) {
        QCOMPARE(half[i], static_cast<qint16>(full[i] / 2));
    }
}

void TstRunningProgram::SoundEndsBeforeTheDiscAndBothBeforeTheDayDatabase() {
    RunningBench bench(u"0"_s);
    bench.time.Advance(5000);  // the chime is playing
    QVERIFY(bench.sound.OpenDevices() > 0);
    bench.drive.onStop = [&bench] { bench.Note(u"disc stopped"_s); };
    QVERIFY(bench.Window("Form1").close());
    QVERIFY(bench.journal.size() >= 2);
    QCOMPARE(bench.journal.constFirst(), u"disc stopped, day database"_s);
    QCOMPARE(bench.journal.constLast(), u"closed"_s);
}

void TstRunningProgram::SettingsThatCannotBeStoredAtTheEndOfTheSessionAreLogged() {
    RunningBench bench(u"0"_s);
    auto& store = dynamic_cast<FakeSettingsStore&>(*bench.state.started.store);
    store.SetFull(true);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"not stored .*空き容量がありません。"_s));
    bench.program->SaveForSessionEnd();
    QVERIFY(bench.boxes.Shown().isEmpty());  // no message box at the end of the session
    store.SetFull(false);
    bench.program->SaveForSessionEnd();
    QCOMPARE(store.Commits(), 1);
}

QTEST_MAIN(TstRunningProgram)
#include "tst_running_program.moc"
