// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "media/ports/sound_output.h"
#include "platform/sdl_library.h"

namespace tickwell {

/// All of SDL that may wait for a sound server. Used by one thread at a time.
class SdlDrivers {
public:
    explicit SdlDrivers(const QString& library) : m_library(library) {}

    /// 0 if there is none.
    SDL_AudioDeviceID Open(const SoundFormat& format);

    void Close(SDL_AudioDeviceID device);

    /// SDL keeps its last error for each thread, and would never know that one of this program's threads has
    /// ended.
    void ForgetThread();

    /// Once a device was opened.
    const SdlFunctions& Functions() const { return *m_sdl; }

private:
    bool Prepare();
    void Leave();

    SdlLibrary m_library;
    const SdlFunctions* m_sdl = nullptr;  // once it is loaded
    int m_devices = 0;
    bool m_isPrepared = false;
};

}  // namespace tickwell
