// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QPushButton>
#include <QTabWidget>

#include "settings_ui/calendar_page.h"
#include "settings_ui/chime_page.h"
#include "settings_ui/clock_page.h"
#include "settings_ui/corrections_page.h"
#include "settings_ui/database_page.h"
#include "settings_ui/face_page.h"
#include "settings_ui/notices_page.h"
#include "settings_ui/remote_page.h"
#include "settings_ui/roll_page.h"
#include "settings_ui/settings_draft.h"
#include "settings_ui/settings_parts.h"
#include "settings_ui/text_page.h"

namespace tickwell::settings_ui {

/// The settings dialog. It edits a draft, which OK and 適用 copy to the program. They also store whether the
/// program starts at login, and with savesImmediately the settings file. Application-modal and opened with
/// show(): the display function must not be changed elsewhere in the meantime.
class Form2 : public QDialog {
    Q_OBJECT

public:
    explicit Form2(const SettingsParts& parts, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void Form_Load();
    void ShowTodaysCalendar();
    void Command1_Click();
    void Command3_Click();
    void Command8_Click();
    bool Apply();
    void ApplyAutostart();
    int HelpOfPage() const;
    QLayout* MakeButtons();

    SettingsParts m_parts;
    SettingsDraft m_draft;
    QTabWidget* m_pages;  // owned by the dialog, with its pages
    TextPage* m_textPage;
    ClockPage* m_clockPage;
    RollPage* m_rollPage;
    ChimePage* m_chimePage;
    CorrectionsPage* m_correctionsPage;
    CalendarPage* m_calendarPage;
    FacePage* m_facePage;
    RemotePage* m_remotePage;
    NoticesPage* m_noticesPage;
    DatabasePage* m_databasePage;
};

}  // namespace tickwell::settings_ui
