// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/handlers.h"
#include "media/cd_state.h"
#include "media/multimedia.h"

namespace tickwell::media {

/// Rewind and fast forward: while one of the two buttons is held, moves the position by three seconds,
/// immediately and then four times a second, within the limits of the disc, and plays on from there.
class CdSeek {
public:
    /// All outlive this object.
    CdSeek(const CdPlayerState& state, Multimedia& media, Handlers& handlers, TimerSource& timers);

    /// Starts when the button of this index, kCdRewind or kCdForward, is pressed. Does nothing unless the
    /// disc is playing.
    void Hold(int index);
    void Release() { m_timer->Stop(); }

private:
    void Step();

    const CdPlayerState& m_state;
    Multimedia& m_media;
    std::unique_ptr<Timer> m_timer;
    qint32 m_step = 0;  // ms
};

}  // namespace tickwell::media
