// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell {

/// What the keyboard does beyond opening the menu; by default nothing.
struct KeyboardSettings {
    bool movesWindow = false;      ///< the arrow keys move the main window, and Esc returns the focus
    bool showsAccessKeys = false;  ///< captions end with the letter that chooses them

    bool operator==(const KeyboardSettings&) const = default;
};

}  // namespace tickwell
