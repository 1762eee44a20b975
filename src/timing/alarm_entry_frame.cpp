// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/alarm_entry_frame.h"

#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include "controls/control_making.h"
#include "controls/number_box.h"
#include "core/kept_timer.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kDayChoices{u"毎日", u"平日", u"曜日を選ぶ", u"一度だけ"};  // as AlarmDays
constexpr QStringView kLettersOfWeek = u"月火水木金土日";
constexpr int kDaysToChoose = 730;  // as far as the rule of alarms looks ahead

}  // namespace

AlarmEntryFrame::AlarmEntryFrame(Handlers& handlers, const TimerSounds& sounds, QWidget* parent)
    : QGroupBox(u"アラームの設定"_s, parent),
      m_name(controls::Named(new QLineEdit(this), u"Text1"_s)),
      m_time(controls::Named(new QTimeEdit(this), u"Time1"_s)),
      m_days(new QButtonGroup(this)),
      m_once(controls::Named(new QDateEdit(this), u"Date1"_s, u"一度だけ鳴らす日"_s)),
      m_silentOnDaysOff(controls::Named(new QCheckBox(u"休みの日は鳴らさない"_s, this), u"Check2"_s)),
      m_sound(handlers, sounds, this) {
    setObjectName(u"Frame1"_s);
    m_name->setMaxLength(kLongestTimerName);
    m_time->setDisplayFormat(u"H:mm"_s);
    m_once->setDisplayFormat(u"yyyy/MM/dd"_s);
    m_once->setCalendarPopup(true);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(NameRow());
    rows->addLayout(DaysRow());
    rows->addLayout(WeekdaysRow());
    rows->addWidget(m_silentOnDaysOff);
    rows->addLayout(m_sound.MakeRow());
    rows->addLayout(RingRow());
    handlers.Connect(m_days, &QButtonGroup::idClicked, this, [this] { ShowDays(); });
}

QHBoxLayout* AlarmEntryFrame::NameRow() {
    QLabel* time = controls::MakeLabel(u"Label1"_s, u"時刻"_s, this);
    QLabel* name = controls::MakeLabel(u"Label2"_s, u"名前"_s, this);
    time->setBuddy(m_time);
    name->setBuddy(m_name);
    auto* row = new QHBoxLayout;
    row->addWidget(time);
    row->addWidget(m_time);
    row->addWidget(name);
    row->addWidget(m_name, 1);
    return row;
}

QHBoxLayout* AlarmEntryFrame::DaysRow() {
    auto* row = new QHBoxLayout;
    for (int i = 0; i < static_cast<int>(kDayChoices.size()); ++i) {
        const QString caption = QString::fromUtf16(kDayChoices.at(static_cast<std::size_t>(i)));
        auto* button = controls::Named(new QRadioButton(caption, this), controls::Indexed(u"Option1"_s, i));
        m_days->addButton(button, i);
        row->addWidget(button);
    }
    row->addWidget(m_once);
    row->addStretch(1);
    return row;
}

QHBoxLayout* AlarmEntryFrame::WeekdaysRow() {
    auto* row = new QHBoxLayout;
    for (std::size_t i = 0; i < m_weekdays.size(); ++i) {
        const auto index = static_cast<int>(i);
        auto* box = new QCheckBox(QString(kLettersOfWeek[index]), this);
        m_weekdays.at(i) = controls::Named(box, controls::Indexed(u"Check1"_s, index),
                                           QString(kLettersOfWeek[index]) + u"曜日");
        row->addWidget(box);
    }
    row->addStretch(1);
    return row;
}

QHBoxLayout* AlarmEntryFrame::RingRow() {
    auto* row = new QHBoxLayout;
    m_ringSeconds = AddNumberBox(*row, 1, u"鳴らす時間"_s, u"秒"_s);
    m_snoozeMinutes = AddNumberBox(*row, 2, u"もう一度鳴らすまで"_s, u"分"_s);
    m_ringSeconds->setRange(kShortestRing, kLongestRing);
    m_snoozeMinutes->setRange(1, kLongestSnooze);
    row->addStretch(1);
    return row;
}

QSpinBox* AlarmEntryFrame::AddNumberBox(QHBoxLayout& row, int index, const QString& caption,
                                        const QString& unit) {
    auto* box = new controls::NumberBox(u"UpDown%1"_s.arg(index), u"Text%1"_s.arg(index + 1), this);
    QLabel* label = controls::MakeLabel(u"Label%1"_s.arg(index + 2), caption, this);
    label->setBuddy(box);
    box->setAccessibleName(caption + u"（" + unit + u"）");
    row.addWidget(label);
    row.addWidget(box);
    row.addWidget(controls::MakeLabel(u"Label%1"_s.arg(index + 5), unit, this));
    return box;
}

/// Only the choice that counts can be changed.
void AlarmEntryFrame::ShowDays() {
    for (QCheckBox* box : m_weekdays) {
        box->setEnabled(Days() == AlarmDays::Chosen);
    }
    m_once->setEnabled(Days() == AlarmDays::Once);
}

void AlarmEntryFrame::Show(const KeptAlarm& alarm, QDate today) {
    m_name->setText(alarm.name);
    m_time->setTime(alarm.time);
    m_days->button(static_cast<int>(alarm.days))->setChecked(true);
    m_once->setDateRange(today, today.addDays(kDaysToChoose));
    m_once->setDate(alarm.once);
    for (std::size_t i = 0; i < m_weekdays.size(); ++i) {
        m_weekdays.at(i)->setChecked(((alarm.weekdays >> i) & 1) != 0);
    }
    m_silentOnDaysOff->setChecked(alarm.silentOnDaysOff);
    m_sound.SetFile(alarm.sound);
    m_ringSeconds->setValue(alarm.ringSeconds);
    m_snoozeMinutes->setValue(alarm.snoozeMinutes);
    ShowDays();
}

KeptAlarm AlarmEntryFrame::Alarm() {
    for (QAbstractSpinBox* box :
         {static_cast<QAbstractSpinBox*>(m_time), static_cast<QAbstractSpinBox*>(m_once),
          static_cast<QAbstractSpinBox*>(m_ringSeconds), static_cast<QAbstractSpinBox*>(m_snoozeMinutes)}) {
        box->interpretText();  // a button can be pressed without moving the focus out of the field
    }
    int weekdays = 0;
    for (std::size_t i = 0; i < m_weekdays.size(); ++i) {
        weekdays |= m_weekdays.at(i)->isChecked() ? 1 << i : 0;
    }
    return {.name = m_name->text(),
            .time = m_time->time(),
            .days = Days(),
            .weekdays = weekdays,
            .once = m_once->date(),
            .silentOnDaysOff = m_silentOnDaysOff->isChecked(),
            .sound = m_sound.File(),
            .ringSeconds = m_ringSeconds->value(),
            .snoozeMinutes = m_snoozeMinutes->value()};
}

}  // namespace tickwell::timing
