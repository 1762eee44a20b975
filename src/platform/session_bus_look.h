// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <optional>

namespace tickwell {

/// A look at the session bus before Qt connects to it: Qt would wait for one that hangs for half a minute,
/// with no window yet. A bus that answers costs a millisecond.
class SessionBusLook {
public:
    /// Before the QApplication is made. If there is a bus and it does not answer within a second, Qt is led
    /// to none.
    SessionBusLook();

    /// As soon as the QApplication is there: has Qt take what it was led to for the whole run, and gives the
    /// environment back as it was, for the programs that are started.
    void Finish();

private:
    std::optional<QByteArray> m_address;  // the variable, while Qt is led to no bus
    bool m_hangs = false;
};

}  // namespace tickwell
