// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/volume_frame.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <algorithm>

#include "controls/control_making.h"
#include "media/sound_playback.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

namespace {

// percent
constexpr int kLoudest = 100;
constexpr int kVolumeStep = 5;

}  // namespace

VolumeFrame::VolumeFrame(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QGroupBox(u"音量"_s, parent),
      m_parts(parts),
      m_draft(draft),
      m_slider(controls::Named(new QSlider(Qt::Horizontal, this), u"Slider60"_s, u"時報とタイマーの音量"_s)),
      m_percent(controls::Named(new controls::NumberBox(u"UpDown60"_s, u"Text60"_s, this), u"UpDown60"_s,
                                u"時報とタイマーの音量（パーセント）"_s)),
      m_listen(controls::MakeButton(u"Listen60"_s, u"聞く"_s, this, parts.handlers,
                                    [this] { Listen60_Click(); })) {
    setObjectName(u"Frame61"_s);
    m_slider->setRange(0, kLoudest);
    m_slider->setPageStep(kVolumeStep);
    m_percent->setRange(0, kLoudest);
    m_percent->setSingleStep(kVolumeStep);
    m_percent->setSuffix(u" %"_s);
    m_listen->setAutoDefault(false);
    m_listen->setAccessibleDescription(u"時報をこの音量で一度鳴らします"_s);
    m_parts.handlers.Connect(m_slider, &QSlider::valueChanged, this,
                             [this] { Slider60_Change(m_slider->value()); });
    m_parts.handlers.Connect(m_percent, &QSpinBox::valueChanged, this,
                             [this] { UpDown60_Change(m_percent->value()); });
    Arrange();
}

void VolumeFrame::Arrange() {
    auto* label = controls::MakeLabel(u"Label62"_s, u"時報とタイマーの音量"_s, this);
    label->setBuddy(m_slider);
    auto* row = new QHBoxLayout(this);
    row->addWidget(label);
    row->addWidget(m_slider, 1);
    row->addWidget(m_percent);
    row->addWidget(m_listen);
}

void VolumeFrame::Form_Load() {
    const int percent = std::clamp(m_draft.further.quiet.volume, 0, kLoudest);
    const QSignalBlocker quietSlider(m_slider);  // a volume out of range stays in the draft
    const QSignalBlocker quietBox(m_percent);
    m_slider->setValue(percent);
    m_percent->setValue(percent);
}

/// The sound is chosen on another page.
void VolumeFrame::showEvent(QShowEvent* event) {
    m_listen->setEnabled(media::SoundFile(m_draft.settings.chimeSound).has_value() &&
                         m_parts.operations.listen != nullptr);
    QGroupBox::showEvent(event);
}

/// Each shows the other's value; only the one that the user operates tells of a change.
void VolumeFrame::Slider60_Change(int percent) {
    m_draft.further.quiet.volume = percent;
    const QSignalBlocker quiet(m_percent);
    m_percent->setValue(percent);
}

void VolumeFrame::UpDown60_Change(int percent) {
    m_draft.further.quiet.volume = percent;
    const QSignalBlocker quiet(m_slider);
    m_slider->setValue(percent);
}

void VolumeFrame::Listen60_Click() {
    m_parts.operations.listen(m_draft.settings.chimeSound, m_draft.further.quiet.volume);
}

}  // namespace tickwell::settings_ui
