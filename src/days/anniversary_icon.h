// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

namespace tickwell::days {

/// The icon of each anniversary in the calendar's list, "Kinen": a star.
QIcon AnniversaryIcon();

}  // namespace tickwell::days
