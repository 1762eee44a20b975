// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell {

/// Backups of the day database; by default none are taken.
struct BackupSettings {
    bool daily = false;  ///< one per day, if something has changed

    bool operator==(const BackupSettings&) const = default;
};

}  // namespace tickwell
