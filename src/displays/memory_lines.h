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

    /// The function was chosen: the load comes in with a wipe.
    void Show();

    /// MemoryTimer: the load is set at once. A load that is not known leaves the line as it is.
    void Tick();

private:
    const Memory& m_memory;
    TextLines m_lines;
};

/// "45％使用中".
QString MemoryText(int load);

}  // namespace tickwell::displays
