// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#ifndef SDL_MAIN_HANDLED
#define SDL_MAIN_HANDLED
#endif
#include <SDL.h>

#include "sound_helper/protocol.h"

namespace tickwell::sound_helper {

/// A sound device that plays what is queued in a file (see protocol.h). Its frames are taken on a thread of
/// the sound library.
class SoundDevice {
public:
    /// `file`: the descriptor of the queue; `shared`: its start, mapped. Both outlive the device.
    SoundDevice(int file, SharedSound& shared) : m_file(file), m_shared(shared) {}
    SoundDevice(const SoundDevice&) = delete;
    SoundDevice& operator=(const SoundDevice&) = delete;

    /// May wait for the sound server. Returns false if there is no driver or no device. Call once.
    bool Open(int rate, int channels);

    /// Ends the sound at once.
    void Close() const;

private:
    static void Fill(void* device, Uint8* bytes, int count);
    int Take(Uint8* bytes, int most);

    int m_file;
    SharedSound& m_shared;
    SDL_AudioDeviceID m_device = 0;
};

}  // namespace tickwell::sound_helper
