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

    /// One line about the kept list: that there is none, its years, or which of its lines is damaged.
    QString StatusText() const;

    /// Reads a list, keeps a copy of its bytes, and returns a message for the user: its days and years, and
    /// how it differs from the law. Throws RunTimeError with the line and the reason if it is refused or
    /// cannot be read or stored; the list kept before then stays.
    QString Replace(const QString& path);

    /// Whether there is a file to remove, readable or not.
    bool IsKept() const;

    /// The file was replaced by something else than this object.
    void ReadAgain() { m_kept.reset(); }

    /// Deletes the kept list. Throws RunTimeError if that fails.
    void Remove();

private:
    /// The result of reading the kept file.
    struct Kept {
        std::optional<HolidayList> list;
        QString problem;  ///< why it cannot be read, empty if it can or if there is none
    };
    const Kept& Read() const;
    QString Path() const { return m_folder.PathOf(kName.toString()); }

    ProgramFolder m_folder;
    mutable std::optional<Kept> m_kept;  // nullopt until it has been read
};

}  // namespace tickwell::days
