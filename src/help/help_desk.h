// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QString>
#include <functional>

#include "core/handlers.h"
#include "core/ports/help_viewer.h"
#include "help/help_window.h"

namespace tickwell::help {

/// Opens the help file in a window, one at a time. The file is read each time the window is opened; once the
/// window is closed, only its geometry and text size are kept.
class HelpDesk : public HelpViewer {
public:
    /// Called with each new window before it is shown, so that the owner can place it.
    using Opening = std::function<void(QWidget& window)>;

    /// `file`: its path. `handlers` outlives this object.
    HelpDesk(QString file, Handlers& handlers, Opening opening);
    ~HelpDesk() override;
    HelpDesk(const HelpDesk&) = delete;
    HelpDesk& operator=(const HelpDesk&) = delete;

    void ShowTopic(int topic) override;

    /// The window; null if it is not open.
    HelpWindow* Window() const { return m_window; }

private:
    QString m_file;
    Handlers& m_handlers;
    Opening m_opening;
    HelpLook m_look;
    QPointer<HelpWindow> m_window;
};

}  // namespace tickwell::help
