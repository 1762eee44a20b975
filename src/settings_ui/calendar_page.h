// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <functional>
#include <vector>

#include "settings_ui/option_array.h"
#include "settings_ui/settings_draft.h"
#include "settings_ui/settings_parts.h"

namespace tickwell::settings_ui {

/// Page "暦" of the settings: days off, eras, the old calendar. The official list of days off is read and
/// removed at once; everything else is part of the draft.
class CalendarPage : public QWidget {
    Q_OBJECT

public:
    /// All references outlive this object. `chosen` is called after the button at the top has changed the
    /// draft, which may include settings of other pages.
    CalendarPage(const SettingsParts& parts, SettingsDraft& draft, std::function<void()> chosen,
                 QWidget* parent);

    void Form_Load();

private:
    QWidget* MakeHolidayFrame();
    QWidget* MakeEraFrame();
    QWidget* MakeOldCalendarFrame();
    void Command9_Click();
    void Command10_Click();
    void Command11_Click();
    void ReplaceList(const QString& path);
    void ShowListStatus();

    SettingsParts m_parts;
    SettingsDraft& m_draft;
    std::function<void()> m_chosen;
    OptionArray m_holidayOptions;
    OptionArray m_eraOptions;
    OptionArray m_underOptions;
    QLabel* m_listStatus;  // these are owned by the page
    QPushButton* m_replaceList;
    QPushButton* m_removeList;
    std::vector<QCheckBox*> m_checks;  // by the rows of OldCalendarFlags
};

}  // namespace tickwell::settings_ui
