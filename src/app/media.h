// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/program_folder.h"
#include "media/media_system.h"
#include "media/sound_playback.h"

namespace tickwell::app {

/// What the sound and disc classes work with; all outlive them.
struct MediaParts {
    RealTimerSource& realTimers;
    TimerSource& timers;  ///< the program's time
    media::SoundOutput& sound;
    media::EventWait& wait;
    MessageBoxes& boxes;
    Handlers& handlers;
    media::CdDrive& drive;
    media::CdPlayback& playback;
    bool& tellsNoCdDrive;                  ///< the stored setting
    std::function<void()> noticeSilenced;  ///< called after the user has turned the message off
    std::function<bool()> showsTitles;     ///< whether disc titles are currently enabled in the settings
    ProgramFolder folder;
};

/// Owns and connects the sound and disc classes of the program.
class Media {
public:
    explicit Media(const MediaParts& parts);

    /// Stops all sound, then stops and closes the CD drive.
    void Close();

    media::MediaSystem& System() { return m_system; }
    media::SoundPlayback& Sounds() { return m_playback; }

private:
    media::MediaSystem m_system;
    media::WaveMix m_mix;
    media::SoundState m_soundState;
    media::SoundPlayback m_playback;
};

}  // namespace tickwell::app
