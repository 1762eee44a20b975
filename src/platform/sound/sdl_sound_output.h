// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>

#include "media/ports/sound_output.h"
#include "platform/processes/slow_jobs.h"

namespace tickwell::platform {

struct SdlAttempt;
class SdlDrivers;

/// Sound through SDL's queues, without callbacks or locks of its own. While no stream is open, only the
/// library stays loaded; it is loaded for the first stream. A separate thread opens and closes devices, so
/// that a sound server that hangs blocks nothing.
class SdlSoundOutput : public media::SoundOutput {
public:
    /// `library`: the part between "lib" and ".so.0". If it is missing, nothing can be opened.
    explicit SdlSoundOutput(const QString& library = QStringLiteral("SDL2-2.0"));

    /// If opening takes longer than a moment, the stream buffers queued sound, which is discarded if the
    /// device is not open after five seconds. While such an attempt hangs, no other one is started.
    std::unique_ptr<media::SoundStream> Open(const media::SoundFormat& format) override;

    int OpenDevices() const { return m_devices; }

private:
    friend class SdlOpening;
    friend class SdlSoundStream;
    void Close(unsigned device);

    std::shared_ptr<SdlDrivers> m_drivers;
    SlowJobs m_jobs;
    std::shared_ptr<SdlAttempt> m_lastAttempt;
    int m_devices = 0;
};

}  // namespace tickwell::platform
