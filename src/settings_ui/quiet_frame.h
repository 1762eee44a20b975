// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QTimeEdit>
#include <vector>

#include "settings_ui/settings_draft.h"
#include "settings_ui/settings_parts.h"

namespace tickwell::settings_ui {

/// The frame of page お知らせ for the times at which sounds are left out.
class QuietFrame : public QGroupBox {
    Q_OBJECT

public:
    /// The references in the parts and the draft outlive the frame.
    QuietFrame(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent);

    /// Shows the draft.
    void Form_Load();

private:
    QTimeEdit* MakeTime(const QString& name, const QString& spoken, qint32 QuietSettings::*field);
    void Arrange();
    void EnableControls();

    Handlers& m_handlers;
    SettingsDraft& m_draft;
    // Owned by the frame
    std::vector<QCheckBox*> m_flags;
    QTimeEdit* m_from;
    QTimeEdit* m_to;
    std::vector<QWidget*> m_hours;  // enabled if there are quiet hours
};

}  // namespace tickwell::settings_ui
