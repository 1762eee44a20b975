// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/ports/timer.h"
#include "media/media_device.h"
#include "media/wave_file.h"

namespace tickwell::media {

/// A wave file as a device. Its times are milliseconds and it has a single track. A sound device is open only
/// from the first play until shortly after the end.
class WaveDevice : public MediaDevice {
public:
    /// Output and timers outlive this object.
    WaveDevice(Wave wave, SoundOutput& output, RealTimerSource& timers);

    void Play(const PlayOptions& options) override;
    void Stop() override;
    void Pause() override;
    void Resume() override;
    void SetTimeFormat(const QString& format) override;
    QString Status(const StatusOptions& options) override;
    bool IsPlaying() override;

private:
    qint64 FrameOf(const QString& text) const;
    QString TimeText(qint64 frames) const;
    qint64 Position() const;
    void Start(qint64 from, qint64 to);
    void Close();
    void Tick();

    Wave m_wave;
    SoundOutput& m_output;
    std::unique_ptr<SoundStream> m_stream;
    std::unique_ptr<Timer> m_timer;  // runs while a stream is open
    qint64 m_end = 0;                // frames: the end of the queued range
    bool m_isPaused = false;
    bool m_hasDrained = false;  // the last tick found no frames waiting
};

}  // namespace tickwell::media
