// SPDX-License-Identifier: GPL-3.0-or-later
#include "displays/roll.h"

#include <algorithm>
#include <utility>

namespace tickwell::displays {

namespace {

constexpr qint32 kShortest = 1;  // s
constexpr qint32 kLongest = 3600;

}  // namespace

std::optional<qint32> NextInRoll(const Displays& displays, const RollSettings& roll, qint32 current,
                                 Mains mains) {
    QList<const DisplayTraits*> order = DisplaysInRoll(displays);
    order.removeIf([&roll](const DisplayTraits* each) { return !roll.kinds.contains(each->number); });
    const auto at = std::find_if(order.begin(), order.end(),
                                 [current](const DisplayTraits* each) { return each->number == current; });
    if (!roll.use || at == order.end()) {
        return std::nullopt;
    }
    std::rotate(order.begin(), at, order.end());
    const auto next = std::find_if(order.begin() + 1, order.end(), [mains](const DisplayTraits* each) {
        return !each->roll->isSkippedOnMains || mains != Mains::On;
    });
    return next == order.end() ? std::nullopt : std::optional((*next)->number);
}

int RollIntervalOf(const RollSettings& roll) {
    return std::clamp(roll.interval, kShortest, kLongest) * 1000;
}

Roll::Roll(const Displays& displays, const RollSettings& settings, const Power& power, Handlers& handlers,
           TimerSource& timers, std::function<void(qint32 number)> change)
    : m_displays(displays),
      m_settings(settings),
      m_power(power),
      m_handlers(handlers),
      m_change(std::move(change)),
      m_timer(handlers.MakeTimer(timers, RollIntervalOf(settings), [this] { Tick(); })) {}

void Roll::FunctionChanged(qint32 number) {
    m_current = number;
    m_question.reset();
    m_timer->Stop();
    // Mains power may come and go in the meantime, so each tick checks whether the battery display is
    // skipped.
    if (NextInRoll(m_displays, m_settings, number, Mains::Unknown)) {
        m_timer->SetInterval(RollIntervalOf(m_settings));
        m_timer->Start();
    }
}

void Roll::Tick() {
    m_question = m_power.Ask([this](const PowerReading& reading) {
        m_handlers.RunTick(*m_timer, [this, mains = reading.mains] { ShowNext(mains); });
    });
}

void Roll::ShowNext(Mains mains) {
    if (const auto next = NextInRoll(m_displays, m_settings, m_current, mains)) {
        m_change(*next);
    }
}

}  // namespace tickwell::displays
