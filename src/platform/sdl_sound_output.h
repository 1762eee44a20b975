// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>

#include "media/ports/sound_output.h"
#include "platform/slow_jobs.h"

namespace tickwell {

class SdlDrivers;

/// Sound through SDL's queues: no callback and no lock of ours. Nothing but its library is held while no
/// stream is open, and not even that before the first one. A sound server that hangs is waited for no longer
/// than a moment: devices are opened and closed apart.
class SdlSoundOutput : public SoundOutput {
public:
    /// `library`: what stands between "lib" and ".so.0". Where it is missing nothing can be opened.
    explicit SdlSoundOutput(const QString& library = QStringLiteral("SDL2-2.0"));

    /// Nothing also where none could be opened in time.
    std::unique_ptr<SoundStream> Open(const SoundFormat& format) override;

    int OpenDevices() const { return m_devices; }

private:
    friend class SdlSoundStream;
    void Close(unsigned device);

    std::shared_ptr<SdlDrivers> m_drivers;
    SlowJobs m_jobs;
    int m_devices = 0;
};

}  // namespace tickwell
