// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace tickwell::timing {

/// A row of the list of timers or alarms as its window shows it.
struct ShownRow {
    qint64 id = 0;      ///< of the timer or alarm
    QStringList texts;  ///< one for each column

    bool operator==(const ShownRow&) const = default;
};

}  // namespace tickwell::timing
