// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell {

/// Whether the program starts when the user logs in.
class Autostart {
public:
    virtual ~Autostart() = default;

    /// Whether the desktop would start it at the next login; false if the entry cannot be read.
    virtual bool IsOn() const = 0;

    /// Takes effect at the next login. Throws RunTimeError and then changes nothing.
    virtual void Set(bool on) = 0;
};

}  // namespace tickwell
