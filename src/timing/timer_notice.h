// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include "core/handlers.h"

namespace tickwell {

/// What the notice works with; it outlives the notice.
struct TimerNoticeParts {
    Handlers& handlers;
    std::function<void()>
        enterFolder;  ///< makes the program's folder the current one, or throws RunTimeError
    /// Sends one multimedia command and tells the user itself when it fails.
    std::function<void(const QString& command)> sendCommand;
};

/// The notice that the timer's time is over, with its sound. It comes to the front of all other windows and
/// holds the program's own back until it is closed, but nothing waits for it.
class Form8 : public QDialog {
    Q_OBJECT

public:
    Form8(TimerNoticeParts parts, QWidget* parent);

    /// Shows the notice and starts its sound. While it is open this does nothing.
    void BringUp();

    /// Whichever way the window is closed.
    void done(int result) override;

private:
    void LayOut();
    void Form_Load();
    void Form_Unload();

    TimerNoticeParts m_parts;
};

}  // namespace tickwell
