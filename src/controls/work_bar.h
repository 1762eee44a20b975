// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QProgressBar>
#include <QWidget>
#include <exception>
#include <functional>
#include <memory>

#include "core/handlers.h"
#include "core/sliced_work.h"

namespace tickwell::controls {

/// How the work ended.
struct WorkEnd {
    bool isStopped = false;    ///< cancelled by the user
    std::exception_ptr error;  ///< the RunTimeError that ended it; null if none did
};

/// Runs the work of a dialog. Work that needs more than one slice continues in a timer, with the dialog's
/// other controls disabled; after half a second this bar appears with the progress and a button "中止".
class WorkBar : public QWidget {
    Q_OBJECT

public:
    using Ended = std::function<void(const WorkEnd&)>;

    /// `caption`: a description of the work, for the bar and for screen readers. `timers` and `handlers`
    /// outlive the bar.
    WorkBar(TimerSource& timers, Handlers& handlers, const QString& caption, QWidget* parent);

    /// Not allowed while it is working. Short work is complete on return. `ended` is called once, while
    /// `work` still exists, and may throw RunTimeError; it is not called if the bar is deleted first.
    void Start(std::unique_ptr<SlicedWork> work, Ended ended);

    bool IsWorking() const { return m_work != nullptr; }

    /// Cancels the work like the button does; it may need some more slices to end.
    void Stop();

private:
    void Step();
    void End(const WorkEnd& end);
    void Disable();
    void Enable();
    void Appear();

    std::unique_ptr<SlicedWork> m_work;
    Ended m_ended;
    std::unique_ptr<Timer> m_slices;
    std::unique_ptr<Timer> m_appearance;
    QList<QPointer<QWidget>> m_disabled;  // the dialog's controls that were enabled
    QPointer<QWidget> m_focus;            // the control that had the keyboard focus
    QProgressBar* m_progress = nullptr;   // owned as a child
    QWidget* m_stop = nullptr;            // owned as a child
};

}  // namespace tickwell::controls
