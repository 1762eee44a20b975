// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QListWidget>
#include <QPushButton>
#include <vector>

#include "core/handlers.h"
#include "timing/first_keys.h"

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

/// The notice of the alarms: all that rang or were missed since it was opened, one line each. It is in front
/// of all other windows and blocks none, and ignores keys at first.
class AlarmNotice : public QDialog {
    Q_OBJECT

public:
    AlarmNotice(AlarmNoticeParts parts, QWidget* parent);

    /// Adds lines, each in place of an earlier one of its alarm, and shows the notice or brings it to the
    /// front.
    void Tell(const QList<AlarmLine>& lines);

    /// Called however the window is closed.
    void done(int result) override;

private:
    void LayOut();
    void Add(const AlarmLine& line);
    void ShowSnooze();
    void FitList();
    void SnoozeAll();

    AlarmNoticeParts m_parts;
    FirstKeys m_firstKeys;
    QListWidget* m_list;  // the controls are owned by the window
    QPushButton* m_confirm;
    QPushButton* m_again;
    std::vector<AlarmLine> m_lines;  // as in the list
};

}  // namespace tickwell::timing
