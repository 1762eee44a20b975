// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/frame_pacer.h"

#include <algorithm>

namespace tickwell {

namespace {

constexpr int kFrame = 17;  // ms: not above 60 a second

}  // namespace

FramePacer::FramePacer(const Clock& clock, TimerSource& timers)
    : m_throttle(clock, timers, kFrame, [this] { Paint(); }) {}

void FramePacer::Request(QWidget& widget) {
    if (std::find(m_waiting.begin(), m_waiting.end(), &widget) == m_waiting.end()) {
        m_waiting.push_back(&widget);
    }
    m_throttle.Request();
}

void FramePacer::Forget(const QWidget& widget) {
    std::erase(m_waiting, &widget);
}

void FramePacer::Paint() {
    for (QWidget* widget : m_waiting) {
        widget->update();
    }
    m_waiting.clear();
}

}  // namespace tickwell
