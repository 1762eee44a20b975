// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell {

/// What other programs may do; by default nothing.
struct RemoteSettings {
    bool acceptsCommands = false;  ///< over the session bus
    bool mediaKeys = false;        ///< media keys and other programs may control the CD player

    bool operator==(const RemoteSettings&) const = default;
};

/// The CD player's options; by default all are off.
struct CdSettings {
    bool showsTitles = false;  ///< shows the titles stored on the disc

    bool operator==(const CdSettings&) const = default;
};

}  // namespace tickwell
