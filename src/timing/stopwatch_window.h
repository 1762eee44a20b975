// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QPlainTextEdit>
#include <QPushButton>

#include "controls/announcer.h"
#include "core/handlers.h"
#include "core/ports/clock.h"
#include "core/ports/help_viewer.h"
#include "timing/lap_export.h"
#include "timing/report_printing.h"
#include "timing/stopwatch_panel.h"

namespace tickwell::timing {

/// What the stopwatch window uses; all outlive it.
struct StopwatchWindowParts {
    StopwatchPanel& panel;
    const FurtherSettings& further;
    const Clock& clock;
    Handlers& handlers;
    MessageBoxes& boxes;
    Printer& printer;
    HelpViewer& help;
    std::function<void()>
        enterFolder;  ///< makes the program's folder the current one, or throws RunTimeError
    QString version;  ///< of the program, such as "2.0.0"
};

/// The stopwatch window: start and stop, laps, their list, and what becomes of it. Only a view: the stopwatch
/// continues after it is closed.
class StopForm : public QDialog {
    Q_OBJECT

public:
    StopForm(StopwatchWindowParts parts, QWidget* parent);

    /// Makes the list wide enough for intervals if it has or may get some. To be called before the window is
    /// placed.
    void MakeRoom();

    /// Shows the window, or brings it to the front if it is open.
    void BringUp();

    /// If the window is open, shows the state after another program has changed it.
    void Refresh();

    /// Called whenever the window is closed, in any way.
    void done(int result) override;

private:
    void LayOut();
    void Form_Load();
    void Form_Unload();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void KeepAsPdf(PrintJob job);
    void ShowState();
    void ShowCaptions();
    void AnnounceLastLine();
    void ShowList();
    void Print();
    void EnablePrinting();
    void EnableExport(bool hasLaps);

    StopwatchWindowParts m_parts;
    LapExport m_export;
    ReportPrinting m_printing;
    QWidget* m_focusInstead = nullptr;  // received the focus when the print button was disabled
    QPushButton* m_startButton;         // the controls are owned by the window
    QPushButton* m_lapButton;
    QPushButton* m_printButton;
    QPushButton* m_helpButton;
    QPushButton* m_copyButton;
    QPushButton* m_saveButton;
    QPlainTextEdit* m_lapList;
    controls::Announcer* m_announcer;
    int m_shownList = 0;          // ListNumber of the contents of m_lapList
    qsizetype m_shownLength = 0;  // how much of that list m_lapList contains
};

}  // namespace tickwell::timing
