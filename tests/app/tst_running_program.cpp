// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include "app/folder_setup.h"
#include "app/running_program.h"
#include "platform/time/virtual_time.h"
#include "support/borrowed.h"
#include "support/discs.h"
#include "support/fake_autostart.h"
#include "support/fake_cd_drive.h"
#include "support/fake_event_wait.h"
#include "support/fake_memory.h"
#include "support/fake_message_boxes.h"
#include "support/fake_power.h"
#include "support/fake_printer.h"
#include "support/fake_program_starter.h"
#include "support/fake_settings_store.h"
#include "support/fake_sound_output.h"
#include "support/fake_tray.h"
#include "support/fake_window_stack.h"
#include "support/files.h"
#include "support/window.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

namespace {

constexpr int kStartUp = 11'000;  // ms until the stored function starts

class WatchedDrive : public FakeCdDrive {
public:
    void Stop() override {
        FakeCdDrive::Stop();
        if (onStop) {
            onStop();
        }
    }

    std::function<void()> onStop;
};

/// The complete program in its own folder, 15 seconds before nine in the evening.
struct Bench {
    QTemporaryDir dir;
    platform::VirtualTime time{QDateTime(QDate(1998, 11, 15), QTime(20, 59, 45)), 307'000};
    RealTimerSource realTime{time};
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    FakePower power;
    FakeMemory memory;
    FakeTray tray;
    FakeWindowStack stack;
    FakeProgramStarter starter;
    FakeAutostart autostart;
    FakePrinter printer;
    FakeSoundOutput sound;
    FakeEventWait wait;
    WatchedDrive drive;
    ProgramState state;
    QStringList journal;
    std::unique_ptr<RunningProgram> program;

    explicit Bench(const QString& function) {
        CopyFiles(QStringLiteral(TICKWELL_MASTERS), dir.path(), RequiredFiles());
        drive.PutIn(ThreeTracks());
        state.started = StartUp(dir.path(), [&function] {
            auto store = std::make_unique<FakeSettingsStore>();
            store->Put(u"SetUp"_s, u"Function"_s, function);
            return store;
        });
        const ProgramPorts ports{
            .clock = time,
            .timers = time,
            .jumps = time,
            .realTimers = realTime,
            .boxes = boxes,
            .handlers = handlers,
            .tray = tray,
            .stack = stack,
            .starter = starter,
            .autostart = autostart,
            .printer = printer,
            .sound = sound,
            .wait = wait,
            .drive = drive,
            .playback = drive,
            .display = {.power = Borrowed<const Power>(power), .memory = Borrowed<const Memory>(memory)}};
        program = std::make_unique<RunningProgram>(ports, state, [this] { Note(u"closed"_s); });
        program->Start();
        time.Advance(kStartUp);
    }

    /// Records an event and what is still open at that moment.
    void Note(const QString& what) {
        journal.append(what + (sound.OpenDevices() > 0 ? u", sound"_s : QString()) +
                       (state.started.dayDatabase.IsOpen() ? u", day database"_s : QString()));
    }
    static QWidget& Window(const char* name) { return WindowNamed(QLatin1StringView(name)); }
    static void Press(const char* window, const char* button) {
        ChildOf<QPushButton>(Window(window), QLatin1StringView(button)).click();
    }
};

}  // namespace

/// How the parts of the program work together, from the end of start-up until the program ends.
class TstRunningProgram : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ANoticeReportsItsMissingSound();
    void TheNoticeChangesToTheFolder();
    void TheCdPlayerOpensFromItsDisplay();
    void SoundEndsBeforeTheDiscAndBothBeforeTheDayDatabase();
    void SettingsThatCannotBeStoredAtTheEndOfTheSessionAreLogged();
};

void TstRunningProgram::ANoticeReportsItsMissingSound() {
    Bench bench(u"3"_s);
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
    Bench bench(u"3"_s);
    bench.time.Advance(10'000);  // the chime at nine changes to it as well
    bench.Press("TimerForm", "Command1");
    QVERIFY(QDir::setCurrent(QDir::rootPath()));
    bench.time.Advance(15'000);
    QVERIFY(bench.Window("Form8").isVisible());
    QCOMPARE(QDir::currentPath(), QDir(bench.dir.path()).canonicalPath());
}

void TstRunningProgram::TheCdPlayerOpensFromItsDisplay() {
    Bench bench(u"6"_s);
    ChildOf<QAction>(bench.Window("Form1"), u"Menu0"_s).trigger();
    QVERIFY(bench.Window("CDForm").isVisible());
}

void TstRunningProgram::SoundEndsBeforeTheDiscAndBothBeforeTheDayDatabase() {
    Bench bench(u"0"_s);
    bench.time.Advance(5000);  // the chime is playing
    QVERIFY(bench.sound.OpenDevices() > 0);
    bench.drive.onStop = [&bench] { bench.Note(u"disc stopped"_s); };
    QVERIFY(bench.Window("Form1").close());
    QVERIFY(bench.journal.size() >= 2);
    QCOMPARE(bench.journal.constFirst(), u"disc stopped, day database"_s);
    QCOMPARE(bench.journal.constLast(), u"closed"_s);
}

void TstRunningProgram::SettingsThatCannotBeStoredAtTheEndOfTheSessionAreLogged() {
    Bench bench(u"0"_s);
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
