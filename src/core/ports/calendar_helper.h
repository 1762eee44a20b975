// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDate>
#include <QList>
#include <QString>
#include <optional>

namespace tickwell {

/// Runs tickwell-ical, which reads iCalendar files, without waiting for it. One file at a time.
class CalendarHelper {
public:
    virtual ~CalendarHelper() = default;

    /// Starts reading `file`, and ends an older reading. The occurrences from `first` to the day before `end`
    /// of the events with these numbers are wanted. False if the helper cannot be started.
    virtual bool Start(const QString& file, QDate first, QDate end, const QList<int>& events) = 0;

    /// What it has written since the last call, up to some 100 KiB; see its protocol.h.
    virtual QByteArray Read() = 0;

    /// Its exit code, -1 if it crashed, once it has ended and all is read; nullopt until then.
    virtual std::optional<int> ExitCode() = 0;

    /// Kills it.
    virtual void End() = 0;
};

}  // namespace tickwell
