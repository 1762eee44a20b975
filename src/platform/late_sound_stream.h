// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "media/ports/sound_output.h"

namespace tickwell {

/// A stream whose device is still being opened. It keeps what is queued and hands it on once the device is
/// there; if the device does not come it is lost.
class LateSoundStream : public SoundStream {
public:
    /// What became of the opening: nothing yet, the stream of the device, or no stream. Asked with each call
    /// until one of the latter two comes, and destroyed then.
    using Look = std::function<std::optional<std::unique_ptr<SoundStream>>()>;

    LateSoundStream(const SoundFormat& format, Look look) : m_format(format), m_look(std::move(look)) {}

    bool Queue(std::span<const qint16> samples) override;
    qint64 FramesWaiting() const override;
    void Hold(bool held) override;
    void Clear() override;
    bool IsLost() const override;

private:
    bool IsStillOpening() const;

    SoundFormat m_format;
    bool m_isHeld = false;
    mutable Look m_look;                    // until the device has come, or will not come
    mutable std::vector<qint16> m_samples;  // until then
    mutable std::unique_ptr<SoundStream> m_stream;
};

}  // namespace tickwell
