// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>

#include "media/ports/sound_output.h"
#include "platform/slow_jobs.h"

namespace tickwell {

struct SdlAttempt;
class SdlDrivers;

/// Sound through SDL's queues: no callback and no lock of ours. Nothing but its library is held while no
/// stream is open, and not even that before the first one. A sound server that hangs holds nothing up:
/// devices are opened and closed by a thread of their own.
class SdlSoundOutput : public SoundOutput {
public:
    /// `library`: what stands between "lib" and ".so.0". Where it is missing nothing can be opened.
    explicit SdlSoundOutput(const QString& library = QStringLiteral("SDL2-2.0"));

    /// If opening takes longer than a moment the stream keeps what is queued meanwhile; it is lost if the
    /// device has not come after a second. While one that did not come hangs, nothing is opened.
    std::unique_ptr<SoundStream> Open(const SoundFormat& format) override;

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

}  // namespace tickwell
