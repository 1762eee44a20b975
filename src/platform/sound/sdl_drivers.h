// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "media/ports/sound_output.h"
#include "platform/sound/sdl_library.h"

namespace tickwell::platform {

/// All SDL calls that may block on a sound server. Used by one thread at a time.
class SdlDrivers {
public:
    explicit SdlDrivers(const QString& library) : m_library(library) {}

    /// 0 if there is none.
    SDL_AudioDeviceID Open(const media::SoundFormat& format);

    void Close(SDL_AudioDeviceID device);

    /// Frees SDL's error message of the calling thread, because SDL is not notified when that thread ends.
    void ForgetThread();

    /// Only after a device was opened.
    const SdlFunctions& Functions() const { return *m_sdl; }

private:
    bool Prepare();
    void Leave();

    SdlLibrary m_library;
    const SdlFunctions* m_sdl = nullptr;  // null until it is loaded
    int m_devices = 0;
    bool m_isPrepared = false;
};

}  // namespace tickwell::platform
