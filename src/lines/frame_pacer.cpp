// SPDX-License-Identifier: GPL-3.0-or-later
#include "lines/frame_pacer.h"

#include <algorithm>

namespace tickwell::lines {

namespace {

// ms
constexpr int kFrame = 17;  // at most 60 a second
constexpr int kUnseen = 60'000;

}  // namespace

FramePacer::FramePacer(const Clock& clock, TimerSource& timers)
    : m_throttle(clock, timers, kFrame, [this] { Paint(); }) {}

void FramePacer::Request(QWidget& widget, const QRect& part) {
    const auto found = std::find_if(m_waiting.begin(), m_waiting.end(),
                                    [&widget](const Waiting& each) { return each.widget == &widget; });
    if (found == m_waiting.end()) {
        m_waiting.push_back({&widget, part});
    } else {
        found->part += part;
    }
    AskForFrame();
}

void FramePacer::Forget(const QWidget& widget) {
    std::erase_if(m_waiting, [&widget](const Waiting& each) { return each.widget == &widget; });
}

void FramePacer::SetSeen(bool isSeen) {
    m_isSeen = isSeen;
    AskForFrame();
}

int FramePacer::UntilFrame() const {
    return m_isSeen ? kFrame : kUnseen;
}

void FramePacer::AskForFrame() {
    if (m_isSeen && !m_waiting.empty()) {
        m_throttle.Request();
    }
}

void FramePacer::Paint() {
    for (const Waiting& each : m_waiting) {
        each.widget->repaint(each.part);
    }
    m_waiting.clear();
}

}  // namespace tickwell::lines
