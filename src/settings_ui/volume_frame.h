// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGroupBox>
#include <QPushButton>
#include <QShowEvent>
#include <QSlider>

#include "controls/number_box.h"
#include "settings_ui/settings_draft.h"
#include "settings_ui/settings_parts.h"

namespace tickwell::settings_ui {

/// The frame of page お知らせ for the volume of time signal and timer.
class VolumeFrame : public QGroupBox {
    Q_OBJECT

public:
    /// The references in the parts and the draft outlive the frame.
    VolumeFrame(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent);

    /// Shows the draft.
    void Form_Load();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Arrange();
    void Slider60_Change(int percent);
    void UpDown60_Change(int percent);
    void Listen60_Click();

    SettingsParts m_parts;
    SettingsDraft& m_draft;
    QSlider* m_slider;  // these are owned by the frame
    controls::NumberBox* m_percent;
    QPushButton* m_listen;
};

}  // namespace tickwell::settings_ui
