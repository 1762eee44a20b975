// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <vector>

#include "core/ports/printer.h"
#include "core/ports/timer.h"
#include "platform/processes/child_process.h"

namespace tickwell::platform {

/// The default printer, used through tickwell-print: this process never talks to the print service.
class HelperPrinter : public Printer {
public:
    /// `helper`: the path of tickwell-print. `timers` outlive this object and run in real time, as print
    /// services do.
    HelperPrinter(RealTimerSource& timers, QString helper);

    /// Documents that were not cancelled are still printed.
    ~HelperPrinter() override;
    HelperPrinter(const HelperPrinter&) = delete;
    HelperPrinter& operator=(const HelperPrinter&) = delete;

    void Print(const PrintJob& job, std::function<void(const PrintNews&)> onNews) override;
    void Cancel() override;

private:
    struct Document;

    void Tick();
    void AdjustTimer();

    QString m_helper;
    ChildReaper m_reaper;                                // outlives the documents
    std::vector<std::unique_ptr<Document>> m_documents;  // all but the last one are accepted
    int m_interval;                                      // ms
    std::unique_ptr<Timer> m_timer;                      // runs while there is a helper
};

}  // namespace tickwell::platform
