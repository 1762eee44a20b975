// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QSpinBox>
#include <vector>

#include "settings_ui/settings_draft.h"
#include "settings_ui/settings_parts.h"

namespace tickwell::settings_ui {

/// The frame of page お知らせ for notices of days.
class DayNoticesFrame : public QGroupBox {
    Q_OBJECT

public:
    /// The references in the parts and the draft outlive the frame.
    DayNoticesFrame(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent);

    /// Shows the draft.
    void Form_Load();

private:
    void MakeDaysAhead(Handlers& handlers);
    void MakeTime(Handlers& handlers);
    void Arrange();
    QLayout* TimeRow();
    void ChooseDaysAhead(int days, bool chosen);
    void EnableControls();

    SettingsDraft& m_draft;
    // Owned by the frame
    std::vector<QCheckBox*> m_flags;
    std::vector<QCheckBox*> m_daysAhead;
    QSpinBox* m_hour;  // a field for the time would tell screen readers no value
    QSpinBox* m_minute;
    std::vector<QWidget*> m_dependent;  // enabled if days are told
};

}  // namespace tickwell::settings_ui
