// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/media.h"

namespace tickwell {

Media::Media(const MediaParts& parts)
    : m_system({{parts.drive, parts.playback, parts.sound, parts.realTimers, parts.wait},
                parts.boxes,
                parts.handlers,
                parts.timers,
                parts.tellsNoCdDrive}),
      m_mix(parts.realTimers, parts.sound),
      m_playback({m_mix, m_soundState, m_system.State(), parts.boxes, parts.timers}, parts.folder) {}

void Media::Close() {
    m_playback.AudioStop();
    m_system.Close();
}

}  // namespace tickwell
