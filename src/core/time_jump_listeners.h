// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <list>
#include <utility>

#include "core/ports/time_jumps.h"

namespace tickwell {

/// Passes the jumps of one source on to any number of listeners.
class TimeJumpListeners {
public:
    /// `source` outlives this object, which becomes its only listener with the first Add.
    explicit TimeJumpListeners(TimeJumps& source) : m_source(source) {}
    ~TimeJumpListeners() { m_source.Listen(nullptr); }
    TimeJumpListeners(const TimeJumpListeners&) = delete;
    TimeJumpListeners& operator=(const TimeJumpListeners&) = delete;

    /// The place of one more listener; it lives as long as this object.
    TimeJumps& Add() {
        if (m_places.empty()) {
            m_source.Listen([this] { Tell(); });
        }
        return m_places.emplace_back();
    }

private:
    class Place : public TimeJumps {
    public:
        void Listen(std::function<void()> onJump) override { m_onJump = std::move(onJump); }
        void Tell() const {
            if (const auto onJump = m_onJump) {  // a copy: the listener may leave meanwhile
                onJump();
            }
        }

    private:
        std::function<void()> m_onJump;
    };

    void Tell() const {
        for (const Place& place : m_places) {
            place.Tell();
        }
    }

    TimeJumps& m_source;
    std::list<Place> m_places;  // a list: its elements never move
};

}  // namespace tickwell
