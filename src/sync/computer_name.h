// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell::sync {

/// The longest name of a computer, in characters: with its suffix a file name of any file system.
inline constexpr int kLongestComputerName = 40;

/// The name of this computer: the chosen one, or its host name if that is blank.
QString ComputerName(const QString& chosen);

/// The name of a computer's file: without characters that some file systems or sync tools refuse.
QString DayFileName(const QString& computer);

}  // namespace tickwell::sync
