// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "timing/list_notice.h"

namespace tickwell::timing {

/// What the notice uses; handlers and timers outlive it.
struct AlarmNoticeParts {
    Handlers& handlers;
    TimerSource& timers;
    std::function<void(const QList<qint64>& ids)> snooze;  ///< 「5分後にもう一度」, for the alarms that rang
    std::function<void()> closed;
};

/// A line of the notice.
struct AlarmLine {
    qint64 id = 0;
    QString text;
    int snoozeMinutes = 0;  ///< 0 if it was too late to ring
};

/// The notice of the alarms: all that rang or were missed since it was opened.
class AlarmNotice : public ListNotice {
    Q_OBJECT

public:
    AlarmNotice(AlarmNoticeParts parts, QWidget* parent);

    /// Adds lines, each in place of an earlier one of its alarm, and shows the notice or brings it to the
    /// front.
    void Tell(const QList<AlarmLine>& lines);

private:
    void Add(const AlarmLine& line);
    void ShowSnooze();
    void SnoozeAll();

    AlarmNoticeParts m_parts;
    std::vector<AlarmLine> m_told;  // as in the list
};

}  // namespace tickwell::timing
