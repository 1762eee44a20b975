// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "core/ports/power.h"
#include "core/text_line.h"

namespace tickwell::displays {

/// What the machine runs on, on the lower line. On battery the charge and the time that is left take turns,
/// reading by reading; whose turn it is survives that other functions are shown meanwhile.
class BatteryLines {
public:
    /// All outlive this object.
    BatteryLines(const Power& power, TextLines lines) : m_power(power), m_lines(lines) {}

    /// BatTimer, and once when the function was chosen: asks for a reading, and shows it when it comes. Each
    /// text comes in with a wipe; that of mains power only where it does not stand there already.
    void Refresh();

    /// Another function is shown from now on: a reading that is still to come is dropped.
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
