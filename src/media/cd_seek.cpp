// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/cd_seek.h"

#include <algorithm>

#include "core/integers.h"
#include "media/cd_controls.h"
#include "media/cd_texts.h"

namespace tickwell::media {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kStep = 3000;      // ms of the disc
constexpr int kStepInterval = 250;  // ms

}  // namespace

CdSeek::CdSeek(const CdPlayerState& state, Multimedia& media, Handlers& handlers, TimerSource& timers,
               std::function<void()> jumped)
    : m_state(state),
      m_media(media),
      m_jumped(std::move(jumped)),
      m_timer(handlers.MakeTimer(timers, kStepInterval, [this] { Step(); })) {}

void CdSeek::Hold(int index) {
    if (m_state.CdState != kCdPlaying || (index != kCdRewind && index != kCdForward)) {
        return;
    }
    m_step = index == kCdRewind ? -kStep : kStep;
    m_timer->Start();
    Step();
}

void CdSeek::Step() {
    if (m_state.CdState != kCdPlaying) {
        Release();
        return;
    }
    const auto position = AskCd(m_media, u"status CDP position"_s, true);
    const auto length = position ? AskCd(m_media, u"status CDP length"_s, true) : std::nullopt;
    if (!length) {
        Release();
        return;
    }
    const qint32 target = std::clamp(CheckedAdd(*position, m_step), 0, std::max(0, *length));
    GoTo(target);
}

void CdSeek::GoTo(qint32 position) {
    if (m_state.CdState == kCdPlaying) {
        m_media.MciPlay(u"CDP"_s, false, QString::number(position), {}, true);
        m_jumped();
    }
}

}  // namespace tickwell::media
