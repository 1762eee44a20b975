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
    /// hides its address from Qt.
    SessionBusLook();

    /// To be called right after the QApplication was constructed: makes Qt do without a bus that hangs until
    /// the program ends, and restores the environment for programs that are started later.
    void Finish();

private:
    std::optional<QByteArray> m_address;  // the original value, while it is replaced
    bool m_hangs = false;
};

}  // namespace tickwell::platform
