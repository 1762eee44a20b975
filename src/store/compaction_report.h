// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "core/ports/message_boxes.h"

namespace tickwell {

/// By how much a file of `before` bytes became smaller, in per cent with one decimal at most; below 0 where
/// it grew. What is not a whole tenth counts as gained. `before`: above 0.
QString CompactionRatio(qint32 before, qint32 after);

/// The box that tells of a compaction. Sizes in bytes; `before` above 0.
Message CompactionDone(qint32 before, qint32 after);
Message CompactionFailed();

}  // namespace tickwell
