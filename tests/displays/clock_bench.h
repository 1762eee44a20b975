// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

#include "core/language.h"
#include "core/settings_io.h"
#include "days/table_holidays.h"
#include "displays/clock_display.h"
#include "platform/time/virtual_time.h"
#include "store/day_store.h"
#include "support/fake_message_boxes.h"
#include "support/fake_settings_store.h"
#include "support/fake_text_line.h"

namespace tickwell::displays {

inline constexpr int kTurn = 10'000;       // ms between rotations of the upper line
inline constexpr int kToMidnight = 3'250;  // ms from the start of a bench

/// The displayed clock on 3 October 1998, a Saturday, before midnight, with its timers. Two names fall on
/// each day.
struct ClockBench : DisplayFunctions {
    AppSettings settings;
    FurtherSettings further;
    platform::VirtualTime time{QDateTime(QDate(1998, 10, 3), QTime(23, 59, 59)).addMSecs(1000 - kToMidnight)};
    store::DayStore store;
    store::DayDatabase database{store.Path()};
    days::TableHolidays holidays{database};
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    FakeTextLine upper;
    FakeTextLine lower;
    ClockDisplay clock{{.settings = settings,
                        .clock = time,
                        .announcements = {.dayDatabase = database, .holidays = holidays, .further = further}},
                       handlers,
                       time,
                       {.lines = {.upper = upper, .lower = lower}, .functions = *this}};

    explicit ClockBench(const FurtherSettings& chosen = {}, qint32 language = kLanguageJapanese)
        : further(chosen) {
        LoadSettings(FakeSettingsStore(), settings);
        settings.language = language;
        for (const QByteArray day : {"2", "3", "4"}) {
            store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('first of " + day + "',0,10," +
                      day + ",0),('second of " + day + "',0,10," + day + ",0)");
        }
        time.Listen([this] { clock.Wake(); });
    }
    void ChangeFunction(qint32 /*number*/) override {}
    qint32 GetFuncNumber() const override { return kFunctionClock; }

    /// Chooses the clock and lets it run for a second; the upper line then rotates in nine seconds.
    void Begin() {
        clock.Show();
        time.Advance(1000);
        upper.TakeRecord();
    }
    /// The milliseconds until the upper line is next written to, and what is written.
    std::pair<qint64, QStringList> NextChange() {
        for (qint64 passed = 0; passed <= 2 * kTurn; ++passed) {
            const QStringList record = upper.TakeRecord();
            if (!record.isEmpty()) {
                return {passed, record};
            }
            time.Advance(1);
        }
        return {};
    }
};

}  // namespace tickwell::displays
