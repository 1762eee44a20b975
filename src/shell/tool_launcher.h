// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

#include "core/ports/program_starter.h"
#include "core/program_folder.h"

namespace tickwell::shell {

/// The file of a tool, by its index 1..13; empty outside.
QString ToolFileName(int index);

/// The companion tools in the program's folder.
class ToolLauncher {
public:
    /// The starter outlives this object.
    ToolLauncher(ProgramFolder folder, ProgramStarter& starter);

    /// The indexes of the tools whose files exist, ascending.
    QList<int> Present() const;

    /// Starts a tool in the program's folder, with the argument that identifies the caller. Throws
    /// RunTimeError if it cannot be started.
    void Start(int index) const;

private:
    QString PathOf(int index) const;

    ProgramFolder m_folder;
    ProgramStarter& m_starter;
};

}  // namespace tickwell::shell
