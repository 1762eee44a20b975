// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <QByteArray>
#include <QByteArrayList>

namespace tickwell {

/// What a process has from who started it and hands down to what it starts itself.
struct Inheritance {
    mode_t mask = 0;             ///< umask
    QByteArrayList environment;  ///< each as NAME=value

    static Inheritance OfThisProcess();
};

/// Starts a program that is no child of this process and lives on without it: in a session of its own, with
/// default signals, the standard streams of this process, and none of its other files. `words`: the absolute
/// path of the program, then its arguments. `folder`: its current one. Returns 0, or the number of the error
/// that kept it from starting.
int StartDetached(const QByteArrayList& words, const QByteArray& folder, const Inheritance& inheritance);

}  // namespace tickwell
