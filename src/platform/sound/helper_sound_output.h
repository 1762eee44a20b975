// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <memory>

#include "core/ports/timer.h"
#include "media/ports/sound_output.h"
#include "platform/processes/child_process.h"

namespace tickwell::platform {

/// Sound through tickwell-sound, one process for each stream: this process never loads the sound library, and
/// a sound server that hangs blocks nothing.
class HelperSoundOutput : public media::SoundOutput {
public:
    /// `helper`: the path of tickwell-sound. `timers` run in real time and outlive this object.
    HelperSoundOutput(RealTimerSource& timers, QString helper);
    ~HelperSoundOutput() override;
    HelperSoundOutput(const HelperSoundOutput&) = delete;
    HelperSoundOutput& operator=(const HelperSoundOutput&) = delete;

    /// Waits a moment for the device. If opening takes longer, the stream buffers queued sound, and is lost
    /// if the device is not open after five seconds.
    std::unique_ptr<media::SoundStream> Open(const media::SoundFormat& format) override;

    /// The number of streams whose device is open.
    int OpenDevices() const { return m_devices; }

private:
    friend class HelperSoundStream;
    void Reap();

    QString m_helper;
    ChildReaper m_reaper;
    int m_devices = 0;
    std::unique_ptr<Timer> m_timer;  // runs while a child process is ending
};

}  // namespace tickwell::platform
