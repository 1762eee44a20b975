// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/timer_window.h"

#include <QScopedValueRollback>
#include <QVBoxLayout>
#include <array>
#include <utility>

#include "controls/access_keys.h"
#include "controls/bring_forward.h"
#include "controls/control_making.h"
#include "controls/help_key.h"
#include "controls/number_box.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostHours = 23;
constexpr int kMostMinutes = 59;
constexpr int kMostSeconds = 59;

}  // namespace

TimerForm::TimerForm(TimerWindowParts parts, QWidget* parent)
    : QDialog(parent),
      m_parts(std::move(parts)),
      m_durationFrame(controls::Named(new QGroupBox(u"タイマーの指定"_s, this), u"Frame1"_s)),
      m_hours(new controls::NumberBox(u"UpDown1"_s, u"Text1"_s, m_durationFrame)),
      m_minutes(new controls::NumberBox(u"UpDown2"_s, u"Text2"_s, m_durationFrame)),
      m_seconds(new controls::NumberBox(u"UpDown3"_s, u"Text3"_s, m_durationFrame)),
      m_hoursLabel(controls::MakeLabel(u"Label1"_s, u"時間"_s, m_durationFrame)),
      m_minutesLabel(controls::MakeLabel(u"Label2"_s, u"分"_s, m_durationFrame)),
      m_secondsLabel(controls::MakeLabel(u"Label3"_s, u"秒後"_s, m_durationFrame)),
      m_repeat(controls::Named(new QCheckBox(u"指定時間が来たら繰り返す"_s, this), u"Check1"_s)),
      m_startButton(controls::MakeButton(u"Command1"_s, u"スタート"_s, this, m_parts.handlers,
                                         [this] { Command1_Click(); })),
      m_resetButton(controls::MakeButton(u"Command2"_s, u"リセット"_s, this, m_parts.handlers,
                                         [this] { Command2_Click(); })),
      m_listButton(controls::MakeButton(u"Command4"_s, u"一覧..."_s, this, m_parts.handlers,
                                        [this] { m_parts.openList(); })),
      m_alarmsButton(controls::MakeButton(u"Command5"_s, u"アラーム..."_s, this, m_parts.handlers,
                                          [this] { m_parts.openAlarms(); })),
      m_helpButton(controls::MakeButton(u"Command3"_s, u"ヘルプ"_s, this, m_parts.handlers,
                                        [this] { Command3_Click(); })) {
    setObjectName(u"TimerForm"_s);
    setWindowTitle(u"タイマー"_s);
    LayOut();
    controls::OpenHelpByKey(*this, m_parts.handlers, m_parts.help, kHelpTimer);
    for (const QSpinBox* box : {m_hours, m_minutes, m_seconds}) {
        m_parts.handlers.Connect(box, &QSpinBox::valueChanged, this, [this] { ReadEntries(); });
    }
    m_parts.handlers.Connect(m_repeat, &QCheckBox::clicked, this, [this] { Check1_Click(); });
}

void TimerForm::LayOut() {
    auto* row = new QHBoxLayout(m_durationFrame);
    AddEntry(*row, *m_hours, kMostHours, *m_hoursLabel);
    AddEntry(*row, *m_minutes, kMostMinutes, *m_minutesLabel);
    AddEntry(*row, *m_seconds, kMostSeconds, *m_secondsLabel);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_startButton);
    buttons->addWidget(m_resetButton);
    buttons->addWidget(m_listButton);
    buttons->addWidget(m_alarmsButton);
    buttons->addStretch(1);
    buttons->addWidget(m_helpButton);
    auto* all = new QVBoxLayout(this);
    all->addWidget(m_durationFrame);
    all->addWidget(m_repeat);
    all->addStretch(1);
    all->addLayout(buttons);
    setTabOrder(m_seconds, m_repeat);
    setTabOrder(m_repeat, m_startButton);
    setTabOrder(m_startButton, m_resetButton);
    setTabOrder(m_resetButton, m_listButton);
    setTabOrder(m_listButton, m_alarmsButton);
    setTabOrder(m_alarmsButton, m_helpButton);
    m_startButton->setDefault(true);
}

void TimerForm::AddEntry(QHBoxLayout& row, QSpinBox& box, int largest, QLabel& label) {
    box.setRange(0, largest);
    box.setKeyboardTracking(false);  // a zero that is still being typed must not become fifteen
    box.setAccessibleName(label.text());
    label.setBuddy(&box);
    row.addWidget(&box, 1);
    row.addWidget(&label);
}

void TimerForm::BringUp() {
    if (!isVisible()) {
        RefreshForm();
        const bool running = m_parts.panel.IsRunning();
        (running ? static_cast<QWidget*>(m_startButton) : m_hours)->setFocus();
    }
    controls::BringForward(*this);
}

void TimerForm::RefreshForm() {
    Show(m_parts.panel.CurrentEntry());
    const bool running = m_parts.panel.IsRunning();
    const std::array<QWidget*, 9> entry{m_durationFrame, m_hours,      m_minutes,
                                        m_seconds,       m_hoursLabel, m_minutesLabel,
                                        m_secondsLabel,  m_repeat,     m_resetButton};
    for (QWidget* control : entry) {  // the time cannot be changed during a run
        control->setEnabled(!running);
    }
    controls::SetCaption(*m_startButton, running ? u"ストップ"_s : u"スタート"_s);
}

void TimerForm::Show(const TimerEntry& entry) {
    const QScopedValueRollback<bool> updating(m_isUpdating, true);
    m_hours->setValue(entry.hours);
    m_minutes->setValue(entry.minutes);
    m_seconds->setValue(entry.seconds);
    m_repeat->setChecked(entry.repeat);
}

TimerEntry TimerForm::Entry() const {
    return {.hours = m_hours->value(),
            .minutes = m_minutes->value(),
            .seconds = m_seconds->value(),
            .repeat = m_repeat->isChecked()};
}

void TimerForm::ReadEntries() {
    if (!m_isUpdating) {
        Show(m_parts.panel.ReadEntries(Entry()));
    }
}

/// Commits a number that is still being edited: a button can be pressed without moving the focus out of the
/// field.
void TimerForm::TakeTyped() {
    for (QSpinBox* box : {m_hours, m_minutes, m_seconds}) {
        box->interpretText();
    }
}

void TimerForm::Command1_Click() {
    TakeTyped();
    m_parts.panel.StartOrStop(Entry());
    RefreshForm();
}

void TimerForm::Command2_Click() {
    TakeTyped();
    m_parts.panel.Reset(Entry());
    RefreshForm();
}

void TimerForm::Command3_Click() {
    m_parts.help.ShowTopic(kHelpTimer);
}

void TimerForm::Check1_Click() {
    m_parts.panel.SetRepeat(m_repeat->isChecked());
}

}  // namespace tickwell::timing
