// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cups/cups.h>

#include <memory>

#include "print_helper/report_document.h"
#include "print_helper/spool.h"

namespace tickwell::print_helper {

/// The user's default printer. Every call waits for the print service, up to kPatienceSeconds.
class CupsQueue : public Spool {
public:
    /// Connects to the service and finds the default printer. Must be called first.
    Failure Open();

    /// The printer's default paper; A4 if it reports none.
    Paper DefaultPaper();

    Failure CreateJob(const std::string& title) override;
    Failure StartDocument() override;
    Failure Write(std::string_view bytes) override;
    Failure FinishDocument() override;
    void CancelJob() override;

    /// Follows the created job until it ends, for up to kFollowSeconds. Returns the reason if the queue
    /// aborted it.
    Failure FollowJob();

    /// The answer for an accepted job.
    Answer Accepted() const;

private:
    struct Closer {
        void operator()(http_t* connection) const { httpClose(connection); }
        void operator()(cups_dest_t* printer) const { cupsFreeDests(1, printer); }
        void operator()(cups_dinfo_t* info) const { cupsFreeDestInfo(info); }
        void operator()(ipp_t* response) const { ippDelete(response); }
    };
    using Response = std::unique_ptr<ipp_t, Closer>;

    Answer RefusalNow();
    std::string PrinterStateMessage();
    Response Ask(ipp_op_t operation, int job, const char* const* attributes, int count);
    const char* DefaultPaperName();
    Failure StateOfJob(bool& hasEnded);

    std::unique_ptr<http_t, Closer> m_connection;
    std::unique_ptr<cups_dest_t, Closer> m_printer;
    std::unique_ptr<cups_dinfo_t, Closer> m_info;
    int m_job = 0;
};

}  // namespace tickwell::print_helper
