// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>
#include <optional>
#include <vector>

#include "media/ports/sound_output.h"

namespace tickwell {

/// The sound of a wave file, as a stream of its own format takes it.
struct Wave {
    SoundFormat format;
    std::vector<qint16> samples;  ///< whole frames

    qint64 Frames() const { return static_cast<qint64>(samples.size()) / format.channels; }
};

/// The wave in these bytes of a RIFF file: PCM of 8 or 16 bits, one or two channels, 1000 to 192000 frames a
/// second. Nothing for any other bytes. A file that was cut short gives the frames that are there.
std::optional<Wave> WaveOf(QByteArrayView bytes);

enum class WaveProblem { None, Missing, NotPlayable };

struct WaveFile {
    WaveProblem problem = WaveProblem::None;
    Wave wave;  ///< of meaning only where there is no problem
};

/// Reads a whole file, of 64 MiB at most; a relative path counts from the current folder. Missing is what is
/// no file or cannot be opened.
WaveFile ReadWaveFile(const QString& path);

}  // namespace tickwell
