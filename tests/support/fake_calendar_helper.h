// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/calendar_helper.h"

namespace tickwell {

/// Writes what the test says, as if tickwell-ical had read a file.
struct FakeCalendarHelper : CalendarHelper {
    QByteArrayList output;  ///< one element per call of Read
    int code = 0;
    bool starts = true;
    bool hangs = false;  ///< never ends
    QString file;
    QDate first;
    QDate end;
    QList<int> events;
    int started = 0;
    int ended = 0;

    bool Start(const QString& path, QDate from, QDate to, const QList<int>& wanted) override {
        file = path;
        first = from;
        end = to;
        events = wanted;
        m_read = 0;
        ++started;
        return starts;
    }
    QByteArray Read() override { return m_read < output.size() ? output.at(m_read++) : QByteArray(); }
    std::optional<int> ExitCode() override {
        return hangs || m_read < output.size() ? std::nullopt : std::optional(code);
    }
    void End() override { ++ended; }

private:
    qsizetype m_read = 0;
};

}  // namespace tickwell
