// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <QByteArray>
#include <QList>

namespace tickwell {

/// Starts a program that is no child of this process and lives on without it: in a session of its own, with
/// default signals, the environment and the standard streams of this process, and none of its other files.
/// `words`: the absolute path of the program, then its arguments. `folder`: its current one. `mask`: its
/// umask. Returns 0, or the number of the error that kept it from starting.
int StartDetached(const QList<QByteArray>& words, const QByteArray& folder, mode_t mask);

}  // namespace tickwell
