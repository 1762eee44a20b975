// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/freed_memory.h"

#include <malloc.h>

#include <QApplication>
#include <QBackingStore>
#include <QPixmapCache>
#include <QWidget>
#include <QWindow>

namespace tickwell::platform {

namespace {

constexpr int kLargeBlock =
    128 * 1024;  // bytes; the library's own start, which it raises as it meets larger ones
constexpr int kKeptAtTop = 64 * 1024;  // bytes that stay ours at the end of the heap

constexpr QSize kNoPicture(1, 1);

/// A window keeps its picture while it is hidden. When it is shown it sees that the size is another, and
/// draws itself anew.
void DropHiddenPictures() {
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        QBackingStore* picture = window->isVisible() ? nullptr : window->backingStore();
        if (picture == nullptr || picture->size() == kNoPicture) {
            continue;
        }
        const bool isInSystem = window->windowHandle()->handle() != nullptr;
        picture->resize(kNoPicture);
        if (!isInSystem) {
            window->windowHandle()
                ->destroy();  // closed before; resizing brought it back into the window system
        }
    }
}

}  // namespace

// What mallopt refuses stays as it was: more memory, and nothing else.
void KeepHeapSmall() {
    mallopt(M_ARENA_MAX, 1);
    mallopt(M_MMAP_THRESHOLD, kLargeBlock);
    mallopt(M_TRIM_THRESHOLD, kKeptAtTop);
}

void ReturnFreedMemory() {
    DropHiddenPictures();
    QPixmapCache::clear();
    malloc_trim(0);
}

}  // namespace tickwell::platform
