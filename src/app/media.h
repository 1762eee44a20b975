// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/media_system.h"
#include "media/sound_playback.h"

namespace tickwell {

/// What sound and discs work with; all outlive them.
struct MediaParts {
    TimerSource& realTimers;  ///< sound and drives know no other time
    TimerSource& timers;      ///< the program's
    SoundOutput& sound;
    EventWait& wait;
    MessageBoxes& boxes;
    Handlers& handlers;
    CdDrive& drive;
    CdPlayback& playback;
    bool& tellsNoCdDrive;  ///< as in the settings
    QString folder;        ///< the program's, absolute
};

/// Sound and discs of the program, put together.
class Media {
public:
    explicit Media(const MediaParts& parts);

    /// Ends all sound, then stops and closes the CD drive.
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
