// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/timer_entry_frame.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QVBoxLayout>

#include "controls/announcer.h"
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
      m_handlers(handlers),
      m_sounds(sounds),
      m_name(controls::Named(new QLineEdit(this), u"Text4"_s)),
      m_sound(controls::Named(new QComboBox(this), u"Combo1"_s)),
      m_file(controls::MakeButton(u"Command9"_s, u"ファイル..."_s, this, handlers, [this] { ChooseFile(); })),
      m_listen(controls::MakeButton(u"Command10"_s, u"試聴"_s, this, handlers,
                                    [this] { m_sounds.play(m_sound->currentData().toString()); })) {
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
    rows->addLayout(SoundRow());
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

QHBoxLayout* TimerEntryFrame::SoundRow() {
    for (const TimerSound& sound : m_sounds.delivered) {
        m_sound->addItem(sound.name, sound.file);
    }
    QLabel* label = controls::MakeLabel(u"Label5"_s, u"音"_s, this);
    label->setBuddy(m_sound);
    controls::AnnounceChoices(*m_sound);
    // A long file name must not widen the window.
    m_sound->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_sound->setMinimumContentsLength(10);
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(m_sound, 1);
    row->addWidget(m_file);
    row->addWidget(m_listen);
    return row;
}

TimerPlan TimerEntryFrame::Plan() {
    for (QSpinBox* box : {m_hours, m_minutes, m_seconds}) {
        box->interpretText();  // a button can be pressed without moving the focus out of the field
    }
    const int seconds = (m_hours->value() * 60 + m_minutes->value()) * 60 + m_seconds->value();
    return {
        .name = m_name->text(), .milliseconds = seconds * 1000, .sound = m_sound->currentData().toString()};
}

void TimerEntryFrame::ChooseFile() {
    auto* dialog = new QFileDialog(this, u"音のファイル"_s, {}, u"WAVE ファイル (*.wav *.WAV)"_s);
    dialog->setObjectName(u"TimerSoundDialog"_s);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this,
            [this](const QString& path) { m_handlers.Run([this, path] { TakeFile(path); }, this); });
    dialog->open();
}

void TimerEntryFrame::TakeFile(const QString& path) {
    const QString file = QFileInfo(path).absoluteFilePath();
    m_sounds.check(file);
    int index = m_sound->findData(file);
    if (index < 0) {
        m_sound->addItem(QFileInfo(file).fileName(), file);
        index = m_sound->count() - 1;
    }
    m_sound->setCurrentIndex(index);
}

}  // namespace tickwell::timing
