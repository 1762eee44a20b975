// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "timing/list_notice.h"
#include "timing/timer_list.h"

namespace tickwell::timing {

/// What the notice uses; handlers and timers outlive it.
struct TimersNoticeParts {
    Handlers& handlers;
    TimerSource& timers;
    std::function<void(const QList<qint64>& ids)> tellAgain;  ///< 「5分後にもう一度」, for the timers listed
    std::function<void()> closed;
};

/// The notice that timers of the list have ended: all that ended since it was opened.
class TimersNotice : public ListNotice {
    Q_OBJECT

public:
    TimersNotice(TimersNoticeParts parts, QWidget* parent);

    /// Adds lines, and shows the notice or brings it to the front.
    void Tell(const QList<TimerEnd>& ends);

private:
    TimersNoticeParts m_parts;
    QList<qint64> m_ids;
};

}  // namespace tickwell::timing
