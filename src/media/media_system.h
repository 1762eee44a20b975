// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/cd_player.h"
#include "media/command_devices.h"

namespace tickwell {

/// What sound and discs of the whole program work with; all outlive them.
struct MediaSystemParts {
    DeviceParts devices;  ///< with timers of real time, as sound is
    MessageBoxes& boxes;
    Handlers& handlers;
    TimerSource& timers;   ///< the program's
    bool& tellsNoCdDrive;  ///< as in the settings
};

/// The command layer and the CD player, put together; one for the whole program. It is there before the main
/// window, which may but need not give the player its lines.
class MediaSystem {
public:
    explicit MediaSystem(const MediaSystemParts& parts);
    MediaSystem(const MediaSystem&) = delete;
    MediaSystem& operator=(const MediaSystem&) = delete;
    ~MediaSystem();

    /// Opens the CD drive, before there is any window. Never fails the start.
    void OpenAtStart() { m_device.OpenAtStart(); }

    /// Stops and closes the CD drive.
    void Close() { m_player.Close(); }

    Multimedia& Commands() { return m_media; }
    CdPlayer& Player() { return m_player; }
    MediaState& State() { return m_state; }

private:
    CdDrive& m_drive;
    MediaState m_state;
    CdPlayerState m_cdState;
    CommandDevices m_devices;
    Multimedia m_media;
    CdDevice m_device;
    CdPlayer m_player;
};

}  // namespace tickwell
