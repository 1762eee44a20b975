// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

#include "core/ports/folder_watch.h"

namespace tickwell {

/// A folder whose changes the test reports.
class FakeFolderWatch : public FolderWatch {
public:
    bool Watch(const QString& path, std::function<void()> onChange) override {
        folder = path;
        changed = std::move(onChange);
        return true;
    }
    bool IsWatching() const override { return changed != nullptr; }

    QString folder;
    std::function<void()> changed;
};

}  // namespace tickwell
