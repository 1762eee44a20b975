// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/sdl_drivers.h"

#include <QLibrary>

namespace tickwell::platform {

using namespace Qt::StringLiterals;

namespace {

/// Frames of a device's buffer. Closing a device takes as long as two buffers play. Smaller buffers would
/// wake the machine more often and run empty sooner if it is busy.
Uint16 BufferFrames(int rate) {
    constexpr int kBuffersInSecond = 60;
    return static_cast<Uint16>(rate / kBuffersInSecond);
}

extern "C" void SayNothing(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/,
                           const char* /*format*/, ...) {}  // NOLINT(cert-dcl50-cpp): ALSA's signature

/// On a machine without sound, ALSA, which SDL has loaded, would print errors to standard error.
void SilenceDrivers() {
    QLibrary alsa(u"asound"_s, 2);
    alsa.setLoadHints(QLibrary::PreventUnloadHint);
    using SetHandler = int (*)(decltype(&SayNothing));
    if (const auto setHandler = reinterpret_cast<SetHandler>(alsa.resolve("snd_lib_error_set_handler"))) {
        setHandler(&SayNothing);
    }
}

}  // namespace

SDL_AudioDeviceID SdlDrivers::Open(const media::SoundFormat& format) {
    if (!Prepare()) {
        return 0;
    }
    SDL_AudioSpec wanted{};
    wanted.freq = format.rate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = static_cast<Uint8>(format.channels);
    wanted.samples = BufferFrames(format.rate);
    const SDL_AudioDeviceID device = m_sdl->OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (device == 0) {
        Leave();
        return 0;
    }
    ++m_devices;
    return device;
}

void SdlDrivers::Close(SDL_AudioDeviceID device) {
    m_sdl->CloseAudioDevice(device);
    --m_devices;
    Leave();
}

void SdlDrivers::ForgetThread() {
    if (m_sdl != nullptr) {
        m_sdl->TLSCleanup();
    }
}

bool SdlDrivers::Prepare() {
    if (!m_isPrepared) {
        m_sdl = m_library.Load();
        if (m_sdl == nullptr) {
            return false;
        }
        m_sdl->SetMainReady();
        // SDL's handlers would catch the signals that are to end this program.
        m_sdl->SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
        m_sdl->SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Tickwell");
        SilenceDrivers();
        m_isPrepared = m_sdl->InitSubSystem(SDL_INIT_AUDIO) == 0;
    }
    return m_isPrepared;
}

/// If no device is open, shuts the driver down: its threads and connections end, and the next Open selects a
/// driver again, because a sound server may have started or ended in the meantime.
void SdlDrivers::Leave() {
    if (m_devices == 0 && m_isPrepared) {
        m_sdl->QuitSubSystem(SDL_INIT_AUDIO);
        m_isPrepared = false;
    }
}

}  // namespace tickwell::platform
