// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include "core/ports/autostart.h"

namespace tickwell::platform {

/// tickwell.desktop in the folders that desktops read at login. The user's file takes precedence over the
/// system-wide one, which it can hide.
class AutostartFile : public Autostart {
public:
    /// `folders`: the user's own first, then the system's, best first. `command`: the command line of this
    /// program, beginning with the absolute path of its executable.
    AutostartFile(const QStringList& folders, QStringList command);

    bool IsOn() const override;
    void Set(bool on) override;

    /// autostart in $XDG_CONFIG_HOME, then in each of $XDG_CONFIG_DIRS, or in their defaults.
    static QStringList Folders();

private:
    bool IsForEverybody() const;
    void Write(const QByteArray& entry) const;
    void Remove() const;

    QStringList m_files;
    QStringList m_command;
};

}  // namespace tickwell::platform
