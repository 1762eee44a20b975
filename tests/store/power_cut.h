// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <functional>
#include <vector>

#include "store/recorded_disk.h"

namespace tickwell::store {

/// The files of a folder: path to contents.
using DiskState = QMap<QString, QByteArray>;

/// What a disk may contain after a power failure.
enum class DiskOrder {
    Kept,   ///< the steps in their order, up to any one since the last sync
    Loose,  ///< all synced steps, and any of the later ones, each write complete or half done
};

/// Calls `see` with the possible states of the disk if the power fails after any number of steps, and with
/// the last mark before that. `before`: the initial state. A loose disk has too many states; those used are:
/// only the synced steps, all steps, each later step alone, each one missing, each write half done, and
/// `random` random choices.
void ForEachPowerCut(const DiskState& before, const std::vector<DiskStep>& steps, DiskOrder order, int random,
                     const std::function<void(const DiskState& state, int mark)>& see);

}  // namespace tickwell::store
