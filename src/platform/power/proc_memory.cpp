// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/power/proc_memory.h"

#include <QFile>

namespace tickwell::platform {

namespace {

/// The number after "Name:" at the start of a line, in kB; nullopt if there is none.
std::optional<qint64> Field(const QByteArray& text, const QByteArray& name) {
    const QByteArray label = name + ':';
    for (const QByteArray& line : text.split('\n')) {
        if (line.startsWith(label)) {
            bool isNumber = false;
            const qint64 value =
                line.mid(label.size()).simplified().split(' ').constFirst().toLongLong(&isNumber);
            return isNumber ? std::optional(value) : std::nullopt;
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<int> ProcMemory::Load() const {
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const QByteArray text = file.readAll();
    const auto total = Field(text, "MemTotal");
    const auto available = Field(text, "MemAvailable");
    if (!total || !available || *total <= 0 || *available < 0 || *available > *total) {
        return std::nullopt;
    }
    return static_cast<int>((*total - *available) * 100 / *total);
}

}  // namespace tickwell::platform
