// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/wave_mix.h"

#include <algorithm>

namespace tickwell::media {

namespace {

constexpr SoundFormat kUsualFormat{22050, 1};  // of the sounds that ship with the program
constexpr int kTick = 100;                     // ms
constexpr qint64 kAhead = 60;  // s of sound: repetitions are queued while less than this is waiting, so a
                               // chime is queued completely

}  // namespace

WaveMix::WaveMix(RealTimerSource& timers, SoundOutput& output)
    : m_output(output), m_timer(timers.Create(kTick, [this] { Tick(); })) {}

qint32 WaveMix::WaveMixConfigureInit(qint32 channels) {
    WaveMixCloseSession(m_session);
    m_session = ++m_lastNumber;
    m_channelCount = channels;
    return m_session;
}

bool WaveMix::WaveMixActivate(qint32 session) {
    return IsOpen(session) && OpenStream(m_first, kUsualFormat);
}

qint32 WaveMix::WaveMixOpenWave(qint32 session, const QString& fileName) {
    if (!IsOpen(session)) {
        return 0;
    }
    WaveFile file = ReadWaveFile(fileName);
    if (file.problem != WaveProblem::None || file.wave.Frames() == 0) {
        return 0;
    }
    m_waves[++m_lastNumber] = std::move(file.wave);
    return m_lastNumber;
}

bool WaveMix::WaveMixOpenChannel(qint32 session, qint32 channel) {
    if (!IsOpen(session) || channel < 0 || channel >= m_channelCount) {
        return false;
    }
    m_channels.try_emplace(channel);
    return true;
}

void WaveMix::WaveMixPlay(qint32 session, qint32 channel, qint32 wave, qint32 loops) {
    const auto place = m_channels.find(channel);
    if (!IsOpen(session) || place == m_channels.end()) {
        return;
    }
    WaveMixFlushChannel(session, channel);
    const auto sound = m_waves.constFind(wave);
    if (sound == m_waves.constEnd() || !OpenStream(place->second, sound->format)) {
        return;
    }
    place->second.wave = wave;
    place->second.loopsLeft = loops;
    place->second.stream->Queue(sound->samples);
    Fill(place->second);
}

void WaveMix::WaveMixFlushChannel(qint32 session, qint32 channel) {
    const auto place = m_channels.find(channel);
    if (!IsOpen(session) || place == m_channels.end()) {
        return;
    }
    place->second.wave = 0;
    if (place->second.stream != nullptr) {
        place->second.stream->Clear();
    }
}

void WaveMix::WaveMixFreeWave(qint32 session, qint32 wave) {
    if (IsOpen(session)) {
        m_waves.remove(wave);
    }
}

void WaveMix::WaveMixCloseSession(qint32 session) {
    if (!IsOpen(session)) {
        return;
    }
    m_session = 0;
    m_waves.clear();
    m_channels.clear();
    m_first = Channel();
    m_timer->Stop();
}

/// Gives the channel a device of this format: its own or that of the activation if one fits. Otherwise closes
/// both before opening a new one, because some machines have only one device.
bool WaveMix::OpenStream(Channel& channel, const SoundFormat& format) {
    const auto fits = [&](const Channel& one) {
        return one.stream != nullptr && one.format == format && !one.stream->IsLost();
    };
    if (!fits(channel)) {
        channel.stream.reset();
        if (fits(m_first)) {
            channel.stream = std::move(m_first.stream);
        } else {
            m_first.stream.reset();
            channel.stream = m_output.Open(format);
        }
    }
    channel.format = format;
    channel.silentFor = 0;
    if (channel.stream != nullptr) {
        m_timer->Start();
    }
    return channel.stream != nullptr;
}

/// Queues complete repetitions while less than kAhead of sound is waiting.
void WaveMix::Fill(Channel& channel) {
    const auto sound = m_waves.constFind(channel.wave);
    if (sound == m_waves.constEnd()) {
        return;
    }
    while (channel.loopsLeft > 0 && channel.stream->FramesWaiting() < kAhead * channel.format.rate) {
        if (!channel.stream->Queue(sound->samples)) {
            channel.loopsLeft = 0;
            return;
        }
        --channel.loopsLeft;
    }
}

void WaveMix::Tick() {
    bool isAnyOpen = false;
    const auto tick = [&](Channel& channel) {
        if (channel.stream == nullptr) {
            return;
        }
        Fill(channel);
        channel.silentFor = channel.stream->FramesWaiting() == 0 ? channel.silentFor + kTick : 0;
        if (channel.silentFor > kSoundTail) {
            channel.stream.reset();
        }
        isAnyOpen = isAnyOpen || channel.stream != nullptr;
    };
    tick(m_first);
    for (auto& [number, channel] : m_channels) {
        tick(channel);
    }
    if (!isAnyOpen) {
        m_timer->Stop();
    }
}

}  // namespace tickwell::media
