// SPDX-License-Identifier: GPL-3.0-or-later
#define SDL_MAIN_HANDLED
#include "platform/sdl_sound_output.h"

#include <SDL.h>
#include <alsa/asoundlib.h>

namespace tickwell {

namespace {

constexpr std::chrono::milliseconds kPatience{1000};  // an opening takes 5 to 60

/// Frames of a device's buffer. To close a device takes the time of two; smaller ones wake the machine more
/// often and make gaps sooner where it is busy.
Uint16 BufferFrames(int rate) {
    constexpr int kBuffersInSecond = 60;
    return static_cast<Uint16>(rate / kBuffersInSecond);
}

/// A machine without sound is silent, also on the standard error.
extern "C" void SayNothing(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/,
                           const char* /*format*/, ...) {}  // NOLINT(cert-dcl50-cpp): the library's own shape

}  // namespace

/// All of SDL that may wait for a sound server.
class SdlDrivers {
public:
    /// 0 where there is none.
    SDL_AudioDeviceID Open(const SoundFormat& format) {
        if (!Prepare()) {
            return 0;
        }
        SDL_AudioSpec wanted{};
        wanted.freq = format.rate;
        wanted.format = AUDIO_S16SYS;
        wanted.channels = static_cast<Uint8>(format.channels);
        wanted.samples = BufferFrames(format.rate);
        const SDL_AudioDeviceID device = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
        if (device == 0) {
            Leave();
            return 0;
        }
        ++m_devices;
        return device;
    }

    void Close(SDL_AudioDeviceID device) {
        SDL_CloseAudioDevice(device);
        --m_devices;
        Leave();
    }

private:
    bool Prepare() {
        if (!m_isPrepared) {
            SDL_SetMainReady();
            // Its own handlers would swallow the signals that shall end this program.
            SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
            SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Tickwell");
            snd_lib_error_set_handler(&SayNothing);
            m_isPrepared = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
        }
        return m_isPrepared;
    }

    /// Where no device is open the drivers are left too: their threads and connections end, and the next to
    /// open chooses afresh, for a sound server may have come or gone meanwhile.
    void Leave() {
        if (m_devices == 0 && m_isPrepared) {
            SDL_QuitSubSystem(SDL_INIT_AUDIO);
            m_isPrepared = false;
        }
    }

    int m_devices = 0;
    bool m_isPrepared = false;
};

class SdlSoundStream : public SoundStream {
public:
    SdlSoundStream(SdlSoundOutput& output, SDL_AudioDeviceID device, int channels)
        : m_output(output),
          m_device(device),
          m_frameBytes(qint64{channels} * static_cast<qint64>(sizeof(qint16))) {
        ++m_output.m_devices;
        Hold(false);
    }
    ~SdlSoundStream() override { m_output.Close(m_device); }
    SdlSoundStream(const SdlSoundStream&) = delete;
    SdlSoundStream& operator=(const SdlSoundStream&) = delete;

    bool Queue(std::span<const qint16> samples) override {
        return SDL_QueueAudio(m_device, samples.data(), static_cast<Uint32>(samples.size_bytes())) == 0;
    }
    qint64 FramesWaiting() const override { return SDL_GetQueuedAudioSize(m_device) / m_frameBytes; }
    void Hold(bool held) override { SDL_PauseAudioDevice(m_device, held ? 1 : 0); }
    void Clear() override { SDL_ClearQueuedAudio(m_device); }
    bool IsLost() const override { return SDL_GetAudioDeviceStatus(m_device) == SDL_AUDIO_STOPPED; }

private:
    SdlSoundOutput& m_output;
    SDL_AudioDeviceID m_device;
    qint64 m_frameBytes;
};

SdlSoundOutput::SdlSoundOutput() : m_drivers(std::make_shared<SdlDrivers>()), m_jobs(kPatience) {}

std::unique_ptr<SoundStream> SdlSoundOutput::Open(const SoundFormat& format) {
    const auto device = std::make_shared<SDL_AudioDeviceID>(0);
    const bool isInTime =
        m_jobs.DoAndWait([drivers = m_drivers, device, format] { *device = drivers->Open(format); });
    if (isInTime) {
        return *device == 0 ? nullptr : std::make_unique<SdlSoundStream>(*this, *device, format.channels);
    }
    m_jobs.Do([drivers = m_drivers, device] {
        if (*device != 0) {
            drivers->Close(*device);  // it came too late
        }
    });
    return nullptr;
}

void SdlSoundOutput::Close(unsigned device) {
    --m_devices;
    // What waits is dropped at once, and the device held: its closing is nothing that anyone hears.
    SDL_ClearQueuedAudio(device);
    m_jobs.Do([drivers = m_drivers, device] { drivers->Close(device); });
}

}  // namespace tickwell
