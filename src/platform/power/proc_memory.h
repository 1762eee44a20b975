// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "core/ports/memory.h"

namespace tickwell::platform {

/// Reads MemTotal and MemAvailable of /proc/meminfo: memory that is available to new programs counts as free.
class ProcMemory : public Memory {
public:
    explicit ProcMemory(QString path = QStringLiteral("/proc/meminfo")) : m_path(std::move(path)) {}

    std::optional<int> Load() const override;

private:
    QString m_path;
};

}  // namespace tickwell::platform
