// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

#include "core/holiday_list.h"
#include "core/program_folder.h"

namespace tickwell::days {

/// The official list of days off, as kept in the program's folder.
class HolidayListFile {
public:
    static constexpr QStringView kName = u"Syukujitsu.csv";

    /// Reads nothing yet.
    explicit HolidayListFile(ProgramFolder folder) : m_folder(std::move(folder)) {}

    /// The kept list; null if there is none or it is damaged, which is logged. Read from disk once. Valid
    /// until the list is replaced or removed.
    const HolidayList* List() const;

    /// One line on what is kept: none, its years, or the line that is damaged.
    QString StatusText() const;

    /// Reads a list and keeps a copy of its bytes. Throws RunTimeError with the line and the reason if it is
    /// refused or cannot be read or stored; the list kept before then stays.
    void Replace(const QString& path);

    /// Deletes the kept list. Throws RunTimeError if that fails.
    void Remove();

private:
    /// What the kept file turned out to be.
    struct Kept {
        std::optional<HolidayList> list;
        QString problem;  ///< why it cannot be read, empty if it can or if there is none
    };
    const Kept& Read() const;
    QString Path() const { return m_folder.PathOf(kName.toString()); }

    ProgramFolder m_folder;
    mutable std::optional<Kept> m_kept;  // nothing until it was read
};

/// What to tell the user after a list was read: days, years, and how it differs from the law.
QString HolidayReport(const HolidayList& list);

}  // namespace tickwell::days
