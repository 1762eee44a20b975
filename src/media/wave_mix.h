// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <map>
#include <memory>

#include "core/ports/timer.h"
#include "media/ports/sound_output.h"
#include "media/wave_file.h"

namespace tickwell {

/// Plays waves side by side, a channel each. Sessions, and the waves in them, are known by numbers above 0; a
/// number that is not known does nothing. Devices are open only while something sounds: each channel opens
/// its own, in the format of its wave, and the first takes over the one that showed at the activation that
/// there is sound at all.
class WaveMix {
public:
    /// Both outlive this object. `timers` is of real time, as sound is.
    WaveMix(TimerSource& timers, SoundOutput& output);

    /// A session of so many channels; an open one is closed first.
    qint32 WaveMixConfigureInit(qint32 channels);

    /// False where no sound can be put out.
    bool WaveMixActivate(qint32 session);

    /// A wave; 0 where there is no playable file. A relative name counts from the current folder.
    qint32 WaveMixOpenWave(qint32 session, const QString& fileName);

    /// Makes a channel ready to be played on; false where the session has none of this number.
    bool WaveMixOpenChannel(qint32 session, qint32 channel);

    /// Drops what the channel plays and plays the wave on it, `loops` times more than once and without a gap.
    void WaveMixPlay(qint32 session, qint32 channel, qint32 wave, qint32 loops);

    /// Ends what the channel plays.
    void WaveMixFlushChannel(qint32 session, qint32 channel);
    void WaveMixFreeWave(qint32 session, qint32 wave);
    void WaveMixCloseSession(qint32 session);

private:
    /// What a channel plays. Nothing once its wave is freed.
    struct Channel {
        std::unique_ptr<SoundStream> stream;  // none while it is silent
        SoundFormat format;
        qint32 wave = 0;
        qint32 loopsLeft = 0;  // that are not queued yet
        int silentFor = 0;     // ms
    };

    bool IsOpen(qint32 session) const { return session != 0 && session == m_session; }
    bool OpenStream(Channel& channel, const SoundFormat& format);
    void Fill(Channel& channel);
    void Tick();

    SoundOutput& m_output;
    qint32 m_lastNumber = 0;
    qint32 m_session = 0;
    qint32 m_channelCount = 0;
    QHash<qint32, Wave> m_waves;
    std::map<qint32, Channel> m_channels;
    Channel m_first;                 // the device of the activation, until a channel takes it
    std::unique_ptr<Timer> m_timer;  // runs while a device is open
};

}  // namespace tickwell
