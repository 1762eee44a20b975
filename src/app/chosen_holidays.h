// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/settings.h"
#include "days/law_holidays.h"
#include "days/table_holidays.h"

namespace tickwell::app {

/// Delegates each call to the source of the days off that the settings select at that moment.
class ChosenHolidays : public days::HolidaySource {
public:
    /// Database and settings outlive this object. `folder` holds the official list.
    ChosenHolidays(const ProgramFolder& folder, store::DayDatabase& database,
                   const CalendarSettings& settings)
        : m_settings(settings), m_list(folder), m_table(database) {}

    days::HolidayListFile& List() { return m_list; }

    QList<days::NamedDay> DaysOff(const days::MonthShape& month) const override {
        return Chosen().DaysOff(month);
    }
    QStringList NamesOn(QDate day) const override { return Chosen().NamesOn(day); }
    bool IsStoredWithMarks() const override { return Chosen().IsStoredWithMarks(); }

private:
    const days::HolidaySource& Chosen() const {
        return m_settings.holidaysByLaw ? static_cast<const HolidaySource&>(m_law) : m_table;
    }

    const CalendarSettings& m_settings;
    days::HolidayListFile m_list;
    days::TableHolidays m_table;
    days::LawHolidays m_law{m_list};
};

}  // namespace tickwell::app
