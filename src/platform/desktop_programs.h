// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include "core/ports/program_starter.h"

namespace tickwell {

/// The programs of this desktop. What is started is no child of ours: it lives on when we end, and we never
/// wait for it.
class DesktopPrograms : public ProgramStarter {
public:
    /// `mask`: the umask that programs start with.
    explicit DesktopPrograms(mode_t mask) : m_mask(mask) {}

    QString Find(const QString& name) const override;
    bool Start(const QString& file, const QStringList& arguments, const QString& folder) override;

private:
    mode_t m_mask;
};

}  // namespace tickwell
