// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "core/ports/memory.h"
#include "core/text_line.h"

namespace tickwell::displays {

/// The memory load, on the lower line.
class MemoryLines {
public:
    /// All outlive this object.
    MemoryLines(const Memory& memory, TextLines lines) : m_memory(memory), m_lines(lines) {}

    /// Called when the function is chosen: wipes in the load.
    void Show();

    /// MemoryTimer: sets the load without a wipe. If the load is unknown, the line stays unchanged.
    void Tick();

private:
    const Memory& m_memory;
    TextLines m_lines;
};

/// "45％使用中".
QString MemoryText(int load);

}  // namespace tickwell::displays
