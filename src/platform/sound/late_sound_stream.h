// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "media/ports/sound_output.h"

namespace tickwell::platform {

/// A stream whose device is still being opened. It buffers queued sound until the device is open, and drops
/// it if opening fails.
class LateSoundStream : public media::SoundStream {
public:
    /// Polls the opening: nullopt while it is pending, then the stream of the device, or null if it failed.
    /// Called by every function until it returns a value, and then destroyed.
    using Look = std::function<std::optional<std::unique_ptr<media::SoundStream>>()>;

    LateSoundStream(const media::SoundFormat& format, Look look)
        : m_format(format), m_look(std::move(look)) {}

    bool Queue(std::span<const qint16> samples) override;
    qint64 FramesWaiting() const override;
    void Hold(bool held) override;
    void Clear() override;
    bool IsLost() const override;

private:
    bool IsStillOpening() const;

    media::SoundFormat m_format;
    bool m_isHeld = false;
    mutable Look m_look;                    // until the device is open or has failed
    mutable std::vector<qint16> m_samples;  // until then
    mutable std::unique_ptr<media::SoundStream> m_stream;
};

}  // namespace tickwell::platform
