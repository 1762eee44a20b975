// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/media.h"

namespace tickwell::app {

Media::Media(const MediaParts& parts)
    : m_system({.devices = {.drive = parts.drive,
                            .playback = parts.playback,
                            .sound = parts.sound,
                            .timers = parts.realTimers,
                            .wait = parts.wait,
                            .folder = parts.folder},
                .boxes = parts.boxes,
                .handlers = parts.handlers,
                .timers = parts.timers,
                .tellsNoCdDrive = parts.tellsNoCdDrive,
                .noticeSilenced = parts.noticeSilenced,
                .showsTitles = parts.showsTitles}),
      m_mix(parts.realTimers, parts.sound),
      m_playback({.mix = m_mix,
                  .sound = m_soundState,
                  .media = m_system.State(),
                  .boxes = parts.boxes,
                  .timers = parts.timers},
                 parts.folder) {}

void Media::Close() {
    m_playback.AudioStop();
    m_system.Close();
}

}  // namespace tickwell::app
