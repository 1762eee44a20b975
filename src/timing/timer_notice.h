// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QLabel>

#include "core/handlers.h"
#include "core/ports/timer.h"
#include "timing/first_keys.h"

namespace tickwell::timing {

/// What the notice uses; it outlives the notice.
struct TimerNoticeParts {
    Handlers& handlers;
    std::function<void()>
        enterFolder;  ///< makes the program's folder the current one, or throws RunTimeError
    /// Sends one multimedia command and reports a failure to the user.
    std::function<void(const QString& command)> sendCommand;
    std::function<bool()> isSilent = [] { return false; };  ///< whether it has no sound if it is opened now
    /// The name of the finished run; empty if it has none.
    std::function<QString()> name = [] { return QString(); };
    TimerSource& timers;
    /// Whether keys have no effect on it at first.
    std::function<bool()> ignoresFirstKeys = [] { return false; };
    std::function<void()> closed = [] {};  ///< called after it was closed, in whichever way
};

/// The notice, with sound, that the countdown has reached zero. It appears in front of all other windows and
/// is modal within the program; BringUp does not wait until it is closed. It takes the keyboard focus, so it
/// can ignore what somebody is typing when it appears.
class Form8 : public QDialog {
    Q_OBJECT

public:
    Form8(TimerNoticeParts parts, QWidget* parent);

    static constexpr int kIgnoresKeysFor = FirstKeys::kIgnoredFor;  ///< ms

    /// Shows the notice and starts its sound. False if it is open already; nothing is done then.
    bool BringUp();

    /// Called whenever the window is closed, in any way.
    void done(int result) override;

private:
    void LayOut();
    void Form_Load();
    void Form_Unload();

    void ShowName();

    TimerNoticeParts m_parts;
    QLabel* m_name;           // owned by the window
    bool m_hasSound = false;  // since it was opened
    FirstKeys m_firstKeys;
};

}  // namespace tickwell::timing
