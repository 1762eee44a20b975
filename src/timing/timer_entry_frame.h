// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSpinBox>

#include "core/handlers.h"
#include "core/kept_timer.h"
#include "timing/sound_choice.h"

namespace tickwell::timing {

/// The frame in which a new timer is set: its name, time and sound.
class TimerEntryFrame : public QGroupBox {
    Q_OBJECT

public:
    /// `handlers` and `sounds` outlive it.
    TimerEntryFrame(Handlers& handlers, const TimerSounds& sounds, QWidget* parent);

    /// What is set, including what is still being typed. Name and time may be empty.
    TimerPlan Plan();

    /// Clears the name for the next timer.
    void ForgetName() { m_name->clear(); }

private:
    QHBoxLayout* TimeRow();
    QSpinBox* AddNumber(QHBoxLayout& row, int index, int largest, const QString& unit);

    QLineEdit* m_name;  // the controls are owned by the frame
    QSpinBox* m_hours = nullptr;
    QSpinBox* m_minutes = nullptr;
    QSpinBox* m_seconds = nullptr;
    SoundChoice m_sound;
};

}  // namespace tickwell::timing
