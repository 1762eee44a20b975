// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>
#include <optional>
#include <vector>

#include "media/ports/sound_output.h"

namespace tickwell::media {

/// The sound of a wave file, converted to the samples that a SoundStream queues.
struct Wave {
    SoundFormat format;
    std::vector<qint16> samples;  ///< complete frames

    qint64 Frames() const { return static_cast<qint64>(samples.size()) / format.channels; }
};

/// Parses the bytes of a RIFF file: PCM of 8 or 16 bits, one or two channels, 1000 to 192000 frames a second.
/// Returns nullopt for any other bytes. A truncated file returns the frames that it has.
std::optional<Wave> WaveOf(QByteArrayView bytes);

enum class WaveProblem { None, Missing, NotPlayable };

struct WaveFile {
    WaveProblem problem = WaveProblem::None;
    Wave wave;  ///< valid only if there is no problem
};

/// Reads a file of at most 64 MiB; a relative path is relative to the current folder. Missing: it is not a
/// regular file or cannot be opened.
WaveFile ReadWaveFile(const QString& path);

}  // namespace tickwell::media
