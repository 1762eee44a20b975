// SPDX-License-Identifier: GPL-3.0-or-later
// Compiled without the fuzzer's instrumentation, which speaks of the same names in another way.
#include "fuzz/counters.h"

// The linker's names for the ends of a section.
extern "C" {
extern char __start___sancov_cntrs[]
    __attribute__((visibility("hidden")));  // NOLINT(bugprone-reserved-identifier)
extern char __stop___sancov_cntrs[]
    __attribute__((visibility("hidden")));  // NOLINT(bugprone-reserved-identifier)
}

namespace tickwell {

std::span<char> Counters() {
    return {__start___sancov_cntrs, __stop___sancov_cntrs};
}

}  // namespace tickwell
