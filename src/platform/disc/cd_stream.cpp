// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/disc/cd_stream.h"

#include <QtEndian>
#include <utility>
#include <vector>

#include "cd_helper/protocol.h"
#include "platform/disc/cd_answer.h"

namespace tickwell::platform {

namespace {

constexpr media::SoundFormat kDiscFormat{44100, 2};
constexpr qsizetype kFrameBytes = 4;
constexpr qint64 kAhead = 3 * qint64{44100};        // frames queued at most: reading a bad sector takes long
constexpr qint64 kToBegin = 2 * qint64{44100} / 5;  // frames, 0.4 s
constexpr int kLongPause = 10'000;                  // ms of pause until device and helper are released

}  // namespace

CdStream::CdStream(media::SoundOutput& output, ChildReaper& reaper, QString helper)
    : m_output(output), m_helper(std::move(helper)), m_child(reaper) {}

bool CdStream::Play(const CdPlace& place, qint64 fromFrame, qint32 toSector) {
    Halt(fromFrame);
    if (m_stream == nullptr || m_stream->IsLost()) {
        m_stream.reset();
        m_stream = m_output.Open(kDiscFormat);
    }
    if (m_stream == nullptr) {
        return false;
    }
    m_place = place;
    m_stretch = CdStretch(place.contents, fromFrame, toSector);
    m_run = 0;
    m_queued = 0;
    m_stream->Hold(true);
    m_mode = media::CdMode::Seeking;
    StartRun();
    return true;
}

/// With another end, playback restarts from the current position: the sound that was read ahead may extend
/// beyond an earlier end, and it stops before a later one.
bool CdStream::GoOn(const CdPlace& place, qint32 toSector) {
    const bool isSame = m_stream != nullptr && toSector * media::kFramesPerSector == m_stretch.End();
    if (m_mode == media::CdMode::Stopped || !isSame) {
        return Play(place, Position(), toSector);
    }
    if (m_mode == media::CdMode::Paused) {
        m_mode = m_pausedMode;
        if (m_mode == media::CdMode::Playing) {
            m_stream->Hold(false);
        } else {
            Sound();
        }
    }
    return true;
}

void CdStream::Pause() {
    if (m_mode == media::CdMode::Seeking || m_mode == media::CdMode::Playing) {
        m_stream->Hold(true);
        m_pausedMode = std::exchange(m_mode, media::CdMode::Paused);
        m_rested = 0;
    }
}

void CdStream::Stop() {
    Halt(0);
}

qint64 CdStream::Position() const {
    const bool isPlayed = m_mode != media::CdMode::Stopped && m_stream != nullptr;
    return isPlayed ? m_stretch.PositionAfter(m_queued - m_stream->FramesWaiting()) : m_position;
}

CdStream::Trouble CdStream::Tick(int milliseconds) {
    if (m_mode == media::CdMode::Stopped || m_stream == nullptr) {
        TickAtRest(milliseconds);
        return Trouble::None;
    }
    if (const Trouble trouble = ReadAhead(); trouble != Trouble::None) {
        Halt(Position());
        return trouble;
    }
    if (m_mode == media::CdMode::Paused) {
        m_rested += milliseconds;
        if (m_rested >= kLongPause) {
            Release();
        }
    } else {
        Sound();
    }
    return Trouble::None;
}

/// Queues what the helper has read. When one run is complete, starts the next.
CdStream::Trouble CdStream::ReadAhead() {
    if (IsAllRead()) {
        return Trouble::None;
    }
    if (!m_child.IsRunning()) {  // it could not be started
        return Trouble::HelperDied;
    }
    const qint64 wanted = kAhead - m_stream->FramesWaiting();
    if (wanted <= 0) {
        return Trouble::None;
    }
    if (!QueueSound(m_child.Read(wanted * kFrameBytes))) {
        return Trouble::OutputGone;
    }
    const std::optional<int> code = m_child.ExitCode();
    if (!code) {
        return Trouble::None;
    }
    if (*code != cd_helper::kEndDone) {
        return *code == cd_helper::kEndGone ? Trouble::DiscGone : Trouble::HelperDied;
    }
    ++m_run;
    StartRun();
    return Trouble::None;
}

void CdStream::StartRun() {
    m_half.clear();
    if (IsAllRead()) {
        return;
    }
    const CdRun& run = m_stretch.Runs()[m_run];
    m_skip = static_cast<qsizetype>(run.from % media::kFramesPerSector) * kFrameBytes;
    m_child.Start(m_helper,
                  {QLatin1String(cd_helper::kReadWord), m_place.source,
                   QString::number(run.from / media::kFramesPerSector),
                   QString::number(run.to / media::kFramesPerSector), ContentsText(m_place.contents)});
}

/// False if the output accepts no more sound.
bool CdStream::QueueSound(QByteArray bytes) {
    const qsizetype skipped = std::min(m_skip, bytes.size());
    m_skip -= skipped;
    bytes = std::exchange(m_half, QByteArray()) + bytes.mid(skipped);
    const qsizetype frames = bytes.size() / kFrameBytes;
    m_half = bytes.mid(frames * kFrameBytes);
    if (frames == 0) {
        return true;
    }
    std::vector<qint16> samples(static_cast<std::size_t>(frames) * 2);
    qFromLittleEndian<qint16>(bytes.constData(), frames * 2, samples.data());
    if (!m_stream->Queue(samples)) {
        return false;
    }
    m_queued += frames;
    return true;
}

/// Starts playback when enough is queued, and ends it when everything was played. If the helper reads too
/// slowly, holds the stream until enough is queued again: a short silence rather than a stutter.
void CdStream::Sound() {
    const qint64 waiting = m_stream->FramesWaiting();
    if (IsAllRead() && waiting == 0) {
        Halt(m_stretch.End());
    } else if (m_mode == media::CdMode::Seeking && (IsAllRead() || waiting >= kToBegin)) {
        m_stream->Hold(false);
        m_mode = media::CdMode::Playing;
    } else if (m_mode == media::CdMode::Playing && waiting == 0) {
        m_stream->Hold(true);
        m_mode = media::CdMode::Seeking;
    }
}

/// Ends playback. The device stays open briefly, because it is still playing what it has buffered.
void CdStream::Halt(qint64 position) {
    m_child.End();
    if (m_stream != nullptr) {
        m_stream->Clear();
        m_stream->Hold(false);
    }
    m_mode = media::CdMode::Stopped;
    m_position = position;
    m_rested = 0;
}

/// Releases device and helper during a long pause; resuming then reads from the next frame.
void CdStream::Release() {
    m_position = Position();
    m_child.End();
    m_stream.reset();
}

void CdStream::TickAtRest(int milliseconds) {
    m_rested += milliseconds;
    if (m_rested > media::kSoundTail) {
        m_stream.reset();
    }
}

}  // namespace tickwell::platform
