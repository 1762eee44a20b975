// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

namespace tickwell {

/// The fuzzer's counters of this process: what was run how often since it last set them to nothing.
std::span<char> Counters();

}  // namespace tickwell
