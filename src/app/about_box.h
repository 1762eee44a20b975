// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <memory>

#include "core/handlers.h"
#include "core/ports/help_viewer.h"
#include "core/ports/message_boxes.h"
#include "core/ports/program_starter.h"
#include "core/ports/timer.h"
#include "core/program_folder.h"

namespace tickwell::app {

/// References that the about box works with; all outlive it.
struct AboutBoxParts {
    TimerSource& timers;
    Handlers& handlers;
    MessageBoxes& boxes;
    HelpViewer& help;
    ProgramStarter& programs;
    ProgramFolder folder;
};

/// The about box: name and version, rotating messages of thanks, system information, contact. Opened with
/// show(), each time with the first message. Enter, Esc and `cmdOK` close it.
class frmAbout : public QDialog {
    Q_OBJECT

public:
    explicit frmAbout(const AboutBoxParts& parts, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void Form_Load();
    void Timer1_Timer();
    void cmdSysInfo_Click();
    void Command2_Click();
    void cmdCopy_Click();

    QWidget* MakeText();
    QPushButton* MakeButton(const QString& name, const QString& caption, void (frmAbout::*clicked)());
    void ShowThanks(const QString& message);

    AboutBoxParts m_parts;
    QString m_shown;  // the current message, before ThanksLines
    QLabel* m_title;
    QLabel* m_version;
    QLabel* m_thanks;
    QPushButton* m_copy = nullptr;
    std::unique_ptr<Timer> m_thanksTimer;
};

}  // namespace tickwell::app
