// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/errors.h"
#include "store/compaction.h"
#include "store/loose_store.h"
#include "support/fake_message_boxes.h"

namespace tickwell::store {

/// The program's database handle on a loose store, and the message boxes shown.
struct CompactionCase {
    LooseStore store;
    DayDatabase handle;
    FakeMessageBoxes boxes;

    /// Opens the database if `isOpen`.
    explicit CompactionCase(bool isOpen = true) {
        if (isOpen) {
            handle = DayDatabase(QStringLiteral("DayDate.mdb"));
        }
    }

    /// The reason of the RunTimeError that the compaction throws; empty if it throws none.
    QString Fault(StoreDisk& disk) {
        try {
            CompactDayDatabase(handle, ProgramFolder(store.Folder()), boxes, disk);
        } catch (const RunTimeError& error) {
            return error.Reason();
        }
        return QString();
    }
    QString Fault() {
        PosixStoreDisk disk;
        return Fault(disk);
    }
};

}  // namespace tickwell::store
