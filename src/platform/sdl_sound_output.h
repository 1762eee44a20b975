// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "media/ports/sound_output.h"

namespace tickwell {

/// Sound through SDL's queues: no callback and no lock of ours. Nothing is held while no stream is open.
class SdlSoundOutput : public SoundOutput {
public:
    std::unique_ptr<SoundStream> Open(const SoundFormat& format) override;

    int OpenDevices() const { return m_devices; }

private:
    friend class SdlSoundStream;
    bool Prepare();
    void Leave();

    int m_devices = 0;
    bool m_isPrepared = false;
};

}  // namespace tickwell
