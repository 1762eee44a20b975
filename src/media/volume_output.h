// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>

#include "media/ports/sound_output.h"

namespace tickwell::media {

/// A sound output at a lower volume. The volume counts when samples are queued; at 100 percent they are
/// passed on unchanged.
class VolumeOutput : public SoundOutput {
public:
    using Percent = std::function<qint32()>;

    /// `output` outlives this object. `percent` is clamped to 0..100.
    VolumeOutput(SoundOutput& output, Percent percent) : m_output(output), m_percent(std::move(percent)) {}

    std::unique_ptr<SoundStream> Open(const SoundFormat& format) override;

    /// Runs `play`; what it queues has this volume instead.
    void With(qint32 percent, const std::function<void()>& play);

private:
    class Stream;

    int Now() const;

    SoundOutput& m_output;
    Percent m_percent;
    std::optional<qint32> m_instead;  // during With
};

}  // namespace tickwell::media
