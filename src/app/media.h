// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/program_folder.h"
#include "media/media_system.h"
#include "media/sound_playback.h"

namespace tickwell {

/// What the sound and disc classes work with; all outlive them.
struct MediaParts {
    RealTimerSource& realTimers;
    TimerSource& timers;  ///< the program's time
    SoundOutput& sound;
    EventWait& wait;
    MessageBoxes& boxes;
    Handlers& handlers;
    CdDrive& drive;
    CdPlayback& playback;
    bool& tellsNoCdDrive;  ///< the stored setting
    ProgramFolder folder;
};

/// Owns and connects the sound and disc classes of the program.
class Media {
public:
    explicit Media(const MediaParts& parts);

    /// Stops all sound, then stops and closes the CD drive.
    void Close();

    MediaSystem& System() { return m_system; }
    SoundPlayback& Sounds() { return m_playback; }

private:
    MediaSystem m_system;
    WaveMix m_mix;
    SoundState m_soundState;
    SoundPlayback m_playback;
};

}  // namespace tickwell
