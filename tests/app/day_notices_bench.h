// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/chosen_holidays.h"
#include "app/day_notices.h"
#include "platform/time/virtual_time.h"
#include "store/day_store.h"
#include "support/fake_desktop_notices.h"
#include "support/fake_message_boxes.h"
#include "support/fake_settings_store.h"

namespace tickwell::app {

/// The notices of days with a real day database, on a machine whose time the test controls.
struct DayNoticesBench {
    static constexpr int kStart = 1000;  ///< ms until the first look

    store::DayStore dayStore;
    store::DayDatabase dayDatabase{dayStore.Path()};
    platform::VirtualTime time{QDateTime(QDate(2026, 11, 22), QTime(8, 0))};
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    FakeDesktopNotices notices;
    FakeSettingsStore store;
    FurtherSettings further;
    ChosenHolidays holidays{ProgramFolder(dayStore.Folder()), dayDatabase, further.calendar};
    QList<QDate> opened;  ///< the days on which the calendar was opened
    std::unique_ptr<DayNotices> program;

    DayNoticesBench() {
        further.notices = {.tellsDays = true, .daysAhead = {0, 1, 3, 7}, .time = 540};
        dayStore.Raw("DELETE FROM Syukuzitu");
    }
    void AddEvery(const QByteArray& name, int month, int day) const {
        dayStore.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('" + name + "',0," +
                     QByteArray::number(month) + "," + QByteArray::number(day) + ",0)");
    }
    void Start() {
        program.reset();
        program = std::make_unique<DayNotices>(DayNoticesParts{
            .notices = notices,
            .clock = time,
            .timers = time,
            .jumps = time,
            .handlers = handlers,
            .store = store,
            .announcements = {.dayDatabase = dayDatabase, .holidays = holidays, .further = further},
            .openCalendar = [this](QDate day) { opened.append(day); }});
        time.Advance(kStart);
    }
    QString Stored() const {
        return store.Get(QStringLiteral("Notices"), QStringLiteral("Told"))
            .value_or(QStringLiteral("nothing"));
    }
    /// Lets time pass until that moment.
    void PassTo(const QDateTime& moment) { time.Advance(time.Now().msecsTo(moment)); }
    void PassTo(QDate day, QTime clock) { PassTo(QDateTime(day, clock)); }
};

}  // namespace tickwell::app
