// SPDX-License-Identifier: GPL-3.0-or-later
#include "lines/long_text_scroll.h"

#include <utility>

namespace tickwell::lines {

LongTextScroll::LongTextScroll(TimerSource& timers, std::function<void()> moved)
    : m_timer(timers.Create(kPause, [this] { Tick(); })), m_moved(std::move(moved)) {}

void LongTextScroll::Start(int excess) {
    Stop();
    if (excess > 0) {
        m_excess = excess;
        m_timer->SetInterval(kPause);
        m_timer->Start();
    }
}

void LongTextScroll::Stop() {
    m_timer->Stop();
    m_offset = 0;
}

void LongTextScroll::Tick() {
    if (m_offset >= m_excess) {
        Stop();
    } else {
        ++m_offset;
        m_timer->SetInterval(m_offset < m_excess ? kStepInterval : kPause);
    }
    m_moved();
}

}  // namespace tickwell::lines
