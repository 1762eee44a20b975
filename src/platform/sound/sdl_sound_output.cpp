// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/sdl_sound_output.h"

#include <QDeadlineTimer>
#include <atomic>
#include <optional>
#include <utility>

#include "platform/sound/late_sound_stream.h"
#include "platform/sound/sdl_drivers.h"

namespace tickwell::platform {

namespace {

constexpr std::chrono::milliseconds kPatience{5000};    // usually 5 to 60 ms, but a busy machine may stall
constexpr std::chrono::milliseconds kMoment{150};       // enough for most devices to open
constexpr std::chrono::milliseconds kLastMoment{1000};  // for closing devices when the program ends

}  // namespace

class SdlSoundStream : public media::SoundStream {
public:
    SdlSoundStream(SdlSoundOutput& output, const SdlFunctions& sdl, SDL_AudioDeviceID device, int channels)
        : m_output(output),
          m_sdl(sdl),
          m_device(device),
          m_frameBytes(qint64{channels} * static_cast<qint64>(sizeof(qint16))) {
        ++m_output.m_devices;
        Hold(false);
    }
    ~SdlSoundStream() override { m_output.Close(m_device); }
    SdlSoundStream(const SdlSoundStream&) = delete;
    SdlSoundStream& operator=(const SdlSoundStream&) = delete;

    bool Queue(std::span<const qint16> samples) override {
        return m_sdl.QueueAudio(m_device, samples.data(), static_cast<Uint32>(samples.size_bytes())) == 0;
    }
    qint64 FramesWaiting() const override { return m_sdl.GetQueuedAudioSize(m_device) / m_frameBytes; }
    void Hold(bool held) override { m_sdl.PauseAudioDevice(m_device, held ? 1 : 0); }
    void Clear() override { m_sdl.ClearQueuedAudio(m_device); }
    bool IsLost() const override { return m_sdl.GetAudioDeviceStatus(m_device) == SDL_AUDIO_STOPPED; }

private:
    SdlSoundOutput& m_output;
    const SdlFunctions& m_sdl;
    SDL_AudioDeviceID m_device;
    qint64 m_frameBytes;
};

/// One attempt to open a device, shared with the thread's job that performs it.
struct SdlAttempt {
    QDeadlineTimer deadline{kPatience};
    std::atomic<bool> isDone = false;
    SDL_AudioDeviceID device = 0;  // valid once it is done; 0 if there is none

    bool Hangs() const { return !isDone && deadline.hasExpired(); }
};

/// The owner's side of an attempt. Its destructor closes a device that was not taken, even one that opens
/// later.
class SdlOpening {
public:
    SdlOpening(SdlSoundOutput& output, const media::SoundFormat& format)
        : m_output(output), m_format(format), m_attempt(std::make_shared<SdlAttempt>()) {
        m_output.m_lastAttempt = m_attempt;
        m_output.m_jobs.Do([drivers = m_output.m_drivers, attempt = m_attempt, format] {
            attempt->device = drivers->Open(format);
            drivers->ForgetThread();
            attempt->isDone = true;
        });
    }
    ~SdlOpening() {
        if (m_isTaken) {
            return;
        }
        m_output.m_jobs.Do([drivers = m_output.m_drivers, attempt = m_attempt] {
            if (attempt->device != 0) {
                drivers->Close(attempt->device);
                drivers->ForgetThread();
            }
        });
    }
    SdlOpening(const SdlOpening&) = delete;
    SdlOpening& operator=(const SdlOpening&) = delete;

    /// See LateSoundStream::Look.
    std::optional<std::unique_ptr<media::SoundStream>> Look() {
        if (m_attempt->isDone) {
            m_isTaken = true;
            return Stream();
        }
        return m_attempt->Hangs() ? std::optional<std::unique_ptr<media::SoundStream>>(nullptr)
                                  : std::nullopt;
    }

private:
    std::unique_ptr<media::SoundStream> Stream() {
        if (m_attempt->device == 0) {
            return nullptr;
        }
        const SdlFunctions& functions = m_output.m_drivers->Functions();
        return std::make_unique<SdlSoundStream>(m_output, functions, m_attempt->device, m_format.channels);
    }

    SdlSoundOutput& m_output;
    media::SoundFormat m_format;
    std::shared_ptr<SdlAttempt> m_attempt;
    bool m_isTaken = false;
};

SdlSoundOutput::SdlSoundOutput(const QString& library)
    : m_drivers(std::make_shared<SdlDrivers>(library)), m_jobs(kLastMoment) {}

std::unique_ptr<media::SoundStream> SdlSoundOutput::Open(const media::SoundFormat& format) {
    if (m_lastAttempt != nullptr && m_lastAttempt->Hangs()) {
        return nullptr;
    }
    const auto opening = std::make_shared<SdlOpening>(*this, format);
    m_jobs.Wait(kMoment);
    if (auto opened = opening->Look()) {
        return std::move(*opened);
    }
    return std::make_unique<LateSoundStream>(format, [opening] { return opening->Look(); });
}

void SdlSoundOutput::Close(unsigned device) {
    --m_devices;
    // Silences the device at once, because the thread may close it later.
    m_drivers->Functions().ClearQueuedAudio(device);
    m_jobs.Do([drivers = m_drivers, device] {
        drivers->Close(device);
        drivers->ForgetThread();
    });
}

}  // namespace tickwell::platform
