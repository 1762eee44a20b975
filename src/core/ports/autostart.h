// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell {

/// Whether the program starts when the user logs in.
class Autostart {
public:
    virtual ~Autostart() = default;

    /// What would happen at the next login, as the desktop sees it now; what cannot be read does not start.
    virtual bool IsOn() const = 0;

    /// Takes effect with the next login. Throws RunTimeError; what was before then still stands.
    virtual void Set(bool on) = 0;
};

}  // namespace tickwell
