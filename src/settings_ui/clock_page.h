// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGroupBox>
#include <QWidget>

#include "settings_ui/option_array.h"
#include "settings_ui/settings_draft.h"
#include "settings_ui/settings_parts.h"

namespace tickwell::settings_ui {

/// Page "時計" of the settings: language and styles of date and time.
class ClockPage : public QWidget {
    Q_OBJECT

public:
    /// All references outlive this object.
    ClockPage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent);

    void Form_Load();

private:
    QGroupBox* MakeFrame(const QString& name, const QString& caption, const OptionArray& options);
    void Option3_Click(qint32 index);
    void ShowLanguage();

    SettingsDraft& m_draft;
    OptionArray m_languageOptions;
    OptionArray m_yearOptions;
    OptionArray m_styleOptions;
    OptionArray m_hourOptions;
    QGroupBox* m_languageFrame;  // the frames are owned by the page
    QGroupBox* m_yearFrame;
    QGroupBox* m_hourFrame;
    QGroupBox* m_styleFrame;
};

}  // namespace tickwell::settings_ui
