// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLineEdit>
#include <QSpinBox>
#include <QTimeEdit>
#include <array>

#include "core/handlers.h"
#include "core/kept_alarm.h"
#include "timing/sound_choice.h"

namespace tickwell::timing {

/// The frame in which an alarm is set: its name, time, days, sound and snooze.
class AlarmEntryFrame : public QGroupBox {
    Q_OBJECT

public:
    /// `handlers` and `sounds` outlive it.
    AlarmEntryFrame(Handlers& handlers, const TimerSounds& sounds, QWidget* parent);

    /// Shows an alarm. The days that can be chosen for one that rings once begin with `today`.
    void Show(const KeptAlarm& alarm, QDate today);

    /// What is set, including what is still being typed. The name may be empty.
    KeptAlarm Alarm();

private:
    QHBoxLayout* NameRow();
    QHBoxLayout* DaysRow();
    QHBoxLayout* WeekdaysRow();
    QHBoxLayout* RingRow();
    QSpinBox* AddNumberBox(QHBoxLayout& row, int index, const QString& caption, const QString& unit);
    AlarmDays Days() const { return static_cast<AlarmDays>(m_days->checkedId()); }
    void ShowDays();

    QLineEdit* m_name;  // the controls are owned by the frame
    QTimeEdit* m_time;
    QButtonGroup* m_days;
    QDateEdit* m_once;
    std::array<QCheckBox*, 7> m_weekdays{};
    QCheckBox* m_silentOnDaysOff;
    QSpinBox* m_ringSeconds = nullptr;
    QSpinBox* m_snoozeMinutes = nullptr;
    SoundChoice m_sound;
};

}  // namespace tickwell::timing
