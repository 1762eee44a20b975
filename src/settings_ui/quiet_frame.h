// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <array>
#include <vector>

#include "controls/number_box.h"
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
    /// The controls of one end of the quiet hours.
    struct Time {
        controls::NumberBox* hour = nullptr;
        controls::NumberBox* minute = nullptr;
        qint32 QuietSettings::*field = nullptr;
    };

    controls::NumberBox* MakeNumber(int number, int last, const QString& spoken, std::size_t time);
    Time MakeTime(std::size_t time, const QString& spoken, qint32 QuietSettings::*field);
    void ShowTime(const Time& time);
    void AddTime(QHBoxLayout& row, const Time& time, int label, const QString& after);
    void Arrange();
    void EnableControls();

    Handlers& m_handlers;
    SettingsDraft& m_draft;
    // Owned by the frame
    std::vector<QCheckBox*> m_flags;
    std::array<Time, 2> m_times;
    std::vector<QWidget*> m_hours;  // enabled if there are quiet hours
};

}  // namespace tickwell::settings_ui
