// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tickwell::cd_helper {

enum class DriveState { Disc, NoDisc, TrayOpen, NotReady };

/// The state of a real drive, read through its own descriptor, which neither closes the tray nor waits for a
/// disc.
class Drive {
public:
    /// Whether the path is a drive's device node and not an image.
    static bool IsNode(const std::string& path);

    explicit Drive(const std::string& path);
    ~Drive();
    Drive(const Drive&) = delete;
    Drive& operator=(const Drive&) = delete;

    DriveState State() const;

private:
    int m_descriptor;
};

}  // namespace tickwell::cd_helper
