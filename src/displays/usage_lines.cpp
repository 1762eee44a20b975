// SPDX-License-Identifier: GPL-3.0-or-later
#include "displays/usage_lines.h"

#include "core/duration_text.h"
#include "core/integers.h"

namespace tickwell::displays {

namespace {

constexpr qint64 kUsageSecond = 1000;  // ms

}  // namespace

UsageLines::UsageLines(const AppSettings& settings, const Clock& clock, TextLines lines)
    : m_settings(settings), m_clock(clock), m_lines(lines) {}

void UsageLines::Show() {
    const qint32 tick = m_clock.Tick();
    m_shownSecond = WholeSeconds(tick);
    m_lines.lower.ShowText(Reading(tick));
}

void UsageLines::Tick() {
    const qint32 tick = m_clock.Tick();
    const qint32 second = WholeSeconds(tick);
    if (second != m_shownSecond) {
        m_shownSecond = second;
        m_lines.lower.SetText(Reading(tick));
    }
}

qint64 UsageLines::UntilDue() const {
    const qint32 tick = m_clock.Tick();
    if (WholeSeconds(tick) != m_shownSecond) {
        return 1;  // it changed between the tick and this call
    }
    // The text changes at the half second or 1 ms after it, because halves are rounded to even.
    const qint64 untilHalf = FloorMod(kUsageSecond / 2 - tick, kUsageSecond);
    const qint64 untilTurn = UntilTickTurns(tick);
    for (const qint64 due :
         {untilHalf, untilHalf + 1, untilHalf + kUsageSecond, untilHalf + kUsageSecond + 1}) {
        if (due >= untilTurn) {
            return untilTurn;
        }
        if (WholeSeconds(static_cast<qint32>(tick + due)) != m_shownSecond) {
            return due;
        }
    }
    return kUsageSecond;
}

QString UsageLines::Reading(qint32 tick) const {
    return UsageText(tick, m_settings.language, m_settings.displayMode, m_settings.hourStyle);
}

}  // namespace tickwell::displays
