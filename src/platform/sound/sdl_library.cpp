// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/sdl_library.h"

namespace tickwell::platform {

namespace {

template <typename Function>
bool Resolve(QLibrary& library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(library.resolve(name));
    return function != nullptr;
}

}  // namespace

SdlLibrary::SdlLibrary(const QString& name) : m_library(name, 0) {
    m_library.setLoadHints(QLibrary::PreventUnloadHint);
}

const SdlFunctions* SdlLibrary::Load() {
    m_isResolved = m_isResolved || (m_library.load() && ResolveAll());
    return m_isResolved ? &m_functions : nullptr;
}

bool SdlLibrary::ResolveAll() {
    return Resolve(m_library, "SDL_SetMainReady", m_functions.SetMainReady) &&
           Resolve(m_library, "SDL_SetHint", m_functions.SetHint) &&
           Resolve(m_library, "SDL_InitSubSystem", m_functions.InitSubSystem) &&
           Resolve(m_library, "SDL_QuitSubSystem", m_functions.QuitSubSystem) &&
           Resolve(m_library, "SDL_OpenAudioDevice", m_functions.OpenAudioDevice) &&
           Resolve(m_library, "SDL_CloseAudioDevice", m_functions.CloseAudioDevice) &&
           Resolve(m_library, "SDL_PauseAudioDevice", m_functions.PauseAudioDevice) &&
           Resolve(m_library, "SDL_QueueAudio", m_functions.QueueAudio) &&
           Resolve(m_library, "SDL_GetQueuedAudioSize", m_functions.GetQueuedAudioSize) &&
           Resolve(m_library, "SDL_ClearQueuedAudio", m_functions.ClearQueuedAudio) &&
           Resolve(m_library, "SDL_GetAudioDeviceStatus", m_functions.GetAudioDeviceStatus) &&
           Resolve(m_library, "SDL_TLSCleanup", m_functions.TLSCleanup);
}

}  // namespace tickwell::platform
