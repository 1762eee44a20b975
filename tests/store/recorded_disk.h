// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

namespace tickwell {

/// One thing that SQLite did to the disk, or `Mark`, a note of the test's.
struct DiskStep {
    enum class Kind { Create, Write, Truncate, Sync, Remove, Mark };

    Kind kind = Kind::Mark;
    QString path;
    qint64 at = 0;          ///< of Write: offset; of Truncate: the new size; of Mark: its number
    QByteArray bytes;       ///< of Write
    bool isFolder = false;  ///< Sync, Remove: the folder's names are on the disk as well when it returns
};

/// A VFS between SQLite and the real one, which writes down every step; while it lives, SQLite opens its
/// files through it. Databases are opened after it was made and closed before it goes.
class RecordedDisk {
public:
    RecordedDisk();
    ~RecordedDisk();
    RecordedDisk(const RecordedDisk&) = delete;
    RecordedDisk& operator=(const RecordedDisk&) = delete;

    void Mark(int number);

    const std::vector<DiskStep>& Steps() const;
};

}  // namespace tickwell
