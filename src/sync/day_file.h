// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

#include "sync/replica_state.h"

namespace tickwell::sync {

/// The file of one computer: everything that it knows of the rows of all computers.
struct DayFile {
    quint64 replica = 0;
    QString computer;  ///< its name when it wrote the file, one line
    ReplicaState state;
};

/// How the names of these files end. Sync tools keep the end of a name when they make a copy of a file that
/// was changed in two places; such copies are read as well.
inline constexpr QLatin1StringView kDayFileSuffix(".tickwell-days");

inline constexpr qint64 kLargestDayFile = qint64{32} * 1024 * 1024;  // bytes
inline constexpr std::size_t kMostElements = 500'000;

/// The text of a file: a line "Tickwell days 1", one with the replica, one with the computer, a line for each
/// element, and a last line with their number and the SHA-256 of everything before it. Fields are separated
/// by tabs. An element is "+" (present) or "-", the stamp's ms, counter and replica, the number of the copy,
/// and the row as EncodeRow writes it. Replicas are 16 hexadecimal digits.
QByteArray WriteDayFile(const DayFile& file);

/// Why a file is left alone.
enum class DayFileFault {
    None,
    Foreign,  ///< of another program
    Newer,    ///< of a newer version of this program
    Damaged,  ///< cut off, or changed by something else than this program
    TooMany,  ///< more than kMostElements
};

struct ReadDayFileResult {
    DayFileFault fault = DayFileFault::None;
    DayFile file;  ///< empty if there is a fault
};

/// Reads a file completely, or not at all: accepts exactly the texts that WriteDayFile returns. Needs little
/// more memory than the result.
ReadDayFileResult ReadDayFile(const QByteArray& bytes);

/// The replica that has written a file, which may be cut off after its second line.
std::optional<quint64> WriterOf(const QByteArray& bytes);

/// One sentence for the user; empty for None.
QString ReasonOf(DayFileFault fault);

}  // namespace tickwell::sync
