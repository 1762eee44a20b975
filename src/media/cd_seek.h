// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "core/handlers.h"
#include "media/cd_state.h"
#include "media/multimedia.h"

namespace tickwell::media {

/// Rewind and fast forward: while one of the two buttons is held, moves the position by three seconds,
/// immediately and then four times a second, within the limits of the disc, and continues there.
class CdSeek {
public:
    /// The references outlive this object. `jumped` is called after each move.
    CdSeek(const CdPlayerState& state, Multimedia& media, Handlers& handlers, TimerSource& timers,
           std::function<void()> jumped);

    /// Starts when the button of this index, kCdRewind or kCdForward, is pressed. Does nothing unless the
    /// disc is playing.
    void Hold(int index);
    void Release() { m_timer->Stop(); }

    /// Continues at a position, in ms from the start of track 1 to the end of the disc. Does nothing unless
    /// the disc is playing.
    void GoTo(qint32 position);

private:
    void Step();

    const CdPlayerState& m_state;
    Multimedia& m_media;
    std::function<void()> m_jumped;
    std::unique_ptr<Timer> m_timer;
    qint32 m_step = 0;  // ms
};

}  // namespace tickwell::media
