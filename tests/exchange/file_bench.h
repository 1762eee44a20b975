// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/errors.h"
#include "days/anniversary_model.h"
#include "exchange/file_export.h"
#include "exchange/file_reading.h"
#include "exchange/row_import.h"
#include "exchange/whole_work.h"
#include "store/day_store.h"
#include "support/fake_calendar_helper.h"
#include "support/files.h"

namespace tickwell::exchange {

/// Two days off a month: the first with two names, and one that the month does not have.
struct FirstsOff : days::HolidaySource {
    QList<days::NamedDay> DaysOff(const days::MonthShape&) const override {
        return {{1, QStringLiteral("元")}, {1, QStringLiteral("朔日")}, {32, QStringLiteral("不明")}};
    }
    QStringList NamesOn(QDate) const override { return {}; }
    bool IsStoredWithMarks() const override { return true; }
};

struct Bench {
    store::DayStore store;
    store::DayDatabase database{store.Path()};
    FakeCalendarHelper helper;
    FirstsOff holidays;

    QString PathOf(const QString& name) const { return store.Folder() + u'/' + name; }
    QStringList Stored() const {
        return store.Raw("SELECT Name,Year,Month,Day,Week FROM Kinenbi ORDER BY id");
    }

    Offer Read(const QString& name, const QList<int>& split = {}) {
        FileReading reading({.dayDatabase = database, .helper = helper, .today = QDate(2026, 11, 23)},
                            PathOf(name), split);
        DoWhole(reading);
        return reading.TakeOffer();
    }
    QString ReasonFor(const QString& name) {
        try {
            Read(name);
        } catch (const RunTimeError& error) {
            return error.Reason();
        }
        return QStringLiteral("read");
    }
    ExportSums Export(const ExportChoice& choice, const QString& name) {
        FileExport work({.dayDatabase = database,
                         .holidays = &holidays,
                         .now = QDateTime(QDate(2026, 11, 23), QTime(12, 0))},
                        choice, PathOf(name));
        DoWhole(work);
        return work.Sums();
    }
};

/// Anniversaries "n0", "n1" .. of every year.
inline std::vector<days::Anniversary> Many(int count) {
    std::vector<days::Anniversary> rows;
    rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        rows.push_back({QStringLiteral("n%1").arg(i), 0, 1 + i % 12, 1 + i % 28, 0});
    }
    return rows;
}

}  // namespace tickwell::exchange
