// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>
#include <functional>

#include "core/handlers.h"
#include "core/ports/clock.h"

namespace tickwell::timing {

/// Takes laps out of the program: to the clipboard, and to files that the user chooses.
class LapExport {
public:
    /// All outlive this object. `window`: owns the dialogs.
    LapExport(const Clock& clock, Handlers& handlers, QWidget& window)
        : m_clock(clock), m_handlers(handlers), m_window(window) {}

    /// Puts the list, with lines separated by CR LF, into the clipboard.
    static void Copy(const QString& list);

    /// Asks for a file, and writes the list to it as it is now. A failure is reported.
    void Save(const QString& list);

    /// Asks for the file of a PDF document; `chosen` is called with its path unless the user cancels.
    void ChoosePdf(std::function<void(const QString& path)> chosen);

private:
    struct Kind;

    void Choose(const Kind& kind, std::function<void(const QString& path)> chosen);

    const Clock& m_clock;
    Handlers& m_handlers;
    QWidget& m_window;
    QString m_folder;  // of the last file; empty before the first one
};

}  // namespace tickwell::timing
