// SPDX-License-Identifier: GPL-3.0-or-later
#include "displays/usage_lines.h"

#include <limits>

#include "core/duration_text.h"
#include "core/integers.h"

namespace tickwell::displays {

namespace {

constexpr qint64 kUsageSecond = 1000;  // ms

/// The seconds that UsageText shows.
qint64 SecondOf(qint64 count) {
    return RoundHalfEven(count, kUsageSecond);
}

}  // namespace

void UsageLines::Show() {
    const qint64 count = Count();
    m_shownSecond = SecondOf(count);
    m_lines.lower.ShowText(Reading(count));
}

void UsageLines::Tick() {
    const qint64 count = Count();
    const qint64 second = SecondOf(count);
    if (second != m_shownSecond) {
        m_shownSecond = second;
        m_lines.lower.SetText(Reading(count));
    }
}

qint64 UsageLines::UntilDue() const {
    const qint64 count = Count();
    if (SecondOf(count) != m_shownSecond) {
        return 1;  // it changed between the tick and this call
    }
    // The text changes at the half second or 1 ms after it, because halves are rounded to even.
    const qint64 untilHalf = FloorMod(kUsageSecond / 2 - count, kUsageSecond);
    const qint64 untilTurn = UntilTurn(count);
    for (const qint64 due :
         {untilHalf, untilHalf + 1, untilHalf + kUsageSecond, untilHalf + kUsageSecond + 1}) {
        if (due >= untilTurn) {
            return untilTurn;
        }
        if (SecondOf(count + due) != m_shownSecond) {
            return due;
        }
    }
    return kUsageSecond;
}

/// Milliseconds since the system started.
qint64 UsageLines::Count() const {
    return m_parts.further.corrections.longUsage ? m_parts.clock.SinceBoot() : m_parts.clock.Tick();
}

/// Milliseconds until `count` becomes negative.
qint64 UsageLines::UntilTurn(qint64 count) const {
    return m_parts.further.corrections.longUsage ? std::numeric_limits<qint64>::max()
                                                 : UntilTickTurns(static_cast<qint32>(count));
}

QString UsageLines::Reading(qint64 count) const {
    const AppSettings& settings = m_parts.settings;
    return UsageText(count, settings.language, settings.displayMode, settings.hourStyle);
}

}  // namespace tickwell::displays
