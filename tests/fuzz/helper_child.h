// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <optional>

namespace tickwell {

/// The helper program tickwell-cd as a function, run in a child of this process. What the fuzzer counts of it
/// in the child is brought back, so that it learns as if the child were itself.
class HelperChild {
public:
    HelperChild();
    ~HelperChild();
    HelperChild(const HelperChild&) = delete;
    HelperChild& operator=(const HelperChild&) = delete;

    /// What the helper writes when it is called with these words and says at its end that all went well;
    /// nothing where it says otherwise, where the library it reads with ended it, or where that fell or went
    /// round for ever. Ends this process where anything else ended the child.
    std::optional<QByteArray> Run(const QList<QByteArray>& words);

private:
    [[noreturn]] void BeChild(const QList<QByteArray>& words) const;

    int m_output;  // a file in memory
};

}  // namespace tickwell
