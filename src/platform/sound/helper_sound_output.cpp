// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/helper_sound_output.h"

#include <QDeadlineTimer>
#include <utility>

#include "platform/log.h"
#include "platform/sound/sound_queue.h"

namespace tickwell::platform {

namespace {

constexpr int kReapInterval = 200;                    // ms
constexpr std::chrono::milliseconds kPatience{5000};  // usually 20 to 80 ms, but a busy machine may stall
constexpr std::chrono::milliseconds kMoment{150};     // enough for most devices to open

}  // namespace

class HelperSoundStream : public media::SoundStream {
public:
    HelperSoundStream(HelperSoundOutput& output, int channels)
        : m_output(output),
          m_frameBytes(qint64{channels} * static_cast<qint64>(sizeof(qint16))),
          m_child(output.m_reaper) {}
    ~HelperSoundStream() override { End(); }
    HelperSoundStream(const HelperSoundStream&) = delete;
    HelperSoundStream& operator=(const HelperSoundStream&) = delete;

    /// Returns false if there is no device. It may still be opening.
    bool Start(const QString& helper, const media::SoundFormat& format) {
        if (!m_queue.IsGood() ||
            !m_child.Start(helper, {QString::number(format.rate), QString::number(format.channels)},
                           m_queue.File())) {
            qCWarning(PlatformLog).noquote() << "cannot start" << helper;
            return false;
        }
        m_child.WaitForOutput(kMoment);
        return !IsLost();
    }

    bool Queue(std::span<const qint16> samples) override { return HasHelper() && m_queue.Append(samples); }
    qint64 FramesWaiting() const override { return HasHelper() ? m_queue.Waiting() / m_frameBytes : 0; }
    void Hold(bool held) override { m_queue.Hold(held); }
    void Clear() override { m_queue.Drop(); }
    bool IsLost() const override { return !HasHelper() || m_queue.IsDeviceLost(); }

private:
    enum class State { Opening, Open, Lost };

    bool HasHelper() const;
    void End() const;

    HelperSoundOutput& m_output;
    qint64 m_frameBytes;
    SoundQueue m_queue;
    QDeadlineTimer m_deadline{kPatience};
    // What the helper has told, looked at whenever something is asked.
    mutable ChildProcess m_child;
    mutable State m_state = State::Opening;
};

bool HelperSoundStream::HasHelper() const {
    if (m_state == State::Lost) {
        return false;
    }
    const QByteArray told = m_child.Read(1);
    if (told == QByteArray(1, sound_helper::kOpened)) {
        m_state = State::Open;
        ++m_output.m_devices;
    }
    const bool isLate = m_state == State::Opening && m_deadline.hasExpired();
    if (isLate || told == QByteArray(1, sound_helper::kRefused) || m_child.ExitCode()) {
        End();
    }
    return m_state != State::Lost;
}

/// One that is still opening is killed, because it may hang.
void HelperSoundStream::End() const {
    const State before = std::exchange(m_state, State::Lost);
    if (before == State::Open) {
        --m_output.m_devices;
        m_child.Leave();
    } else {
        m_child.End();
    }
    m_output.m_timer->Start();
}

HelperSoundOutput::HelperSoundOutput(RealTimerSource& timers, QString helper)
    : m_helper(std::move(helper)), m_timer(timers.Create(kReapInterval, [this] { Reap(); })) {}

HelperSoundOutput::~HelperSoundOutput() = default;

std::unique_ptr<media::SoundStream> HelperSoundOutput::Open(const media::SoundFormat& format) {
    auto stream = std::make_unique<HelperSoundStream>(*this, format.channels);
    if (!stream->Start(m_helper, format)) {
        return nullptr;
    }
    return stream;
}

void HelperSoundOutput::Reap() {
    m_reaper.Reap();
    if (m_reaper.IsIdle()) {
        m_timer->Stop();
    }
}

}  // namespace tickwell::platform
