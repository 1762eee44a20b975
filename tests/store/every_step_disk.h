// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "store/watched_disk.h"

namespace tickwell::store {

/// A watched disk whose links and syncs are steps as well.
class EveryStepDisk : public WatchedDisk {
public:
    using WatchedDisk::WatchedDisk;

    void Link(const QString& from, const QString& to) override {
        Step(u"link ", from, [&] { PosixStoreDisk::Link(from, to); });
    }
    void Sync(const QString& path) override {
        Step(u"sync ", path, [&] { PosixStoreDisk::Sync(path); });
    }
};

}  // namespace tickwell::store
