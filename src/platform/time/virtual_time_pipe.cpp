// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/time/virtual_time_pipe.h"

#include <unistd.h>

#include <array>

namespace tickwell::platform {

VirtualTimePipe::VirtualTimePipe(VirtualTime& time, int readFrom, int writeTo)
    : m_time(time), m_readFrom(readFrom), m_writeTo(writeTo), m_notifier(readFrom, QSocketNotifier::Read) {
    connect(&m_notifier, &QSocketNotifier::activated, this, &VirtualTimePipe::Read);
}

void VirtualTimePipe::Read() {
    std::array<char, 4096> buffer{};
    const ssize_t count = read(m_readFrom, buffer.data(), buffer.size());
    if (count <= 0) {  // the other side has closed the pipe: time no longer advances
        m_notifier.setEnabled(false);
        return;
    }
    m_received.append(buffer.data(), count);
    for (qsizetype end = m_received.indexOf('\n'); end >= 0; end = m_received.indexOf('\n')) {
        const QByteArray line = m_received.first(end);
        m_received.remove(0, end + 1);
        Take(line);
    }
}

void VirtualTimePipe::Take(const QByteArray& line) {
    const QByteArray word = line.left(line.indexOf(' '));
    const QByteArray rest = line.mid(word.size()).trimmed();
    bool isNumber = false;
    const qint64 milliseconds = rest.toLongLong(&isNumber);
    const QDateTime wall = QDateTime::fromString(QString::fromLatin1(rest), Qt::ISODateWithMs);
    if (word == "advance" && isNumber && milliseconds >= 0 && !m_left) {
        m_left = milliseconds;
        Go();
    } else if (line == "next" && m_time.UntilNext() && !m_left) {
        m_time.Step(*m_time.UntilNext());
        AnswerTime();
    } else if (word == "suspend" && isNumber && milliseconds >= 0) {
        m_time.Suspend(milliseconds);
        AnswerTime();
    } else if (word == "zone" && !rest.isEmpty() && m_time.SetZone(rest)) {
        AnswerTime();
    } else if (word == "wall" && wall.isValid()) {
        m_time.SetNow(wall);
        AnswerTime();
    } else {
        Answer("error " + line);
    }
}

void VirtualTimePipe::Go() {
    m_left = m_time.Step(*m_left);
    if (m_left) {
        QMetaObject::invokeMethod(this, &VirtualTimePipe::Go, Qt::QueuedConnection);
    } else {
        AnswerTime();
    }
}

void VirtualTimePipe::AnswerTime() {
    Answer("ok " + m_time.Now().toString(Qt::ISODateWithMs).toLatin1() + ' ' +
           QByteArray::number(m_time.Tick()));
}

void VirtualTimePipe::Answer(const QByteArray& text) {
    const QByteArray line = text + '\n';
    if (write(m_writeTo, line.constData(), static_cast<std::size_t>(line.size())) != line.size()) {
        m_notifier.setEnabled(false);  // the other process has stopped listening
    }
}

}  // namespace tickwell::platform
