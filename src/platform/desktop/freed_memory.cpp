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

constexpr int kLargeBlock = 128 * 1024;  // bytes; the initial value of glibc, which otherwise raises it
constexpr int kKeptAtTop = 64 * 1024;    // free bytes kept at the end of the heap

constexpr QSize kNoPicture(1, 1);

/// A hidden window keeps its backing store. When it is shown again, it notices the other size and repaints
/// completely.
void DropHiddenPictures() {
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        QBackingStore* picture = window->isVisible() ? nullptr : window->backingStore();
        if (picture == nullptr || picture->size() == kNoPicture) {
            continue;
        }
        const bool isInSystem = window->windowHandle()->handle() != nullptr;
        picture->resize(kNoPicture);
        if (!isInSystem) {
            window->windowHandle()->destroy();  // it was closed: resizing has created its native window again
        }
    }
}

}  // namespace

// Errors of mallopt are ignored: they only cost memory.
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
