// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/freed_memory.h"

#include <malloc.h>

#include <QPixmapCache>

namespace tickwell {

namespace {

constexpr int kLargeBlock =
    128 * 1024;  // bytes; the library's own start, which it raises as it meets larger ones
constexpr int kKeptAtTop = 64 * 1024;  // bytes that stay ours at the end of the heap

}  // namespace

// What mallopt refuses stays as it was: more memory, and nothing else.
void KeepHeapSmall() {
    mallopt(M_ARENA_MAX, 1);
    mallopt(M_MMAP_THRESHOLD, kLargeBlock);
    mallopt(M_TRIM_THRESHOLD, kKeptAtTop);
}

void ReturnFreedMemory() {
    QPixmapCache::clear();
    malloc_trim(0);
}

}  // namespace tickwell
