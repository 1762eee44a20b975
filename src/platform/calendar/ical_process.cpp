// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/calendar/ical_process.h"

namespace tickwell::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kReadAtOnce = qsizetype{128} * 1024;  // bytes: some hundred events, a few milliseconds

QString Compact(QDate date) {
    return date.toString(u"yyyyMMdd"_s);
}

}  // namespace

bool IcalProcess::Start(const QString& file, QDate first, QDate end, const QList<int>& events) {
    QByteArray numbers;
    for (const int event : events) {
        numbers += QByteArray::number(event) + '\n';
    }
    m_reaper.Reap();
    return m_child.Start(m_program, {file, Compact(first), Compact(end)}, numbers);
}

QByteArray IcalProcess::Read() {
    return m_child.Read(kReadAtOnce);
}

std::optional<int> IcalProcess::ExitCode() {
    return m_child.ExitCode();
}

void IcalProcess::End() {
    m_child.End();
}

}  // namespace tickwell::platform
