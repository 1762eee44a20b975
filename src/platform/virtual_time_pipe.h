// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <optional>

#include "platform/virtual_time.h"

namespace tickwell {

/// Lets another process turn the program's time over a pair of pipes, a line a command:
///   advance MS        lets time pass, with every timer due in it
///   next              jumps to the next timer due
///   suspend MS        lets the machine sleep: time passes, and no timer is due in it
///   wall 1998-10-03T23:59:57   sets the wall clock alone
///   zone America/New_York      takes the machine to another zone: the moment is the same, the wall clock is
///   not
/// Each is answered with "ok WALL TICK" once it is carried out, or with "error" and the line. Between two
/// timers the event loop runs on, so that windows paint as they would.
class VirtualTimePipe : public QObject {
    Q_OBJECT

public:
    /// The descriptors stay the caller's. `time` outlives this object.
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
    std::optional<qint64> m_left;  // ms of the command under way
};

}  // namespace tickwell
