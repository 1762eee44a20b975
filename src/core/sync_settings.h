// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell {

/// Whether the days are merged with those of other computers; by default not.
struct SyncSettings {
    bool use = false;
    QString folder;    ///< the folder with a file of each computer, which another program carries
    QString computer;  ///< this computer's name; its host name is used if blank

    bool operator==(const SyncSettings&) const = default;
};

}  // namespace tickwell
