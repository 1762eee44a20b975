// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound_helper/sound_device.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace tickwell::sound_helper {

namespace {

/// Frames of a device's buffer. Closing a device takes as long as two buffers play. Smaller buffers would
/// wake the machine more often and run empty sooner if it is busy.
Uint16 BufferFrames(int rate) {
    constexpr int kBuffersInSecond = 60;
    return static_cast<Uint16>(rate / kBuffersInSecond);
}

}  // namespace

bool SoundDevice::Open(int rate, int channels) {
    SDL_SetMainReady();
    // SDL's handlers would catch the signals that are to end this process.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Tickwell");
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
        return false;
    }
    SDL_AudioSpec wanted{};
    wanted.freq = rate;
    wanted.format = AUDIO_S16SYS;
    wanted.channels = static_cast<Uint8>(channels);
    wanted.samples = BufferFrames(rate);
    wanted.callback = &SoundDevice::Fill;
    wanted.userdata = this;
    m_device = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    SDL_PauseAudioDevice(m_device, 0);
    return m_device != 0;
}

void SoundDevice::Close() const {
    SDL_CloseAudioDevice(m_device);
}

void SoundDevice::Fill(void* device, Uint8* bytes, int count) {
    auto& self = *static_cast<SoundDevice*>(device);
    const int taken = self.Take(bytes, count);
    std::memset(bytes + taken, 0, static_cast<std::size_t>(count - taken));
    if (SDL_GetAudioDeviceStatus(self.m_device) == SDL_AUDIO_STOPPED) {
        self.m_shared.isDeviceLost = true;
    }
}

/// Returns how many bytes it has taken. The program waits while `isTaking` after it has set `isHeld`: either
/// it sees the one or this sees the other, so nothing is taken once the program knows that it is held.
int SoundDevice::Take(Uint8* bytes, int most) {
    m_shared.isTaking = true;
    int taken = 0;
    if (!m_shared.isHeld) {
        const std::uint64_t queued = m_shared.queued;
        const std::uint64_t start = std::max<std::uint64_t>(m_shared.taken, m_shared.dropped);
        const auto wanted =
            static_cast<int>(std::min<std::uint64_t>(queued - start, static_cast<unsigned>(most)));
        while (taken < wanted) {
            const ssize_t count = pread(m_file, bytes + taken, static_cast<std::size_t>(wanted - taken),
                                        static_cast<off_t>(kSoundStart + start) + taken);
            if (count < 0 && errno == EINTR) {
                continue;
            }
            if (count <= 0) {
                break;
            }
            taken += static_cast<int>(count);
        }
        m_shared.taken = start + static_cast<unsigned>(taken);
    }
    m_shared.isTaking = false;
    return taken;
}

}  // namespace tickwell::sound_helper
