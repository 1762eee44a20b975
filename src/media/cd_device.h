// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/multimedia.h"

namespace tickwell {

/// The CD drive under its alias "CDP", with times in milliseconds, from the program's start to its end.
class CdDevice {
public:
    /// Both outlive this object. `tellsNoDrive` as in the settings: false once the user wants no more of it.
    CdDevice(Multimedia& media, bool& tellsNoDrive) : m_media(media), m_tellsNoDrive(tellsNoDrive) {}

    /// Opens it when the program starts. Without a drive a box tells so, unless the user does not want it any
    /// more; the start goes on all the same.
    void OpenAtStart();

    /// Tries once more, with no box; true when it is open now.
    bool OpenAgain();

    /// Stops and closes it, with no box.
    void Close();

    bool IsOpen() const { return m_isOpen; }

private:
    void Open();

    Multimedia& m_media;
    bool& m_tellsNoDrive;
    bool m_isOpen = false;
};

}  // namespace tickwell
