// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/wave_file.h"

#include <QtEndian>

#include "core/regular_file.h"

namespace tickwell::media {

namespace {

constexpr qint64 kLargestFile = qint64{64} << 20;
constexpr qsizetype kRiffHead = 12;       // "RIFF", size, "WAVE"
constexpr qsizetype kChunkHead = 8;       // name, size
constexpr qsizetype kFormatLength = 16;   // of the "fmt " chunk, without optional fields
constexpr qsizetype kExtensibleTag = 24;  // offset of the actual format tag in an extensible format
constexpr quint16 kPcm = 1;
constexpr quint16 kExtensible = 0xFFFE;

quint16 Word(QByteArrayView bytes, qsizetype at) {
    return qFromLittleEndian<quint16>(bytes.data() + at);
}

quint32 DoubleWord(QByteArrayView bytes, qsizetype at) {
    return qFromLittleEndian<quint32>(bytes.data() + at);
}

/// The first chunk of this name, shortened if the file ends before it.
std::optional<QByteArrayView> Chunk(QByteArrayView bytes, QByteArrayView name) {
    qsizetype at = kRiffHead;
    while (bytes.size() - at >= kChunkHead) {
        const qsizetype length = DoubleWord(bytes, at + 4);
        const QByteArrayView content = bytes.sliced(at + kChunkHead);
        if (bytes.sliced(at, 4) == name) {
            return content.first(std::min(length, content.size()));
        }
        if (length >= content.size()) {
            return std::nullopt;
        }
        at += kChunkHead + length + length % 2;  // chunks start at even offsets
    }
    return std::nullopt;
}

struct SampleLayout {
    SoundFormat format;
    int bytes = 0;  // of one sample
};

std::optional<SampleLayout> LayoutIn(QByteArrayView chunk) {
    if (chunk.size() < kFormatLength) {
        return std::nullopt;
    }
    quint16 tag = Word(chunk, 0);
    if (tag == kExtensible && chunk.size() >= kExtensibleTag + 2) {
        tag = Word(chunk, kExtensibleTag);
    }
    const int channels = Word(chunk, 2);
    const quint32 rate = DoubleWord(chunk, 4);
    const int bits = Word(chunk, 14);
    const bool known = tag == kPcm && (channels == 1 || channels == 2) && (bits == 8 || bits == 16) &&
                       rate >= 1000 && rate <= 192'000;
    return known ? std::optional(SampleLayout{{static_cast<int>(rate), channels}, bits / 8}) : std::nullopt;
}

/// 8-bit samples are unsigned with 128 as zero; 16-bit samples are signed.
qint16 SampleAt(QByteArrayView data, qsizetype index, int bytes) {
    if (bytes == 1) {
        return static_cast<qint16>((static_cast<quint8>(data[index]) - 128) * 256);
    }
    return qFromLittleEndian<qint16>(data.data() + index * 2);
}

}  // namespace

std::optional<Wave> WaveOf(QByteArrayView bytes) {
    if (bytes.size() < kRiffHead || bytes.first(4) != "RIFF" || bytes.sliced(8, 4) != "WAVE") {
        return std::nullopt;
    }
    const auto format = Chunk(bytes, "fmt ");
    const auto data = Chunk(bytes, "data");
    const auto layout = format ? LayoutIn(*format) : std::nullopt;
    if (!layout || !data) {
        return std::nullopt;
    }
    const qsizetype frames = data->size() / (qsizetype{layout->bytes} * layout->format.channels);
    const qsizetype samples = frames * layout->format.channels;
    Wave wave{layout->format, {}};
    wave.samples.reserve(static_cast<std::size_t>(samples));
    for (qsizetype index = 0; index < samples; ++index) {
        wave.samples.push_back(SampleAt(*data, index, layout->bytes));
    }
    return wave;
}

WaveFile ReadWaveFile(const QString& path) {
    const FileContents file = ReadRegularFile(path, kLargestFile);
    if (file.problem == FileProblem::TooLarge) {
        return {WaveProblem::NotPlayable, {}};
    }
    if (file.problem != FileProblem::None) {
        return {WaveProblem::Missing, {}};
    }
    auto wave = WaveOf(file.bytes);
    return wave ? WaveFile{WaveProblem::None, std::move(*wave)} : WaveFile{WaveProblem::NotPlayable, {}};
}

}  // namespace tickwell::media
