// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <functional>
#include <vector>

#include "store/recorded_disk.h"

namespace tickwell::store {

/// The files of a folder by path.
using DiskState = QMap<QString, QByteArray>;

/// What a disk may contain after a power failure.
enum class DiskOrder {
    Kept,   ///< the steps in order, up to any of those since the last sync
    Loose,  ///< everything synced, and any of the later steps, with each write complete or half done
};

/// Calls `see` with each possible state of the disk if the power fails after any number of steps, and with
/// the last mark before that. `before`: the initial state. Of the many states of a loose disk it uses:
/// nothing beyond the synced steps, all steps, each step alone, each missing, each write half done, and
/// `random` random choices.
void ForEachPowerCut(const DiskState& before, const std::vector<DiskStep>& steps, DiskOrder order, int random,
                     const std::function<void(const DiskState& state, int mark)>& see);

}  // namespace tickwell::store
