// SPDX-License-Identifier: GPL-3.0-or-later
#define SDL_MAIN_HANDLED
#include "platform/sdl_sound_output.h"

#include <SDL.h>

namespace tickwell {

namespace {

/// Frames of a device's buffer. To close a device takes the time of two, which the user shall not feel;
/// smaller ones wake the machine more often and make gaps sooner where it is busy.
Uint16 BufferFrames(int rate) {
    constexpr int kBuffersInSecond = 60;
    return static_cast<Uint16>(rate / kBuffersInSecond);
}

}  // namespace

class SdlSoundStream : public SoundStream {
public:
    SdlSoundStream(SdlSoundOutput& output, SDL_AudioDeviceID device, int channels)
        : m_output(output),
          m_device(device),
          m_frameBytes(qint64{channels} * static_cast<qint64>(sizeof(qint16))) {
        ++m_output.m_devices;
        Hold(false);
    }
    ~SdlSoundStream() override {
        SDL_CloseAudioDevice(m_device);
        --m_output.m_devices;
        m_output.Leave();
    }
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

std::unique_ptr<SoundStream> SdlSoundOutput::Open(const SoundFormat& format) {
    if (!Prepare()) {
        return nullptr;
    }
    SDL_AudioSpec wanted{};
    wanted.freq = format.rate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = static_cast<Uint8>(format.channels);
    wanted.samples = BufferFrames(format.rate);
    const SDL_AudioDeviceID device = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (device == 0) {
        Leave();
        return nullptr;
    }
    return std::make_unique<SdlSoundStream>(*this, device, format.channels);
}

bool SdlSoundOutput::Prepare() {
    if (!m_isPrepared) {
        SDL_SetMainReady();
        // Its own handlers would swallow the signals that shall end this program.
        SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
        SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Tickwell");
        m_isPrepared = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
    }
    return m_isPrepared;
}

/// Where no device is open the drivers are left too: their threads and connections end, and the next to open
/// chooses afresh, for a sound server may have come or gone meanwhile.
void SdlSoundOutput::Leave() {
    if (m_devices == 0 && m_isPrepared) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        m_isPrepared = false;
    }
}

}  // namespace tickwell
