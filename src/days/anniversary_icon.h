// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

namespace tickwell::days {

/// The star that the calendar's list shows beside each anniversary.
QIcon AnniversaryIcon();

}  // namespace tickwell::days
