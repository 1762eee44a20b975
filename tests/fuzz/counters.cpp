// SPDX-License-Identifier: GPL-3.0-or-later
// Compiled without the fuzzer's instrumentation, which declares the same symbols with other types.
#include "fuzz/counters.h"

// Symbols that the linker defines for the start and the end of a section.
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
