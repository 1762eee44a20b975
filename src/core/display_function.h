// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell {

/// What the main window shows, by its stored number.
inline constexpr qint32 kFunctionClock = 0;
inline constexpr qint32 kFunctionUsage = 1;
inline constexpr qint32 kFunctionStopwatch = 2;
inline constexpr qint32 kFunctionTimer = 3;
inline constexpr qint32 kFunctionBattery = 4;
inline constexpr qint32 kFunctionMemory = 5;
inline constexpr qint32 kFunctionCd = 6;

/// The main window as seen by the windows that control it.
class DisplayFunctions {
public:
    virtual ~DisplayFunctions() = default;

    /// Switches to a function. Any number is stored; one that names no function stops all updates and leaves
    /// the lines unchanged.
    virtual void ChangeFunction(qint32 number) = 0;
    virtual qint32 GetFuncNumber() const = 0;
};

}  // namespace tickwell
