// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/alarm_entry_frame.h"

#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/control_making.h"
#include "controls/number_box.h"
#include "core/kept_timer.h"
#include "core/minute_of_day.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kDayChoices{u"毎日", u"平日", u"曜日を選ぶ", u"一度だけ"};  // as AlarmDays
constexpr QStringView kLettersOfWeek = u"月火水木金土日";
constexpr int kLastHour = 23;
constexpr int kMonths = 12;
constexpr int kLongestMonth = 31;
constexpr int kLastYear = 9999;  // that can be stored

}  // namespace

AlarmEntryFrame::AlarmEntryFrame(Handlers& handlers, const TimerSounds& sounds, QWidget* parent)
    : QGroupBox(u"アラームの設定"_s, parent),
      m_name(controls::Named(new QLineEdit(this), u"Text1"_s)),
      m_days(new QButtonGroup(this)),
      m_silentOnDaysOff(controls::Named(new QCheckBox(u"休みの日は鳴らさない"_s, this), u"Check2"_s)),
      m_sound(handlers, sounds, u"AlarmSoundDialog"_s, this) {
    setObjectName(u"Frame1"_s);
    m_name->setMaxLength(kLongestTimerName);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(TimeRow());
    rows->addLayout(DaysRow());
    rows->addLayout(WeekdaysRow());
    rows->addLayout(DateRow());
    rows->addWidget(m_silentOnDaysOff);
    rows->addLayout(m_sound.MakeRow());
    rows->addLayout(RingRow());
    handlers.Connect(m_days, &QButtonGroup::idClicked, this, [this] { ShowDays(); });
}

QHBoxLayout* AlarmEntryFrame::TimeRow() {
    QLabel* name = controls::MakeLabel(u"Label1"_s, u"名前"_s, this);
    name->setBuddy(m_name);
    auto* row = new QHBoxLayout;
    m_hour = AddNumberBox(*row, u"時刻"_s, u"時"_s, 0, kLastHour);
    m_minute = AddNumberBox(*row, {}, u"分"_s, 0, kMinutesInHour - 1);
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

QHBoxLayout* AlarmEntryFrame::DateRow() {
    auto* row = new QHBoxLayout;
    m_year = AddNumberBox(*row, u"一度だけ鳴らす日"_s, u"年"_s, 0, 0);
    m_month = AddNumberBox(*row, {}, u"月"_s, 1, kMonths);
    m_day = AddNumberBox(*row, {}, u"日"_s, 1, kLongestMonth);
    row->addStretch(1);
    return row;
}

QHBoxLayout* AlarmEntryFrame::RingRow() {
    auto* row = new QHBoxLayout;
    m_ringSeconds = AddNumberBox(*row, u"鳴らす時間"_s, u"秒"_s, kShortestRing, kLongestRing);
    m_snoozeMinutes = AddNumberBox(*row, u"もう一度鳴らすまで"_s, u"分"_s, 1, kLongestSnooze);
    row->addStretch(1);
    return row;
}

/// Without a caption it belongs to the field before.
QSpinBox* AlarmEntryFrame::AddNumberBox(QHBoxLayout& row, const QString& caption, const QString& unit,
                                        int least, int most) {
    const auto index = static_cast<int>(m_numbers.size()) + 1;
    auto* box = new controls::NumberBox(u"UpDown%1"_s.arg(index), u"Text%1"_s.arg(index + 1), this);
    box->setRange(least, most);
    QLabel* after = controls::MakeLabel(u"Label%1"_s.arg(2 * index + 1), unit, this);
    if (caption.isEmpty()) {
        box->setAccessibleName(unit);
        after->setBuddy(box);
    } else {
        QLabel* before = controls::MakeLabel(u"Label%1"_s.arg(2 * index), caption, this);
        box->setAccessibleName(caption + u"（" + unit + u"）");
        before->setBuddy(box);
        row.addWidget(before);
    }
    row.addWidget(box);
    row.addWidget(after);
    m_numbers.append(box);
    return box;
}

/// Only the choice that counts can be changed.
void AlarmEntryFrame::ShowDays() {
    for (QCheckBox* box : m_weekdays) {
        box->setEnabled(Days() == AlarmDays::Chosen);
    }
    for (QSpinBox* box : {m_year, m_month, m_day}) {
        box->setEnabled(Days() == AlarmDays::Once);
    }
}

void AlarmEntryFrame::Show(const KeptAlarm& alarm, QDate today) {
    m_name->setText(alarm.name);
    m_hour->setValue(alarm.time.hour());
    m_minute->setValue(alarm.time.minute());
    m_days->button(static_cast<int>(alarm.days))->setChecked(true);
    m_year->setRange(std::min(today.year(), alarm.once.year()), std::min(today.year() + 1, kLastYear));
    m_year->setValue(alarm.once.year());
    m_month->setValue(alarm.once.month());
    m_day->setValue(alarm.once.day());
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
    for (QSpinBox* box : m_numbers) {
        box->interpretText();  // a button can be pressed without moving the focus out of the field
    }
    int weekdays = 0;
    for (std::size_t i = 0; i < m_weekdays.size(); ++i) {
        weekdays |= m_weekdays.at(i)->isChecked() ? 1 << i : 0;
    }
    return {.name = m_name->text(),
            .time = QTime(m_hour->value(), m_minute->value()),
            .days = Days(),
            .weekdays = weekdays,
            .once = QDate(m_year->value(), m_month->value(), m_day->value()),
            .silentOnDaysOff = m_silentOnDaysOff->isChecked(),
            .sound = m_sound.File(),
            .ringSeconds = m_ringSeconds->value(),
            .snoozeMinutes = m_snoozeMinutes->value()};
}

}  // namespace tickwell::timing
