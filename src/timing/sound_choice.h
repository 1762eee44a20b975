// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>

#include "core/handlers.h"
#include "timing/timer_sounds.h"

namespace tickwell::timing {

/// The row in which the sound of a timer or an alarm is chosen: one of the delivered sounds, or a wave file
/// of the user's.
class SoundChoice : public QObject {
    Q_OBJECT

public:
    /// `handlers` and `sounds` outlive it; `window` owns the controls and outlives it too. `dialogName`:
    /// object name of the window in which a file is chosen.
    SoundChoice(Handlers& handlers, const TimerSounds& sounds, QString dialogName, QWidget* window);

    /// The caller owns the row.
    QHBoxLayout* MakeRow();

    /// The chosen sound, as TimerPlan::sound.
    QString File() const { return m_sound->currentData().toString(); }

    /// Chooses a sound, which is added if it is not offered yet; an empty one is the first that is offered.
    void SetFile(const QString& file);

private:
    void ChooseFile();
    void TakeFile(const QString& path);

    Handlers& m_handlers;
    const TimerSounds& m_sounds;
    QString m_dialogName;
    QWidget* m_window;
    QComboBox* m_sound;
    QPushButton* m_file;
    QPushButton* m_listen;
};

}  // namespace tickwell::timing
