// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <map>
#include <memory>

#include "core/ports/timer.h"
#include "media/ports/sound_output.h"
#include "media/wave_file.h"

namespace tickwell::media {

/// Plays waves simultaneously, each on its channel. Sessions and waves have numbers above 0; an unknown
/// number does nothing. Devices are open only while something plays: each channel opens its own in the format
/// of its wave. The device opened by the activation, which shows whether sound works at all, is taken over by
/// the first channel if the formats match.
class WaveMix {
public:
    /// Both outlive this object. `timers`: real time, because sound runs in real time.
    WaveMix(RealTimerSource& timers, SoundOutput& output);

    /// Opens a session with this number of channels, closing an open one first. Returns its number.
    qint32 WaveMixConfigureInit(qint32 channels);

    /// Returns false if no sound output can be opened.
    bool WaveMixActivate(qint32 session);

    /// Loads a wave and returns its number; 0 if the file is not playable. A relative name is relative to the
    /// current folder.
    qint32 WaveMixOpenWave(qint32 session, const QString& fileName);

    /// Makes a channel playable; false if the session has no channel of this number.
    bool WaveMixOpenChannel(qint32 session, qint32 channel);

    /// Stops what the channel plays, then plays the wave once and repeats it `loops` times without a gap.
    void WaveMixPlay(qint32 session, qint32 channel, qint32 wave, qint32 loops);

    /// Stops what the channel plays.
    void WaveMixFlushChannel(qint32 session, qint32 channel);
    void WaveMixFreeWave(qint32 session, qint32 wave);
    void WaveMixCloseSession(qint32 session);

private:
    /// A channel and what it plays. Once its wave is freed, no more repetitions are queued.
    struct Channel {
        std::unique_ptr<SoundStream> stream;  // null while it is silent
        SoundFormat format;
        qint32 wave = 0;
        qint32 loopsLeft = 0;  // repetitions not queued yet
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
    Channel m_first;                 // the device opened by the activation, until a channel takes it
    std::unique_ptr<Timer> m_timer;  // runs while a device is open
};

}  // namespace tickwell::media
