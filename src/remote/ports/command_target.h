// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include "remote/vocabulary.h"

namespace tickwell::remote {

/// The running program as other programs control it. No call changes what the program stores. All functions
/// throw RefusedCall, having changed nothing, or RunTimeError.
class CommandTarget {
public:
    virtual ~CommandTarget() = default;

    /// Shows a function of the main window; `function` is a valid number.
    virtual void Show(qint32 function) = 0;

    /// Returns a reading in milliseconds: the lap's for Lap, otherwise the current one. Refused if the
    /// stopwatch is in the wrong state.
    virtual qint32 RunStopwatch(StopwatchAction action) = 0;

    /// Sets and starts a timer; `milliseconds` fulfils IsTimerDuration, `name` IsTimerName. Returns its
    /// number, which is always 1, because there is one timer. Refused while it is running.
    virtual quint32 StartTimer(qint32 milliseconds, const QString& name) = 0;

    /// The names that the main window announces today, one per line.
    virtual QStringList Today() = 0;

    /// Brings the main window to the front, and opens its menu if requested.
    virtual void ComeForward(bool withMenu) = 0;
};

}  // namespace tickwell::remote
