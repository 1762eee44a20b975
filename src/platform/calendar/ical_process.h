// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/calendar_helper.h"
#include "platform/processes/child_process.h"

namespace tickwell::platform {

/// tickwell-ical as a child process. It is started only when a file is read: nothing else loads its library.
class IcalProcess : public CalendarHelper {
public:
    /// `program`: the path of tickwell-ical.
    explicit IcalProcess(QString program) : m_program(std::move(program)) {}

    bool Start(const QString& file, QDate first, QDate end, const QList<int>& events) override;
    QByteArray Read() override;
    std::optional<int> ExitCode() override;
    void End() override;

private:
    QString m_program;
    ChildReaper m_reaper;  // outlives the child
    ChildProcess m_child{m_reaper};
};

}  // namespace tickwell::platform
