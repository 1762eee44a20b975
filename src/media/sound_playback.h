// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

#include "core/ports/message_boxes.h"
#include "core/ports/timer.h"
#include "core/program_folder.h"
#include "media/media_state.h"
#include "media/wave_mix.h"

namespace tickwell::media {

/// The sounds currently loaded; one for the program.
struct SoundState {
    qint32 MixSession = 0;      ///< 0: none
    QList<qint32> MixWaves{0};  ///< the wave of each channel, starting with channel 0; 0: none
};

/// Plays the sounds of the time signal, each in its own session, which Timer2 closes.
class SoundPlayback {
public:
    /// References to what it works with; all outlive it. `timers`: the program's time.
    struct Parts {
        WaveMix& mix;
        SoundState& sound;
        MediaState& media;  ///< only MediaError is written: 0 or 1, at the start of a session
        MessageBoxes& boxes;
        TimerSource& timers;
    };

    /// `folder`: contains the sounds.
    SoundPlayback(const Parts& parts, ProgramFolder folder);

    /// Plays the named sound `count` times in a row. Does nothing for an unknown name, and is silent if the
    /// sound cannot be played. Throws OverflowError if `count` is the smallest qint32.
    void PlayChime(const QString& soundName, qint32 count);

    /// Opens a session, closing an open one first. `showError`: whether a failure is shown in a message box.
    void AudioStart(bool showError);

    /// Loads a file onto a channel and replaces its wave; if the file is missing, the channel has none. Only
    /// channels 0 and 1 can be heard.
    void AudioLoadWave(const QString& fileName, qint32 channel);

    /// Plays a channel's wave once and repeats it `loops` times.
    void AudioPlay(qint32 channel, qint32 loops);
    void AudioFlush(qint32 channel);

    /// Frees all waves and closes the session, if one is open.
    void AudioStop();

private:
    void MakeFolderCurrent() const;

    Parts m_parts;
    ProgramFolder m_folder;
    std::unique_ptr<Timer> m_sessionTimer;  ///< calls AudioStop 30 s after the start of the last chime and
                                            ///< every 30 s from then on
};

/// The names of the sounds, in the order in which they are offered.
QStringList SoundNames();

/// The file of a sound by its exact name; nullopt for an unknown name.
std::optional<QString> SoundFile(const QString& soundName);

}  // namespace tickwell::media
