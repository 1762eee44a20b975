// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSocketNotifier>
#include <memory>

#include "core/ports/folder_watch.h"

namespace tickwell::platform {

/// FolderWatch by inotify. Costs one file descriptor while it watches, and nothing otherwise. Used instead of
/// QFileSystemWatcher because that does not report when a file of the folder was rewritten in place.
class InotifyFolderWatch : public FolderWatch {
public:
    InotifyFolderWatch() = default;
    ~InotifyFolderWatch() override;
    Q_DISABLE_COPY_MOVE(InotifyFolderWatch)

    bool Watch(const QString& folder, std::function<void()> changed) override;
    bool IsWatching() const override { return m_notifier != nullptr; }

private:
    void Stop();
    void Read();

    int m_inotify = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::function<void()> m_changed;
};

}  // namespace tickwell::platform
