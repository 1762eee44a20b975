// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QSpinBox>
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

    /// Shows an alarm. One that rings once can be set to this year and the next.
    void Show(const KeptAlarm& alarm, QDate today);

    /// What is set, including what is still being typed. The name may be empty, and the day of an alarm that
    /// rings once may not exist.
    KeptAlarm Alarm();

private:
    QHBoxLayout* TimeRow();
    QHBoxLayout* DaysRow();
    QHBoxLayout* WeekdaysRow();
    QHBoxLayout* DateRow();
    QHBoxLayout* RingRow();
    QSpinBox* AddNumberBox(QHBoxLayout& row, const QString& caption, const QString& unit, int least,
                           int most);
    AlarmDays Days() const { return static_cast<AlarmDays>(m_days->checkedId()); }
    void ShowDays();

    QLineEdit* m_name;  // the controls are owned by the frame
    QButtonGroup* m_days;
    QCheckBox* m_silentOnDaysOff;
    std::array<QCheckBox*, 7> m_weekdays{};
    QList<QSpinBox*> m_numbers;  // those that follow
    QSpinBox* m_hour = nullptr;
    QSpinBox* m_minute = nullptr;
    QSpinBox* m_year = nullptr;
    QSpinBox* m_month = nullptr;
    QSpinBox* m_day = nullptr;
    QSpinBox* m_ringSeconds = nullptr;
    QSpinBox* m_snoozeMinutes = nullptr;
    SoundChoice m_sound;
};

}  // namespace tickwell::timing
