// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <functional>
#include <vector>

#include "store/recorded_disk.h"

namespace tickwell {

/// The files of a folder by path.
using DiskState = QMap<QString, QByteArray>;

/// What a disk may hold after a power cut.
enum class DiskOrder {
    Kept,   ///< the steps up to any one since the last sync
    Loose,  ///< what was synced, and any of the later steps, each write whole or half of it
};

/// Calls `see` with each state that the disk may hold when the power goes after so many of the steps, and
/// with the last mark that was set by then. `before`: what it held at the beginning. Of the many states of a
/// loose disk: nothing more than was synced, all, each step alone, each missing, each write half done, and
/// `random` random choices.
void ForEachPowerCut(const DiskState& before, const std::vector<DiskStep>& steps, DiskOrder order, int random,
                     const std::function<void(const DiskState& state, int mark)>& see);

}  // namespace tickwell
