// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

#include "core/ports/message_boxes.h"
#include "core/ports/timer.h"
#include "media/media_state.h"
#include "media/wave_mix.h"

namespace tickwell {

/// What sounds at this moment; one for the whole program.
struct SoundState {
    qint32 MixSession = 0;      ///< 0: none
    QList<qint32> MixWaves{0};  ///< the wave of each channel, channel 0 first; 0: none
};

/// The sounds of the time signal: each is played in a session of its own, which Timer2 closes.
class SoundPlayback {
public:
    /// What it works on. All outlive it. `timers` is that of the program's timers.
    struct Parts {
        WaveMix& mix;
        SoundState& sound;
        MediaState& media;  ///< MediaError alone is written: 0 or 1, at the start of a session
        MessageBoxes& boxes;
        TimerSource& timers;
    };

    /// `folder`: the program's own, where the sounds lie.
    SoundPlayback(const Parts& parts, QString folder);

    /// Plays the named sound `count` times in a row. An unknown name does nothing at all. A sound that cannot
    /// be played is silence. OverflowError where `count` is the lowest number that there is.
    void PlayChime(const QString& soundName, qint32 count);

    /// Opens a session; one that is open is closed first. `showError` decides whether a failure is shown.
    void AudioStart(bool showError);

    /// Loads a file onto a channel in the place of what it had; a missing file leaves it without. Channels 0
    /// and 1 sound.
    void AudioLoadWave(const QString& fileName, qint32 channel);

    /// Plays a channel's wave, repeated `loops` times.
    void AudioPlay(qint32 channel, qint32 loops);
    void AudioFlush(qint32 channel);

    /// Frees all waves and closes the session. Without one it does nothing.
    void AudioStop();

private:
    void MakeFolderCurrent() const;

    Parts m_parts;
    QString m_folder;
    std::unique_ptr<Timer>
        Timer2;  ///< calls AudioStop, 30 s after the last chime began and each 30 s from then on
};

/// The names of the sounds, in the order in which they are offered.
QStringList SoundNames();

/// The file of a sound by its name, compared letter by letter; nothing for a name that is not one.
std::optional<QString> SoundFile(const QString& soundName);

}  // namespace tickwell
