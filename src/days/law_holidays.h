// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "days/holiday_list_file.h"
#include "days/holiday_source.h"

namespace tickwell::days {

/// The days off by the official list, and by law in the years that it does not cover.
class LawHolidays : public HolidaySource {
public:
    /// `list` outlives this object.
    explicit LawHolidays(const HolidayListFile& list) : m_list(list) {}

    QList<NamedDay> DaysOff(const MonthShape& month) const override;
    QStringList NamesOn(QDate day) const override;

    /// If they were stored, days would stay red for ever after a change of the law.
    bool IsStoredWithMarks() const override { return false; }

private:
    const HolidayListFile& m_list;
};

}  // namespace tickwell::days
