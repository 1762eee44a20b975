// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/wave_device.h"

#include <algorithm>

#include "media/command_error.h"

namespace tickwell::media {

using namespace Qt::StringLiterals;

WaveDevice::WaveDevice(Wave wave, SoundOutput& output, RealTimerSource& timers)
    : m_wave(std::move(wave)), m_output(output), m_timer(timers.Create(kSoundTail, [this] { Tick(); })) {}

void WaveDevice::Play(const PlayOptions& options) {
    const qint64 to = options.to ? FrameOf(*options.to) : m_wave.Frames();
    const qint64 from = options.from ? FrameOf(*options.from) : Position();
    if (from > to) {
        throw CommandError(kErrorOutside);
    }
    Start(from, to);
}

void WaveDevice::Stop() {
    Close();
    m_end = 0;
}

void WaveDevice::Pause() {
    if (IsPlaying()) {
        m_stream->Hold(true);
        m_isPaused = true;
        m_timer->Stop();
    }
}

void WaveDevice::Resume() {
    if (m_isPaused) {
        m_stream->Hold(false);
        m_isPaused = false;
        m_timer->Start();
    }
}

void WaveDevice::SetTimeFormat(const QString& format) {
    if (format != u"milliseconds" && format != u"ms") {
        throw CommandError(kErrorWaveTimeFormat);
    }
}

QString WaveDevice::Status(const StatusOptions& options) {
    if (options.track.value_or(1) != 1) {
        throw CommandError(kErrorOutside);
    }
    switch (options.item) {
        case StatusItem::TrackCount:
        case StatusItem::CurrentTrack:
            return u"1"_s;
        case StatusItem::Length:
            return TimeText(m_wave.Frames());
        case StatusItem::Position:
            return TimeText(options.track ? 0 : Position());
        case StatusItem::MediaPresent:
            return u"true"_s;
        case StatusItem::Mode:
            break;
    }
    return m_isPaused ? u"paused"_s : IsPlaying() ? u"playing"_s : u"stopped"_s;
}

bool WaveDevice::IsPlaying() {
    return m_stream && !m_isPaused && m_stream->FramesWaiting() > 0;
}

/// The length in milliseconds is rounded down; read back, it means the exact end.
qint64 WaveDevice::FrameOf(const QString& text) const {
    bool isNumber = false;
    const qint64 milliseconds = text.toLongLong(&isNumber);
    if (!isNumber) {
        throw CommandError(text.contains(u':') ? kErrorNumber
                                               : kErrorOutside);  // too many digits for any wave
    }
    const qint64 length = m_wave.Frames() * 1000 / m_wave.format.rate;
    if (milliseconds > length) {
        throw CommandError(kErrorOutside);
    }
    return milliseconds == length ? m_wave.Frames() : milliseconds * m_wave.format.rate / 1000;
}

QString WaveDevice::TimeText(qint64 frames) const {
    return QString::number(frames * 1000 / m_wave.format.rate);
}

qint64 WaveDevice::Position() const {
    return m_end - (m_stream ? m_stream->FramesWaiting() : 0);
}

void WaveDevice::Start(qint64 from, qint64 to) {
    if (m_stream && m_stream->IsLost()) {
        m_stream.reset();
    }
    if (m_stream) {
        m_stream->Clear();
        m_stream->Hold(false);
    } else {
        m_stream = m_output.Open(m_wave.format);
    }
    m_isPaused = false;
    m_hasDrained = false;
    m_end = to;
    const auto channels = static_cast<std::size_t>(m_wave.format.channels);
    const std::span<const qint16> samples(m_wave.samples);
    const auto stretch = samples.subspan(static_cast<std::size_t>(from) * channels,
                                         static_cast<std::size_t>(to - from) * channels);
    if (!m_stream || !m_stream->Queue(stretch)) {
        Close();
        m_end = from;
        throw CommandError(kErrorNoSound);
    }
    m_timer->Start();
}

void WaveDevice::Close() {
    m_timer->Stop();
    m_stream.reset();
    m_isPaused = false;
}

/// Closes the device one tick after it has drained: by then the sound server has played its buffer.
void WaveDevice::Tick() {
    if (m_stream->FramesWaiting() > 0) {
        return;
    }
    if (m_hasDrained) {
        Close();
    }
    m_hasDrained = true;
}

}  // namespace tickwell::media
