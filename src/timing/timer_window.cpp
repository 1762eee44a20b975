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
      m_Frame1(new QGroupBox(u"タイマーの指定"_s, this)),
      m_UpDown1(new EntryBox(u"UpDown1"_s, u"Text1"_s, m_Frame1)),
      m_UpDown2(new EntryBox(u"UpDown2"_s, u"Text2"_s, m_Frame1)),
      m_UpDown3(new EntryBox(u"UpDown3"_s, u"Text3"_s, m_Frame1)),
      m_Label1(new QLabel(u"時間"_s, m_Frame1)),
      m_Label2(new QLabel(u"分"_s, m_Frame1)),
      m_Label3(new QLabel(u"秒後"_s, m_Frame1)),
      m_Check1(new QCheckBox(u"指定時間が来たら繰り返す"_s, this)),
      m_Command1(new QPushButton(u"スタート"_s, this)),
      m_Command2(new QPushButton(u"リセット"_s, this)),
      m_Command3(new QPushButton(u"ヘルプ"_s, this)) {
    setWindowTitle(u"タイマー"_s);
    Name();
    LayOut();
    Handlers& handlers = m_parts.handlers;
    for (const QSpinBox* box : {m_UpDown1, m_UpDown2, m_UpDown3}) {
        handlers.Connect(box, &QSpinBox::valueChanged, this, [this] { ReadEntries(); });
    }
    handlers.Connect(m_Check1, &QCheckBox::clicked, this, [this] { Check1_Click(); });
    handlers.Connect(m_Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    handlers.Connect(m_Command2, &QPushButton::clicked, this, [this] { Command2_Click(); });
    handlers.Connect(m_Command3, &QPushButton::clicked, this, [this] { Command3_Click(); });
}

void TimerForm::Name() {
    setObjectName(u"TimerForm"_s);
    m_Frame1->setObjectName(u"Frame1"_s);
    m_Label1->setObjectName(u"Label1"_s);
    m_Label2->setObjectName(u"Label2"_s);
    m_Label3->setObjectName(u"Label3"_s);
    m_Check1->setObjectName(u"Check1"_s);
    m_Command1->setObjectName(u"Command1"_s);
    m_Command2->setObjectName(u"Command2"_s);
    m_Command3->setObjectName(u"Command3"_s);
}

void TimerForm::LayOut() {
    auto* row = new QHBoxLayout(m_Frame1);
    AddEntry(*row, *m_UpDown1, kMostHours, *m_Label1);
    AddEntry(*row, *m_UpDown2, kMostMinutes, *m_Label2);
    AddEntry(*row, *m_UpDown3, kMostSeconds, *m_Label3);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_Command1);
    buttons->addWidget(m_Command2);
    buttons->addStretch(1);
    buttons->addWidget(m_Command3);
    auto* all = new QVBoxLayout(this);
    all->addWidget(m_Frame1);
    all->addWidget(m_Check1);
    all->addStretch(1);
    all->addLayout(buttons);
    setTabOrder(m_UpDown3, m_Check1);
    setTabOrder(m_Check1, m_Command1);
    setTabOrder(m_Command1, m_Command2);
    setTabOrder(m_Command2, m_Command3);
    m_Command1->setDefault(true);
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
        (running ? static_cast<QWidget*>(m_Command1) : m_UpDown1)->setFocus();
    }
    BringForward(*this);
}

void TimerForm::RefreshForm() {
    Show(m_parts.panel.CurrentEntry());
    const bool running = m_parts.panel.IsRunning();
    const std::array<QWidget*, 9> entry{m_Frame1, m_UpDown1, m_UpDown2, m_UpDown3, m_Label1,
                                        m_Label2, m_Label3,  m_Check1,  m_Command2};
    for (QWidget* control : entry) {  // controls that set the time are disabled while it runs
        control->setEnabled(!running);
    }
    m_Command1->setText(running ? u"ストップ"_s : u"スタート"_s);
}

void TimerForm::Show(const TimerEntry& entry) {
    const QScopedValueRollback<bool> updating(m_Updating, true);
    m_UpDown1->setValue(entry.hours);
    m_UpDown2->setValue(entry.minutes);
    m_UpDown3->setValue(entry.seconds);
    m_Check1->setChecked(entry.repeat);
}

TimerEntry TimerForm::Entry() const {
    return {m_UpDown1->value(), m_UpDown2->value(), m_UpDown3->value(), m_Check1->isChecked()};
}

void TimerForm::ReadEntries() {
    if (!m_Updating) {
        Show(m_parts.panel.ReadEntries(Entry()));
    }
}

/// Reads a typed but unconfirmed number, for a button that is not pressed with the mouse.
void TimerForm::TakeTyped() {
    for (QSpinBox* box : {m_UpDown1, m_UpDown2, m_UpDown3}) {
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
    m_parts.panel.SetRepeat(m_Check1->isChecked());
}

}  // namespace tickwell
