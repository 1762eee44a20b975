// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>
#include <memory>

#include "core/errors.h"
#include "core/ports/message_boxes.h"
#include "core/ports/timer.h"

namespace tickwell {

/// Runs all event handlers of the program. A RunTimeError ends the handler and is reported in a message box;
/// the program continues. While that box is open further errors are dropped, because a box for each could
/// cover the whole screen.
class Handlers {
public:
    /// `boxes` outlives this object.
    explicit Handlers(MessageBoxes& boxes) : m_boxes(boxes) {}

    /// Runs `handler` immediately, with its errors reported as described above; false if it failed. `owner`:
    /// the window that the report box belongs to, or an object in it; null for none.
    bool Run(const std::function<void()>& handler, const QObject* owner = nullptr);

    /// Connects a signal of a control. `sender` and `context` are owned by the caller; the report box belongs
    /// to the window of `context`.
    template <typename Sender, typename Signal, typename Handler>
    void Connect(const Sender* sender, Signal signal, const QObject* context, Handler handler) {
        QObject::connect(sender, signal, context, [this, handler, context] { Run(handler, context); });
    }

    /// A stopped timer, which is stopped again if its handler fails.
    std::unique_ptr<Timer> MakeTimer(TimerSource& source, int milliseconds, std::function<void()> handler);

    /// Runs the handler of `timer`; if it fails, reports the error like Run and stops the timer.
    void RunTick(Timer& timer, const std::function<void()>& handler);

    /// What the box of an error offers besides OK.
    struct Remedy {
        QString caption;               ///< of its button; empty for none
        std::function<void()> chosen;  ///< called after the box was closed with that button
    };

    /// Reports an error that no handler has thrown, such as a failed print. If the report box is open, the
    /// error is queued and reported next. `owner` as for Run; it may be destroyed in the meantime.
    void Tell(const QString& reason, const QObject* owner = nullptr) { Tell(reason, owner, {}); }
    void Tell(const QString& reason, const QObject* owner, const Remedy& remedy);

    /// Calls `action` now, or once the report box is closed; until then a further call replaces it.
    void WhenQuiet(std::function<void()> action);

private:
    struct Untold {
        QString reason;
        QPointer<const QObject> owner;
        Remedy remedy;
    };

    void Report(const QObject* owner, const RunTimeError& error);
    void ShowReport(const QObject* owner, const QString& reason, const Remedy& remedy = {});
    void BoxClosed();

    MessageBoxes& m_boxes;
    bool m_reporting = false;
    QList<Untold> m_untold;  // to be reported after the current one
    std::function<void()> m_whenQuiet;
};

}  // namespace tickwell
