// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "core/handlers.h"
#include "core/ports/message_boxes.h"
#include "core/ports/printer.h"

namespace tickwell::timing {

/// Prints the lap report and informs the user: with a box with 「中止」 while the print service does not
/// respond, and with a box with the reason if printing fails. If there is no printer, that box offers to keep
/// the report as a PDF document.
class ReportPrinting {
public:
    /// All outlive this object. `owner`: the window that prints. `keep`: called with a job that could not be
    /// printed, if the user wants to keep it; can print it to a file.
    ReportPrinting(Printer& printer, MessageBoxes& boxes, Handlers& handlers, const QObject* owner,
                   std::function<void(const PrintJob& job)> keep)
        : m_printer(printer), m_boxes(boxes), m_handlers(handlers), m_owner(owner), m_keep(std::move(keep)) {}

    /// Cancels the print if the waiting box is open; otherwise the print continues.
    ~ReportPrinting();
    ReportPrinting(const ReportPrinting&) = delete;
    ReportPrinting& operator=(const ReportPrinting&) = delete;

    /// Starts to print and returns immediately. `onFree` is called once, when the print was accepted, failed
    /// or was cancelled and the next one can begin. Not to be called before that.
    void Print(const PrintJob& job, std::function<void()> onFree);

    /// Whether the next print cannot begin yet.
    bool IsBusy() const { return m_onFree != nullptr; }

private:
    void Take(const PrintNews& news);
    void ShowWaiting();
    void OfferToKeep(const QString& reason);
    void Free();

    Printer& m_printer;
    MessageBoxes& m_boxes;
    Handlers& m_handlers;
    const QObject* m_owner;
    std::function<void(const PrintJob& job)> m_keep;
    PrintJob m_job;                                                  // the last one
    std::function<void()> m_onFree;                                  // null unless a print is in progress
    std::unique_ptr<OpenBox> m_waiting;                              // null unless the waiting box is open
    std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);  // reports can arrive after destruction
};

}  // namespace tickwell::timing
