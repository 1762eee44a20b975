// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/media_system.h"
#include "media/sound_playback.h"
#include "platform/cd_helper_drive.h"

namespace tickwell {

/// The program that reads discs: beside the binary, else where it is installed. An absolute path.
QString DiscHelperPath(const QString& executableFolder);

/// What sound and discs work with; all outlive them.
struct MediaParts {
    TimerSource& realTimers;  ///< sound and drives know no other time
    TimerSource& timers;      ///< the program's
    SoundOutput& sound;
    EventWait& wait;
    MessageBoxes& boxes;
    Handlers& handlers;
    bool& tellsNoCdDrive;  ///< as in the settings
    QString folder;        ///< the program's, absolute
    QString disc;          ///< a drive or an image; empty for the machine's own drive
};

/// Sound and discs of the program, on the real drive and the real sound output.
class Media {
public:
    explicit Media(const MediaParts& parts);

    /// Ends all sound, then stops and closes the CD drive.
    void Close();

    MediaSystem& System() { return m_system; }
    SoundPlayback& Sounds() { return m_playback; }

private:
    CdHelperDrive m_drive;
    MediaSystem m_system;
    WaveMix m_mix;
    SoundState m_soundState;
    SoundPlayback m_playback;
};

}  // namespace tickwell
