// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/cd_player.h"
#include "media/command_devices.h"

namespace tickwell::media {

/// What the sound and disc classes work with; all outlive them.
struct MediaSystemParts {
    DeviceParts devices;
    MessageBoxes& boxes;
    Handlers& handlers;
    TimerSource& timers;                           ///< the program's time, which tests may control
    bool& tellsNoCdDrive;                          ///< the stored setting
    std::function<void()> noticeSilenced = [] {};  ///< called after the user has turned the message off
    std::function<bool()> showsTitles = [] {
        return false;
    };  ///< whether disc titles are currently enabled in the settings
};

/// Owns and connects the command layer and the CD player; one for the program. Created before the main
/// window, which may provide the player's lines.
class MediaSystem {
public:
    explicit MediaSystem(const MediaSystemParts& parts);
    MediaSystem(const MediaSystem&) = delete;
    MediaSystem& operator=(const MediaSystem&) = delete;
    ~MediaSystem();

    /// Opens the CD drive, before any window exists. The program starts even if that fails.
    void OpenAtStart() { m_device.OpenAtStart(); }

    /// Stops and closes the CD drive.
    void Close() { m_player.Close(); }

    /// To be called when the settings may have changed.
    void FollowSettings();

    Multimedia& Commands() { return m_media; }
    CdPlayer& Player() { return m_player; }
    MediaState& State() { return m_state; }

private:
    QStringList ShownTitles() const;
    void DriveChanged();

    CdDrive& m_drive;
    std::function<bool()> m_showsTitles;
    quint32 m_discNumber = 0;     // at the last change
    bool m_showedTitles = false;  // when FollowSettings was last called
    MediaState m_state;
    CdPlayerState m_cdState;
    CommandDevices m_devices;
    Multimedia m_media;
    CdDevice m_device;
    CdPlayer m_player;
};

}  // namespace tickwell::media
