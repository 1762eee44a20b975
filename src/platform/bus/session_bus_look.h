// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <optional>

namespace tickwell::platform {

/// Checks the session bus before Qt connects to it: if the bus hangs, Qt would wait for half a minute before
/// there is a window. The check takes a millisecond if the bus answers.
class SessionBusLook {
public:
    /// To be constructed before the QApplication. If there is a bus and it does not answer within a second,
    /// Qt is made to find none.
    SessionBusLook();

    /// To be called right after the QApplication was constructed: makes Qt give up a bus that hangs for the
    /// whole run, and restores the environment for programs that are started later.
    void Finish();

private:
    std::optional<QByteArray> m_address;  // the original value, while it is replaced
    bool m_hangs = false;
};

}  // namespace tickwell::platform
