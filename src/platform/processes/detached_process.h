// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <QByteArray>
#include <QByteArrayList>

namespace tickwell::platform {

/// What a process inherits from its parent and passes on to the programs that it starts.
struct Inheritance {
    mode_t mask = 0;             ///< umask
    QByteArrayList environment;  ///< each as NAME=value

    static Inheritance OfThisProcess();
};

/// Starts a program detached from this process: in a session of its own, with default signal handling and the
/// standard streams of this process, but none of its other files. `words`: the absolute path of the program,
/// then its arguments. `folder`: its working directory. Returns 0 or an errno value.
int StartDetached(const QByteArrayList& words, const QByteArray& folder, const Inheritance& inheritance);

}  // namespace tickwell::platform
