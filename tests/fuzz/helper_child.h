// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <optional>

namespace tickwell {

/// Runs the helper program tickwell-cd as a function in a child process. The child's coverage counters are
/// copied back, so that the fuzzer learns from it as from its own process.
class HelperChild {
public:
    HelperChild();
    ~HelperChild();
    HelperChild(const HelperChild&) = delete;
    HelperChild& operator=(const HelperChild&) = delete;

    /// Returns the helper's output for these arguments if it succeeds; nullopt if it reports a failure, if
    /// its library ended the process or crashed, or if it exceeds its CPU time. Aborts this process if the
    /// child ends in any other way.
    std::optional<QByteArray> Run(const QList<QByteArray>& words);

private:
    [[noreturn]] void BeChild(const QList<QByteArray>& words) const;

    int m_output;  // memfd
};

}  // namespace tickwell
