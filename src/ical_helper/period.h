// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>

namespace tickwell::ical_helper {

/// From `first` to the day before `end`.
struct Period {
    QDate first;
    QDate end;
};

}  // namespace tickwell::ical_helper
