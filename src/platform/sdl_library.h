// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#ifndef SDL_MAIN_HANDLED
#define SDL_MAIN_HANDLED
#endif
#include <SDL.h>

#include <QLibrary>

namespace tickwell {

/// What is used of SDL, under SDL's own names.
struct SdlFunctions {
    decltype(&SDL_SetMainReady) SetMainReady = nullptr;
    decltype(&SDL_SetHint) SetHint = nullptr;
    decltype(&SDL_InitSubSystem) InitSubSystem = nullptr;
    decltype(&SDL_QuitSubSystem) QuitSubSystem = nullptr;
    decltype(&SDL_OpenAudioDevice) OpenAudioDevice = nullptr;
    decltype(&SDL_CloseAudioDevice) CloseAudioDevice = nullptr;
    decltype(&SDL_PauseAudioDevice) PauseAudioDevice = nullptr;
    decltype(&SDL_QueueAudio) QueueAudio = nullptr;
    decltype(&SDL_GetQueuedAudioSize) GetQueuedAudioSize = nullptr;
    decltype(&SDL_ClearQueuedAudio) ClearQueuedAudio = nullptr;
    decltype(&SDL_GetAudioDeviceStatus) GetAudioDeviceStatus = nullptr;
    decltype(&SDL_TLSCleanup) TLSCleanup = nullptr;
};

/// SDL's library, which brings thirty others along: none of them is loaded before the first sound.
class SdlLibrary {
public:
    /// `name`: what stands between "lib" and ".so.0".
    explicit SdlLibrary(const QString& name);

    /// Loads the library, unless it is there already. Null where the machine has none, or one without these
    /// functions; it is then looked for again with the next call. It stays until the process ends: its
    /// drivers leave threads and handlers behind that must find their code.
    const SdlFunctions* Load();

private:
    bool ResolveAll();

    QLibrary m_library;
    SdlFunctions m_functions;
    bool m_isResolved = false;
};

}  // namespace tickwell
