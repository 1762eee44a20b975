// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "core/ports/power.h"
#include "core/text_line.h"

namespace tickwell::displays {

/// The power source on the lower line. On battery, readings alternate between charge and remaining time, even
/// if other functions are shown in between.
class BatteryLines {
public:
    /// All outlive this object.
    BatteryLines(const Power& power, TextLines lines) : m_power(power), m_lines(lines) {}

    /// Called by BatTimer, and once when the function is chosen: requests a reading and shows it when it
    /// arrives. Each text is wiped in; that for mains power only if it is not shown already.
    void Refresh();

    /// Called when another function is chosen: cancels a pending reading.
    void Hide() { m_question.reset(); }

private:
    void Show(const PowerReading& reading);
    QString BatteryText(const PowerReading& reading);

    const Power& m_power;
    TextLines m_lines;
    PowerQuestion m_question;
    bool m_isTimesTurn = false;
};

/// "80％残っています".
QString ChargeText(int percent);

/// "あと 1時間30分です" for 5400 seconds: the hours are not padded and not limited to 24, seconds are
/// dropped.
QString TimeLeftText(qint64 seconds);

}  // namespace tickwell::displays
