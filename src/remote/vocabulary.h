// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>

namespace tickwell::remote {

// The vocabulary of commands, shared by other programs and the command line. All names are ASCII.

/// The number of a function of the main window. `text`: its name, such as "clock", or the number itself.
/// nullopt if there is no such function.
std::optional<qint32> FunctionOf(const QString& text);

/// The names of all functions: "clock (0), usage (1) …".
QString FunctionNames();

enum class StopwatchAction { Start, Stop, Lap, Reset, Read };

/// "start", "stop", "lap", "reset" or "read".
std::optional<StopwatchAction> StopwatchActionOf(const QString& text);
QString StopwatchActionNames();

/// ms; the maximum is what the timer window can show.
inline constexpr qint32 kShortestTimer = 1000;
inline constexpr qint32 kLongestTimer = 86'399'000;

inline bool IsTimerDuration(qint64 milliseconds) {
    return milliseconds >= kShortestTimer && milliseconds <= kLongestTimer;
}

/// Milliseconds of a text such as 5m30s, 90s or 1h: whole hours, minutes and seconds in this order, each at
/// most once. nullopt if the text is malformed or the duration is not an IsTimerDuration.
std::optional<qint32> DurationOf(const QString& text);

inline constexpr int kLongestTimerName = 200;  ///< characters

/// Whether `name`, which may be empty, is a valid timer name: not too long, without control characters and
/// line breaks.
bool IsTimerName(const QString& name);

// The permitted values, worded as the end of an English sentence.
QString AllowedDurations();
QString AllowedTimerNames();

}  // namespace tickwell::remote
