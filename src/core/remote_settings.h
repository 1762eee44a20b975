// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell {

/// What other programs may do; by default nothing.
struct RemoteSettings {
    bool acceptsCommands = false;  ///< over the session bus
    bool mediaKeys = false;        ///< may operate the CD player, as other programs may

    bool operator==(const RemoteSettings&) const = default;
};

/// The CD player; by default it is as it always was.
struct CdSettings {
    bool showsTitles = false;  ///< those that the disc contains

    bool operator==(const CdSettings&) const = default;
};

}  // namespace tickwell
