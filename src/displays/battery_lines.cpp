// SPDX-License-Identifier: GPL-3.0-or-later
#include "displays/battery_lines.h"

#include "core/duration_text.h"

namespace tickwell::displays {

using namespace Qt::StringLiterals;

void BatteryLines::Refresh() {
    m_question = m_power.Ask([this](const PowerReading& reading) { Show(reading); });
}

void BatteryLines::Show(const PowerReading& reading) {
    if (reading.mains == Mains::On) {
        const QString text = u"AC電源を使用中です"_s;
        if (m_lines.lower.Text() != text) {
            m_lines.lower.ShowText(text);
        }
    } else if (reading.mains == Mains::Off && reading.percent) {
        m_lines.lower.ShowText(BatteryText(reading));
    } else {
        m_lines.lower.ShowText(u"電源が不明です"_s);
    }
}

/// The charge or the remaining time, in turn; the charge if the remaining time is unknown.
QString BatteryLines::BatteryText(const PowerReading& reading) {
    const bool isTimesTurn = m_isTimesTurn;
    m_isTimesTurn = !m_isTimesTurn;
    if (isTimesTurn && reading.secondsLeft.value_or(0) > 0) {
        return TimeLeftText(*reading.secondsLeft);
    }
    return ChargeText(*reading.percent);
}

QString ChargeText(int percent) {
    return QString::number(percent) + u"％残っています";
}

QString TimeLeftText(qint64 seconds) {
    return u"あと "_s + QString::number(seconds / 3600) + u"時間" +
           TwoDigits(static_cast<qint32>(seconds % 3600 / 60)) + u"分です";
}

}  // namespace tickwell::displays
