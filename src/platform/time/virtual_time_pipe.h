// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <optional>

#include "platform/time/virtual_time.h"

namespace tickwell::platform {

/// Lets another process control the program's time over a pair of pipes, one command per line:
///   advance MS        advances time and delivers every timer due
///   next              advances to the next timer due
///   suspend MS        suspends the machine: time advances, timers do not
///   wall 1998-10-03T23:59:57   sets the wall clock only
///   zone America/New_York      changes the time zone
/// The reply is "ok WALL TICK" once the command is done, or "error" and the line. Between two timers the
/// event loop runs, so that windows are painted.
class VirtualTimePipe : public QObject {
    Q_OBJECT

public:
    /// The caller keeps ownership of the descriptors. `time` outlives this object.
    VirtualTimePipe(VirtualTime& time, int readFrom, int writeTo);

private:
    void Read();
    void Take(const QByteArray& line);
    void Go();
    void Answer(const QByteArray& text);
    void AnswerTime();

    VirtualTime& m_time;
    int m_readFrom;
    int m_writeTo;
    QSocketNotifier m_notifier;
    QByteArray m_received;
    std::optional<qint64> m_left;  // remaining ms of the running `advance`; nullopt if there is none
};

}  // namespace tickwell::platform
