// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/multimedia.h"

namespace tickwell::media {

/// The CD drive, under the alias "CDP" and with times in milliseconds.
class CdDevice {
public:
    /// Both outlive this object. `tellsNoDrive`: the stored setting; becomes false when the user ticks "do
    /// not show again".
    CdDevice(Multimedia& media, bool& tellsNoDrive) : m_media(media), m_tellsNoDrive(tellsNoDrive) {}

    /// Opens the drive when the program starts. If there is no drive, shows a message box unless the user has
    /// turned it off; the program starts in any case.
    void OpenAtStart();

    /// Tries to open the drive again, without a message box. Returns whether it is open now.
    bool OpenAgain();

    /// Stops and closes the drive, without a message box.
    void Close();

    bool IsOpen() const { return m_isOpen; }

private:
    void Open();

    Multimedia& m_media;
    bool& m_tellsNoDrive;
    bool m_isOpen = false;
};

}  // namespace tickwell::media
