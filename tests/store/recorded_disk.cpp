// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/recorded_disk.h"

#include <sqlite3.h>

#include <QFile>
#include <new>

namespace tickwell::store {

namespace {

std::vector<DiskStep> g_steps;
sqlite3_vfs* g_real = nullptr;
sqlite3_vfs g_recorded{};

/// SQLite allocates this struct, followed by the file object of the real VFS.
struct RecordedFile {
    sqlite3_file base{};
    QString path;
    bool isNew = false;  // its first sync also syncs its folder

    sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

RecordedFile& Recorded(sqlite3_file* file) {
    return *reinterpret_cast<RecordedFile*>(file);
}

sqlite3_file* Real(sqlite3_file* file) {
    return Recorded(file).Real();
}

int Close(sqlite3_file* file) {
    const int result = Real(file)->pMethods->xClose(Real(file));
    Recorded(file).~RecordedFile();
    return result;
}

int Write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
    g_steps.push_back({.kind = DiskStep::Kind::Write,
                       .path = Recorded(file).path,
                       .at = at,
                       .bytes = QByteArray(static_cast<const char*>(bytes), count)});
    return Real(file)->pMethods->xWrite(Real(file), bytes, count, at);
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    g_steps.push_back(
        {.kind = DiskStep::Kind::Truncate, .path = Recorded(file).path, .at = size, .bytes = {}});
    return Real(file)->pMethods->xTruncate(Real(file), size);
}

int Sync(sqlite3_file* file, int flags) {
    g_steps.push_back({.kind = DiskStep::Kind::Sync,
                       .path = Recorded(file).path,
                       .bytes = {},
                       .isFolder = std::exchange(Recorded(file).isNew, false)});
    return Real(file)->pMethods->xSync(Real(file), flags);
}

const sqlite3_io_methods& Methods() {
    static const sqlite3_io_methods methods = [] {
        sqlite3_io_methods all{};
        all.iVersion = 1;  // no shared memory or mapped files, whose writes would not be recorded
        all.xClose = Close;
        all.xRead = [](sqlite3_file* file, void* bytes, int count, sqlite3_int64 at) {
            return Real(file)->pMethods->xRead(Real(file), bytes, count, at);
        };
        all.xWrite = Write;
        all.xTruncate = Truncate;
        all.xSync = Sync;
        all.xFileSize = [](sqlite3_file* file, sqlite3_int64* size) {
            return Real(file)->pMethods->xFileSize(Real(file), size);
        };
        all.xLock = [](sqlite3_file* file, int lock) {
            return Real(file)->pMethods->xLock(Real(file), lock);
        };
        all.xUnlock = [](sqlite3_file* file, int lock) {
            return Real(file)->pMethods->xUnlock(Real(file), lock);
        };
        all.xCheckReservedLock = [](sqlite3_file* file, int* isReserved) {
            return Real(file)->pMethods->xCheckReservedLock(Real(file), isReserved);
        };
        all.xFileControl = [](sqlite3_file* file, int what, void* value) {
            return Real(file)->pMethods->xFileControl(Real(file), what, value);
        };
        all.xSectorSize = [](sqlite3_file* file) { return Real(file)->pMethods->xSectorSize(Real(file)); };
        all.xDeviceCharacteristics = [](sqlite3_file* file) {
            return Real(file)->pMethods->xDeviceCharacteristics(Real(file));
        };
        return all;
    }();
    return methods;
}

int Open(sqlite3_vfs* /*vfs*/, const char* name, sqlite3_file* file, int flags, int* given) {
    auto* recorded = new (file) RecordedFile;
    recorded->path = QFile::decodeName(name);
    recorded->isNew = (flags & SQLITE_OPEN_CREATE) != 0 && !QFile::exists(recorded->path);
    const int result = g_real->xOpen(g_real, name, recorded->Real(), flags, given);
    if (result != SQLITE_OK) {
        recorded->~RecordedFile();
        file->pMethods = nullptr;
        return result;
    }
    if (recorded->isNew) {
        g_steps.push_back({.kind = DiskStep::Kind::Create, .path = recorded->path, .bytes = {}});
    }
    recorded->base.pMethods = &Methods();
    return SQLITE_OK;
}

int Remove(sqlite3_vfs* /*vfs*/, const char* name, int syncsFolder) {
    g_steps.push_back({.kind = DiskStep::Kind::Remove,
                       .path = QFile::decodeName(name),
                       .bytes = {},
                       .isFolder = syncsFolder != 0});
    return g_real->xDelete(g_real, name, syncsFolder);
}

}  // namespace

RecordedDisk::RecordedDisk() {
    g_steps.clear();
    g_real = sqlite3_vfs_find(nullptr);
    g_recorded = *g_real;
    g_recorded.zName = "recorded";
    g_recorded.szOsFile = g_real->szOsFile + static_cast<int>(sizeof(RecordedFile));
    g_recorded.xOpen = Open;
    g_recorded.xDelete = Remove;
    if (sqlite3_vfs_register(&g_recorded, 1) != SQLITE_OK) {
        qFatal("cannot register a VFS");
    }
}

RecordedDisk::~RecordedDisk() {
    sqlite3_vfs_unregister(&g_recorded);
    sqlite3_vfs_register(g_real, 1);
}

void RecordedDisk::Mark(int number) {
    g_steps.push_back({.kind = DiskStep::Kind::Mark, .path = {}, .at = number, .bytes = {}});
}

const std::vector<DiskStep>& RecordedDisk::Steps() const {
    return g_steps;
}

}  // namespace tickwell::store
