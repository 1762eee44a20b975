// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileInfo>
#include <QStringList>
#include <functional>

#include "store/store_disk.h"

namespace tickwell::store {

/// The real disk with a function that is called before and after each step, and may throw.
class WatchedDisk : public PosixStoreDisk {
public:
    /// `step`: the number of the step, from 1.
    using Watch = std::function<void(int step, bool isDone)>;

    explicit WatchedDisk(Watch watch) : m_watch(std::move(watch)) {}

    /// The steps so far, each as "operation file".
    const QStringList& Steps() const { return m_steps; }

    qint32 Size(const QString& path) override {
        qint32 size = 0;
        Step(u"size ", path, [&] { size = PosixStoreDisk::Size(path); });
        return size;
    }
    void Copy(const SqliteConnection& from, const QString& to) override {
        Step(u"copy ", to, [&] { PosixStoreDisk::Copy(from, to); });
    }
    void Compact(SqliteConnection& from, const QString& to) override {
        Step(u"compact ", to, [&] { PosixStoreDisk::Compact(from, to); });
    }
    void Rename(const QString& from, const QString& to) override {
        Step(u"rename ", from, [&] { PosixStoreDisk::Rename(from, to); });
    }
    void Remove(const QString& path) override {
        Step(u"remove ", path, [&] { PosixStoreDisk::Remove(path); });
    }

protected:
    void Step(QStringView operation, const QString& path, const std::function<void()>& real) {
        m_steps.append(operation + QFileInfo(path).fileName());
        const auto step = static_cast<int>(m_steps.size());
        m_watch(step, false);
        real();
        m_watch(step, true);
    }

private:
    Watch m_watch;
    QStringList m_steps;
};

}  // namespace tickwell::store
