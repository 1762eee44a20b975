// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace tickwell {

/// A document for the printer.
struct PrintJob {
    QString title;      ///< the job name in the print queue
    QStringList lines;  ///< plain text, without line breaks; a tab begins the second column
    QString file = {};  ///< if not empty: the absolute path of the PDF document to write instead of printing

    bool operator==(const PrintJob&) const = default;
};

/// The progress of a print job.
enum class PrintStage {
    Delayed,   ///< the print service has not answered for a second; reported at most once
    Accepted,  ///< the print queue or the file holds the whole document
    Failed,    ///< nothing is printed; can follow Accepted if the queue aborts the job within two minutes
};

struct PrintNews {
    PrintStage stage = PrintStage::Accepted;
    QString reason;          ///< if Failed: why, in sentences for the user
    bool noPrinter = false;  ///< if Failed: because there is no printer or no print service

    bool operator==(const PrintNews&) const = default;
};

/// The user's default printer.
class Printer {
public:
    virtual ~Printer() = default;

    /// Prints a document asynchronously. `onNews` is called later, from the event loop. One document at a
    /// time: the next one after Accepted, Failed or Cancel.
    virtual void Print(const PrintJob& job, std::function<void(const PrintNews&)> onNews) = 0;

    /// Cancels a print that is neither Accepted nor Failed; its `onNews` is no longer called.
    virtual void Cancel() = 0;
};

}  // namespace tickwell
