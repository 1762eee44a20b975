// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/program_starter.h"
#include "platform/processes/detached_process.h"

namespace tickwell::platform {

/// Starts programs of this desktop, detached: they survive this process, which never waits for them.
class DesktopPrograms : public ProgramStarter {
public:
    /// `inheritance`: the environment and umask that programs start with.
    explicit DesktopPrograms(Inheritance inheritance) : m_inheritance(std::move(inheritance)) {}

    QString Find(const QString& name) const override;
    bool Start(const QString& file, const QStringList& arguments, const QString& folder) override;

private:
    Inheritance m_inheritance;
};

}  // namespace tickwell::platform
