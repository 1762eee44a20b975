// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "core/handlers.h"
#include "core/ports/message_boxes.h"
#include "core/ports/printer.h"

namespace tickwell {

/// Prints the lap report and tells the user what became of it: a box with 「中止」 while the print service
/// does not answer, and a box with the reason if nothing is printed.
class ReportPrinting {
public:
    /// All outlive this object. `owner`: the window that prints.
    ReportPrinting(Printer& printer, MessageBoxes& boxes, Handlers& handlers, const QObject* owner)
        : m_printer(printer), m_boxes(boxes), m_handlers(handlers), m_owner(owner) {}

    /// Cancels a print if the user was told that it waits; any other goes on.
    ~ReportPrinting();
    ReportPrinting(const ReportPrinting&) = delete;
    ReportPrinting& operator=(const ReportPrinting&) = delete;

    /// Prints and returns at once. `onFree` is called once, when the print is accepted, failed or cancelled:
    /// the next one can begin. Not to be called before that.
    void Print(const PrintJob& job, std::function<void()> onFree);

private:
    void Take(const PrintNews& news);
    void ShowWaiting();
    void Free();

    Printer& m_printer;
    MessageBoxes& m_boxes;
    Handlers& m_handlers;
    const QObject* m_owner;
    std::function<void()> m_onFree;                                  // null while nothing is being printed
    std::unique_ptr<OpenBox> m_waiting;                              // null unless the user was told to wait
    std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);  // news can come after this object's end
};

}  // namespace tickwell
