// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "core/ports/message_boxes.h"

namespace tickwell::store {

/// By how much a file of `before` bytes shrank, in per cent with at most one decimal, rounded up to a tenth;
/// negative if it grew. `before`: above 0.
QString CompactionRatio(qint32 before, qint32 after);

/// The message box that reports a compaction. Sizes in bytes; `before` above 0.
Message CompactionDone(qint32 before, qint32 after);
Message CompactionFailed();

}  // namespace tickwell::store
