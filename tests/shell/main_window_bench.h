// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/settings_io.h"
#include "displays/displays_bench.h"
#include "lines/moving_word.h"
#include "shell/main_window.h"
#include "store/day_store.h"
#include "support/child.h"
#include "support/fake_focus_return.h"
#include "support/fake_full_screen_watch.h"
#include "support/fake_program_starter.h"
#include "support/fake_settings_store.h"
#include "support/fake_tray.h"
#include "support/fake_window_stack.h"

namespace tickwell::shell {

inline constexpr int kStartUp = 11'000;  // ms until the main window starts the stored function

/// The main window with a real day database; everything else is controlled by the test.
struct MainWindowBench : displays::DisplaysBench {
    FakeSettingsStore store;
    store::DayStore dayStore;
    FakeTray tray;
    FakeWindowStack stack;
    FakeFocusReturn focus;
    FakeFullScreenWatch fullScreen;
    FakeProgramStarter starter;
    QString folder;
    OtherWindows windows;
    QList<std::pair<QString, qint32>> chimes;
    bool isPlacedByCompositor = false;
    int closed = 0;
    bool isComposited = true;
    QList<bool> passing;  ///< each change of whether clicks pass through
    std::unique_ptr<Form1> form;

    MainWindowBench() { dayDatabase = store::DayDatabase(dayStore.Path()); }

    void Start() {
        LoadSettings(store, settings);
        LoadFurtherSettings(store, further);
        StartMedia();
        const auto makeDisplays = [this](const DisplayView& view) {
            return app::MakeDisplays(Parts(), view);
        };
        const auto playChime = [this](const QString& name, qint32 count) { chimes.append({name, count}); };
        const auto passClicks = [this](const QWindow& /*window*/, bool passes) { passing.append(passes); };
        form = std::make_unique<Form1>(MainWindowParts{.settings = settings,
                                                       .further = further,
                                                       .store = store,
                                                       .clock = time,
                                                       .timers = time,
                                                       .jumps = time,
                                                       .power = power,
                                                       .tray = tray,
                                                       .stack = stack,
                                                       .focus = focus,
                                                       .fullScreen = fullScreen,
                                                       .starter = starter,
                                                       .folder = ProgramFolder(folder),
                                                       .handlers = handlers,
                                                       .windows = windows,
                                                       .makeDisplays = makeDisplays,
                                                       .playChime = playChime,
                                                       .isPlacedByCompositor = isPlacedByCompositor,
                                                       .isComposited = [this] { return isComposited; },
                                                       .passClicks = passClicks,
                                                       .closed = [this] { ++closed; }});
        form->Form_Load();
        form->show();
    }
    lines::MovingWord& Upper() const {
        return ChildOf<lines::MovingWord>(*form, QStringLiteral("MovingWord1"));
    }
    lines::MovingWord& Lower() const {
        return ChildOf<lines::MovingWord>(*form, QStringLiteral("MovingWord2"));
    }
    QAction& Item(const char* name) const { return ChildOf<QAction>(*form, QLatin1StringView(name)); }
};

}  // namespace tickwell::shell
