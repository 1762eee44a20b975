// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <future>
#include <optional>
#include <vector>

#include "core/sliced_work.h"
#include "days/holiday_source.h"
#include "exchange/calendar_writer.h"
#include "store/row_search.h"

namespace tickwell::exchange {

/// What to write, and how.
struct ExportChoice {
    bool asTable = false;  ///< CSV instead of iCalendar
    bool anniversaries = true;
    bool daysOff = false;  ///< of the years from `firstYear` to `lastYear`, both included
    int firstYear = 0;
    int lastYear = 0;
    bool marks = false;  ///< all that the user has set
};

/// What an export works with; all outlive it.
struct ExportParts {
    store::DayDatabase& dayDatabase;
    const days::HolidaySource* holidays = nullptr;  ///< may be null if no days off are chosen
    QDateTime now;
};

/// What was written.
struct ExportSums {
    int anniversaries = 0;
    int onNoDay = 0;  ///< anniversaries left out because they fall on no day
    int daysOff = 0;
    int marks = 0;
    bool isTooLargeToRead = false;  ///< this program would not read the file
};

/// Writes a file in slices; the file is replaced completely or stays as it was. Rows that change in the
/// meantime are read again.
class FileExport : public SlicedWork {
public:
    FileExport(ExportParts parts, const ExportChoice& choice, QString path);

    /// Waits for the file that is being saved.
    ~FileExport() override;

    /// Throws RunTimeError.
    bool Step() override;
    double Part() const override;

    const ExportSums& Sums() const { return m_sums; }

private:
    enum class Phase { Searching, Writing, Saving };

    void Begin();
    void WriteRows();
    void WriteDaysOff();
    void WriteMarks();
    void AddDay(const QString& name, QDate date);
    bool Save();
    QByteArray TakeBytes();

    ExportParts m_parts;
    ExportChoice m_choice;
    QString m_path;
    Phase m_phase = Phase::Searching;
    std::optional<store::ChangeMark> m_mark;
    std::optional<store::RowSearch> m_search;
    store::FoundRows m_rows;
    qsizetype m_next = 0;  // row to be written
    std::optional<CalendarWriter> m_calendar;
    QByteArray m_table;
    ExportSums m_sums;
    std::future<QString> m_saving;
};

/// A sentence for the user about what was written.
QString ExportText(const ExportSums& sums);

}  // namespace tickwell::exchange
