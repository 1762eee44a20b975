// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#ifndef SDL_MAIN_HANDLED
#define SDL_MAIN_HANDLED
#endif
#include <SDL.h>

#include <QLibrary>

namespace tickwell::platform {

/// The SDL functions that are used, under SDL's own names.
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

/// The SDL library, loaded on demand: with its thirty dependencies it is not loaded before the first sound.
class SdlLibrary {
public:
    /// `name`: the part between "lib" and ".so.0".
    explicit SdlLibrary(const QString& name);

    /// Loads the library unless it is loaded already. Null if it is missing or lacks one of these functions;
    /// the next call then tries again. It is never unloaded, because its drivers leave threads and handlers
    /// behind.
    const SdlFunctions* Load();

private:
    bool ResolveAll();

    QLibrary m_library;
    SdlFunctions m_functions;
    bool m_isResolved = false;
};

}  // namespace tickwell::platform
