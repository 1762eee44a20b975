// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

namespace tickwell {

/// The coverage counters of this process since the fuzzer last reset them.
std::span<char> Counters();

}  // namespace tickwell
