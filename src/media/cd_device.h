// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/multimedia.h"

namespace tickwell::media {

/// The message box about a missing CD drive at the start.
struct NoDriveNotice {
    bool& isWanted;                          ///< the stored setting; outlives the device
    std::function<void()> silenced = [] {};  ///< called after the user has turned the box off
    QString named;                           ///< the drive or image that the user has named; empty if none
};

/// The CD drive, under the alias "CDP" and with times in milliseconds.
class CdDevice {
public:
    /// `media` outlives this object.
    CdDevice(Multimedia& media, NoDriveNotice notice) : m_media(media), m_notice(std::move(notice)) {}

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
    NoDriveNotice m_notice;
    bool m_isOpen = false;
};

}  // namespace tickwell::media
