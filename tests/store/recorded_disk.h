// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

namespace tickwell::store {

/// One disk operation of SQLite, or `Mark`, which the test sets.
struct DiskStep {
    enum class Kind { Create, Write, Truncate, Sync, Remove, Mark };

    Kind kind = Kind::Mark;
    QString path;
    qint64 at = 0;          ///< of Write: the offset; of Truncate: the new size; of Mark: its number
    QByteArray bytes;       ///< of Write: the data
    bool isFolder = false;  ///< of Sync and Remove: whether the folder's entries are on the disk as well
};

/// A VFS between SQLite and the real VFS that records every step. SQLite opens its files through it during
/// its lifetime; databases must be opened and closed within it.
class RecordedDisk {
public:
    RecordedDisk();
    ~RecordedDisk();
    RecordedDisk(const RecordedDisk&) = delete;
    RecordedDisk& operator=(const RecordedDisk&) = delete;

    void Mark(int number);

    const std::vector<DiskStep>& Steps() const;
};

}  // namespace tickwell::store
