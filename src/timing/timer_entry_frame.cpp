// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/timer_entry_frame.h"

#include <QLabel>
#include <QVBoxLayout>

#include "controls/control_making.h"
#include "controls/number_box.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargestHours = 23;
constexpr int kLargestMinutes = 59;
constexpr int kFirstMinutes = 3;

}  // namespace

TimerEntryFrame::TimerEntryFrame(Handlers& handlers, const TimerSounds& sounds, QWidget* parent)
    : QGroupBox(u"新しいタイマー"_s, parent),
      m_name(controls::Named(new QLineEdit(this), u"Text4"_s)),
      m_sound(handlers, sounds, u"TimerSoundDialog"_s, this) {
    setObjectName(u"Frame1"_s);
    m_name->setMaxLength(kLongestTimerName);
    auto* nameRow = new QHBoxLayout;
    QLabel* name = controls::MakeLabel(u"Label4"_s, u"名前"_s, this);
    name->setBuddy(m_name);
    nameRow->addWidget(name);
    nameRow->addWidget(m_name, 1);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(nameRow);
    rows->addLayout(TimeRow());
    rows->addLayout(m_sound.MakeRow());
}

QHBoxLayout* TimerEntryFrame::TimeRow() {
    auto* row = new QHBoxLayout;
    m_hours = AddNumber(*row, 1, kLargestHours, u"時間"_s);
    m_minutes = AddNumber(*row, 2, kLargestMinutes, u"分"_s);
    m_seconds = AddNumber(*row, 3, kLargestMinutes, u"秒"_s);
    m_minutes->setValue(kFirstMinutes);
    return row;
}

QSpinBox* TimerEntryFrame::AddNumber(QHBoxLayout& row, int index, int largest, const QString& unit) {
    auto* box = new controls::NumberBox(u"UpDown%1"_s.arg(index), u"Text%1"_s.arg(index), this);
    QLabel* label = controls::MakeLabel(u"Label%1"_s.arg(index), unit, this);
    box->setRange(0, largest);
    box->setAccessibleName(unit);
    label->setBuddy(box);
    row.addWidget(box, 1);
    row.addWidget(label);
    return box;
}

TimerPlan TimerEntryFrame::Plan() {
    for (QSpinBox* box : {m_hours, m_minutes, m_seconds}) {
        box->interpretText();  // a button can be pressed without moving the focus out of the field
    }
    const int seconds = (m_hours->value() * 60 + m_minutes->value()) * 60 + m_seconds->value();
    return {.name = m_name->text(), .milliseconds = seconds * 1000, .sound = m_sound.File()};
}

}  // namespace tickwell::timing
