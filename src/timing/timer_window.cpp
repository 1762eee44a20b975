// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/timer_window.h"

#include <QLineEdit>
#include <QScopedValueRollback>
#include <QVBoxLayout>
#include <array>

#include "timing/bring_forward.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostHours = 23;
constexpr int kMostMinutes = 59;
constexpr int kMostSeconds = 59;

/// A spin box with a given name for its text field.
class EntryBox : public QSpinBox {
public:
    EntryBox(const QString& name, const QString& textName, QWidget* parent) : QSpinBox(parent) {
        setObjectName(name);
        lineEdit()->setObjectName(textName);
        setKeyboardTracking(false);  // an incomplete number is not an entry: its zero would become fifteen
    }
};

}  // namespace

TimerForm::TimerForm(const TimerWindowParts& parts, QWidget* parent)
    : QDialog(parent),
      m_parts(parts),
      m_durationFrame(new QGroupBox(u"タイマーの指定"_s, this)),
      m_hours(new EntryBox(u"UpDown1"_s, u"Text1"_s, m_durationFrame)),
      m_minutes(new EntryBox(u"UpDown2"_s, u"Text2"_s, m_durationFrame)),
      m_seconds(new EntryBox(u"UpDown3"_s, u"Text3"_s, m_durationFrame)),
      m_hoursLabel(new QLabel(u"時間"_s, m_durationFrame)),
      m_minutesLabel(new QLabel(u"分"_s, m_durationFrame)),
      m_secondsLabel(new QLabel(u"秒後"_s, m_durationFrame)),
      m_repeat(new QCheckBox(u"指定時間が来たら繰り返す"_s, this)),
      m_startButton(new QPushButton(u"スタート"_s, this)),
      m_resetButton(new QPushButton(u"リセット"_s, this)),
      m_helpButton(new QPushButton(u"ヘルプ"_s, this)) {
    setWindowTitle(u"タイマー"_s);
    Name();
    LayOut();
    Handlers& handlers = m_parts.handlers;
    for (const QSpinBox* box : {m_hours, m_minutes, m_seconds}) {
        handlers.Connect(box, &QSpinBox::valueChanged, this, [this] { ReadEntries(); });
    }
    handlers.Connect(m_repeat, &QCheckBox::clicked, this, [this] { Check1_Click(); });
    handlers.Connect(m_startButton, &QPushButton::clicked, this, [this] { Command1_Click(); });
    handlers.Connect(m_resetButton, &QPushButton::clicked, this, [this] { Command2_Click(); });
    handlers.Connect(m_helpButton, &QPushButton::clicked, this, [this] { Command3_Click(); });
}

void TimerForm::Name() {
    setObjectName(u"TimerForm"_s);
    m_durationFrame->setObjectName(u"Frame1"_s);
    m_hoursLabel->setObjectName(u"Label1"_s);
    m_minutesLabel->setObjectName(u"Label2"_s);
    m_secondsLabel->setObjectName(u"Label3"_s);
    m_repeat->setObjectName(u"Check1"_s);
    m_startButton->setObjectName(u"Command1"_s);
    m_resetButton->setObjectName(u"Command2"_s);
    m_helpButton->setObjectName(u"Command3"_s);
}

void TimerForm::LayOut() {
    auto* row = new QHBoxLayout(m_durationFrame);
    AddEntry(*row, *m_hours, kMostHours, *m_hoursLabel);
    AddEntry(*row, *m_minutes, kMostMinutes, *m_minutesLabel);
    AddEntry(*row, *m_seconds, kMostSeconds, *m_secondsLabel);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_startButton);
    buttons->addWidget(m_resetButton);
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
    setTabOrder(m_resetButton, m_helpButton);
    m_startButton->setDefault(true);
}

void TimerForm::AddEntry(QHBoxLayout& row, QSpinBox& box, int largest, QLabel& label) {
    box.setRange(0, largest);
    box.setAccessibleName(label.text());
    row.addWidget(&box, 1);
    row.addWidget(&label);
}

void TimerForm::BringUp() {
    if (!isVisible()) {
        RefreshForm();
        const bool running = m_parts.panel.IsRunning();
        (running ? static_cast<QWidget*>(m_startButton) : m_hours)->setFocus();
    }
    BringForward(*this);
}

void TimerForm::RefreshForm() {
    Show(m_parts.panel.CurrentEntry());
    const bool running = m_parts.panel.IsRunning();
    const std::array<QWidget*, 9> entry{m_durationFrame, m_hours,      m_minutes,
                                        m_seconds,       m_hoursLabel, m_minutesLabel,
                                        m_secondsLabel,  m_repeat,     m_resetButton};
    for (QWidget* control : entry) {  // controls that set the time are disabled while it runs
        control->setEnabled(!running);
    }
    m_startButton->setText(running ? u"ストップ"_s : u"スタート"_s);
}

void TimerForm::Show(const TimerEntry& entry) {
    const QScopedValueRollback<bool> updating(m_isUpdating, true);
    m_hours->setValue(entry.hours);
    m_minutes->setValue(entry.minutes);
    m_seconds->setValue(entry.seconds);
    m_repeat->setChecked(entry.repeat);
}

TimerEntry TimerForm::Entry() const {
    return {m_hours->value(), m_minutes->value(), m_seconds->value(), m_repeat->isChecked()};
}

void TimerForm::ReadEntries() {
    if (!m_isUpdating) {
        Show(m_parts.panel.ReadEntries(Entry()));
    }
}

/// Reads a typed but unconfirmed number, for a button that is not pressed with the mouse.
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

}  // namespace tickwell
