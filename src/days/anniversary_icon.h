// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>

namespace tickwell {

/// The small picture before each anniversary of the calendar's list, "Kinen": a star.
QIcon AnniversaryIcon();

}  // namespace tickwell
