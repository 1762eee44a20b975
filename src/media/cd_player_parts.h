// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <functional>

#include "core/handlers.h"
#include "media/cd_device.h"
#include "media/cd_state.h"

namespace tickwell::media {

/// References that the CD player works with; all outlive it.
struct CdPlayerParts {
    CdPlayerState& state;
    Multimedia& media;
    CdDevice& device;
    Handlers& handlers;
    TimerSource& timers;
    /// The titles to show: of the disc, then of each track; single ones may be empty. Empty list: no titles.
    std::function<QStringList()> titles = [] { return QStringList(); };
};

}  // namespace tickwell::media
