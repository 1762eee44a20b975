// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell {

/// What the keyboard does in addition to opening the menu; all is off by default.
struct KeyboardSettings {
    bool movesWindow = false;      ///< the arrow keys move the main window, and Esc returns the focus
    bool showsAccessKeys = false;  ///< captions end with the letter of their access key

    bool operator==(const KeyboardSettings&) const = default;
};

}  // namespace tickwell
