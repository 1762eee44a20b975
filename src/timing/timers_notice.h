// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QListWidget>

#include "core/handlers.h"
#include "timing/timer_list.h"

namespace tickwell::timing {

/// What the notice uses; the handlers outlive it.
struct TimersNoticeParts {
    Handlers& handlers;
    std::function<void(const QList<qint64>& ids)> tellAgain;  ///< 「5分後にもう一度」, for the timers listed
    std::function<void()> closed;
};

/// The notice that timers of the list have ended: all that ended since it was opened, one line each. It is in
/// front of all other windows and blocks none.
class TimersNotice : public QDialog {
    Q_OBJECT

public:
    TimersNotice(TimersNoticeParts parts, QWidget* parent);

    /// Adds lines, and shows the notice or brings it to the front.
    void Tell(const QList<TimerEnd>& ends);

    /// Called however the window is closed.
    void done(int result) override;

private:
    void LayOut();
    void FitList();

    TimersNoticeParts m_parts;
    QListWidget* m_lines;  // owned by the window
    QList<qint64> m_ids;
};

}  // namespace tickwell::timing
