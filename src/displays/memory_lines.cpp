// SPDX-License-Identifier: GPL-3.0-or-later
#include "displays/memory_lines.h"

namespace tickwell::displays {

void MemoryLines::Show() {
    if (const auto load = m_memory.Load()) {
        m_lines.lower.ShowText(MemoryText(*load));
    }
}

void MemoryLines::Tick() {
    if (const auto load = m_memory.Load()) {
        m_lines.lower.SetText(MemoryText(*load));
    }
}

QString MemoryText(int load) {
    return QString::number(load) + u"％使用中";
}

}  // namespace tickwell::displays
