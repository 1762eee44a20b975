// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/program_starter.h"
#include "platform/detached_process.h"

namespace tickwell {

/// The programs of this desktop. What is started is no child of ours: it lives on when we end, and we never
/// wait for it.
class DesktopPrograms : public ProgramStarter {
public:
    /// `inheritance`: what programs start with.
    explicit DesktopPrograms(Inheritance inheritance) : m_inheritance(std::move(inheritance)) {}

    QString Find(const QString& name) const override;
    bool Start(const QString& file, const QStringList& arguments, const QString& folder) override;

private:
    Inheritance m_inheritance;
};

}  // namespace tickwell
