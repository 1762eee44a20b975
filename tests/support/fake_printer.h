// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <utility>

#include "core/ports/printer.h"

namespace tickwell {

/// A printer that records its jobs. The test reports on the last one; it is accepted at once unless `accepts`
/// is cleared.
class FakePrinter : public Printer {
public:
    void Print(const PrintJob& job, std::function<void(const PrintNews&)> onNews) override {
        jobs.append(job);
        m_onNews = std::move(onNews);
        isPrinting = true;
        isDelayed = false;
        if (accepts) {
            Tell({PrintStage::Accepted, {}});
        }
    }

    void Cancel() override {
        ++cancelled;
        isPrinting = false;
    }

    /// Reports news on the last job.
    void Tell(const PrintNews& news) {
        isPrinting = isPrinting && news.stage == PrintStage::Delayed;
        isDelayed = isPrinting;
        m_onNews(news);
    }

    bool accepts = true;
    bool isPrinting = false;  ///< the last job is neither accepted, failed nor cancelled
    bool isDelayed = false;   ///< and was reported as delayed
    int cancelled = 0;
    QList<PrintJob> jobs;

private:
    std::function<void(const PrintNews&)> m_onNews;
};

}  // namespace tickwell
