// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QString>
#include <functional>

#include "core/handlers.h"
#include "core/ports/help_viewer.h"
#include "help/help_window.h"

namespace tickwell {

/// Opens the help file in its window, one at a time. The file is read when the window is opened; closed, it
/// leaves nothing behind but where it stood and how large its text was.
class HelpDesk : public HelpViewer {
public:
    /// Called with each new window before it is shown, so that its owner can say where it stands.
    using Opening = std::function<void(QWidget& window)>;

    /// `file`: a bare name is looked up in the current folder, which is the program's. `handlers` outlives
    /// this object.
    HelpDesk(QString file, Handlers& handlers, Opening opening);
    ~HelpDesk() override;
    HelpDesk(const HelpDesk&) = delete;
    HelpDesk& operator=(const HelpDesk&) = delete;

    void ShowTopic(int topic) override;

    /// The window, while it is open.
    HelpWindow* Window() const { return m_window; }

private:
    QString m_file;
    Handlers& m_handlers;
    Opening m_opening;
    HelpLook m_look;
    QPointer<HelpWindow> m_window;
};

}  // namespace tickwell
