// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

#include "core/ports/full_screen_watch.h"

namespace tickwell {

/// Lets the test cover the main window by full-screen windows.
class FakeFullScreenWatch : public FullScreenWatch {
public:
    void Listen(std::function<void()> changed) override { m_changed = std::move(changed); }
    bool IsCovered(quintptr window) override {
        asked = window;
        return isCovered;
    }

    bool IsWatched() const { return m_changed != nullptr; }
    /// Reports a change on the desktop.
    void Change(bool covered) {
        isCovered = covered;
        if (m_changed) {
            m_changed();
        }
    }

    bool isCovered = false;
    quintptr asked = 0;

private:
    std::function<void()> m_changed;
};

}  // namespace tickwell
