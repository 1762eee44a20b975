// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/clock_text.h"
#include "core/duration_text.h"
#include "shell/main_window_bench.h"
#include "support/window.h"
#include "timing/timer_notice.h"

namespace tickwell::shell {

inline constexpr int kHour = 3'600'000;               // ms
inline constexpr qint64 kTickTurn = qint64{1} << 31;  // ms after which the tick counter changes its sign

/// The main window with this function and language, just started; the wall clock is between two full seconds.
/// `tick`: the tick counter before the start, in ms.
struct TickingBench : MainWindowBench {
    explicit TickingBench(int function = 0, qint64 tick = 307'000, int language = 0) {
        store.Put(QStringLiteral("SetUp"), QStringLiteral("Function"), QString::number(function));
        store.Put(QStringLiteral("Digital"), QStringLiteral("Language"), QString::number(language));
        tray.SetThere(true);
        time.SetNow(QDateTime(QDate(1998, 11, 15), QTime(21, 5, 7, 350)));
        time.Suspend(tick - 307'000);
        time.SetNow(QDateTime(QDate(1998, 11, 15), QTime(21, 5, 7, 350)));
        Start();
        time.Advance(kStartUp);
    }

    /// The number of wake-ups by timers. Ticks within three milliseconds of a wake-up belong to it.
    int WakeUps(qint64 milliseconds) {
        constexpr int kApart = 3;
        int wakeUps = 0;
        qint64 counted = -kApart;
        for (std::optional<qint64> left = milliseconds; (left = time.Step(*left));) {
            const qint64 passed = milliseconds - *left;
            if (passed - counted >= kApart) {
                counted = passed;
                ++wakeUps;
            }
        }
        return wakeUps;
    }

    /// The longest time in ms during which the lower line showed anything but `expected`.
    template <typename Expected>
    qint64 MostLate(qint64 milliseconds, Expected expected) {
        constexpr int kLook = 10;
        qint64 since = 0;
        qint64 mostLate = 0;
        for (qint64 passed = 0; passed < milliseconds; passed += kLook) {
            since = Lower().Text() == expected() ? passed + kLook : since;
            mostLate = std::max(mostLate, passed - since);
            time.Advance(kLook);
        }
        return mostLate;
    }
    QString ClockNow() const {
        return ClockText(time.Now().time(), settings.language, settings.displayMode, settings.hourStyle);
    }
    QString UsageNow() const {
        const bool isLong = further.corrections.longUsage;
        return UsageText(isLong ? time.SinceBoot() : time.Tick(), settings.language, settings.displayMode,
                         settings.hourStyle);
    }
    QString ElapsedNow() const { return ElapsedText(time.Tick() - stopwatch.StopwatchStart); }

    void PutAway() const { Item("Menu19").trigger(); }
    void TakeBack() { tray.Click(); }

    static QPushButton& Button(const char* window, const char* name) {
        return ChildOf<QPushButton>(WindowNamed(QLatin1StringView(window)), QLatin1StringView(name));
    }
    void StartStopwatch() {
        Item("Menu0").trigger();
        Button("StopForm", "Command1").click();
    }
    void StartCountdown() { Button("TimerForm", "Command1").click(); }

    static bool IsNoticeShown() {
        const QWidgetList windows = QApplication::topLevelWidgets();
        return std::any_of(windows.begin(), windows.end(), [](const QWidget* each) {
            return qobject_cast<const timing::Form8*>(each) != nullptr && each->isVisible();
        });
    }
};

}  // namespace tickwell::shell
