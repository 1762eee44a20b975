// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

namespace tickwell {

/// Reports changes of the files in a folder. Some file systems, such as those of a network, report only those
/// that this machine makes.
class FolderWatch {
public:
    virtual ~FolderWatch() = default;

    /// From now on `changed` is called from the event loop after a file in `folder` was written completely,
    /// renamed or removed; several changes may be reported at once. Replaces the folder watched before. False
    /// if this folder cannot be watched, for instance because it does not exist; then none is.
    virtual bool Watch(const QString& folder, std::function<void()> changed) = 0;

    /// Whether a folder is being watched; no longer after it was removed or unmounted.
    virtual bool IsWatching() const = 0;
};

}  // namespace tickwell
