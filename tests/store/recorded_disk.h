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
    qint64 at = 0;          ///< of Write: offset; of Truncate: the new size; of Mark: its number
    QByteArray bytes;       ///< of Write
    bool isFolder = false;  ///< of Sync, Remove: whether the folder's names are also on the disk on return
};

/// A VFS between SQLite and the real one that records every step; during its lifetime SQLite opens its files
/// through it. Databases must be opened and closed during its lifetime.
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
