// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <memory>

struct xcb_connection_t;

namespace tickwell::platform {

/// The platform and display that Qt is started with.
struct ScreenChoice {
    QByteArray
        platforms;  ///< as in QT_QPA_PLATFORM: names separated by semicolons, the first that works counts
    QByteArray display;  ///< the X display; empty for the one that $DISPLAY names
};

/// Checks that windows can be shown before the QApplication is constructed, which otherwise aborts the
/// process. The check takes about a millisecond.
class ScreenLook {
public:
    /// Finds the first of these platforms that has a plugin and, if it needs one, a server that accepts a
    /// connection.
    explicit ScreenLook(const ScreenChoice& choice);

    /// Whether there is one.
    bool CanShowWindows() const { return m_canShowWindows; }

    /// To be called after the QApplication was constructed: closes the connection of the check. An X server
    /// may start afresh when its last client leaves, so it is kept until Qt has connected.
    void Finish() { m_server.reset(); }

private:
    struct Disconnect {
        void operator()(xcb_connection_t* server) const;
    };

    bool CanShowOn(const QByteArray& platform, const QByteArray& display);
    bool AcceptsX11(const QByteArray& display);

    std::unique_ptr<xcb_connection_t, Disconnect> m_server;
    bool m_canShowWindows = false;
};

}  // namespace tickwell::platform
