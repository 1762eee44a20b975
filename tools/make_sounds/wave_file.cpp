// SPDX-License-Identifier: GPL-3.0-or-later
#include "make_sounds/wave_file.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <numeric>
#include <system_error>

namespace tickwell {

namespace {

/// Appends a number in little-endian order, as RIFF requires, on any machine.
void Append(std::string& bytes, std::uint32_t number, int width) {
    for (int i = 0; i < width; ++i) {
        bytes.push_back(static_cast<char>(number >> (8 * i) & 0xFFU));
    }
}

/// Removes the mean and returns the level of the loudest sample after that.
double Centre(Signal& signal) {
    const double mean =
        std::accumulate(signal.begin(), signal.end(), 0.0) / static_cast<double>(signal.size());
    double loudest = 0;
    for (double& sample : signal) {
        sample -= mean;
        loudest = std::max(loudest, std::fabs(sample));
    }
    return loudest;
}

/// A wave that does not start and end at zero would click. The fade-in is short, so that a strike stays
/// sharp.
void FadeEnds(Signal& signal) {
    constexpr std::size_t kFadeIn = 32;                 // 1.5 ms
    constexpr std::size_t kFadeOut = kSampleRate / 25;  // 40 ms
    for (std::size_t i = 0; i < kFadeIn; ++i) {
        signal[i] *= static_cast<double>(i) / kFadeIn;
    }
    for (std::size_t i = 0; i < kFadeOut; ++i) {
        signal[signal.size() - 1 - i] *= Rise(static_cast<double>(i) / kFadeOut);
    }
}

std::system_error WriteError(const std::string& path) {
    return {errno, std::generic_category(), path};
}

}  // namespace

std::vector<std::int16_t> Finished(Signal signal, double peak) {
    constexpr double kFullScale = 32767;
    const double loudest = Centre(signal);
    FadeEnds(signal);
    std::vector<std::int16_t> samples;
    samples.reserve(signal.size());
    for (const double sample : signal) {
        samples.push_back(static_cast<std::int16_t>(std::lround(sample / loudest * peak * kFullScale)));
    }
    return samples;
}

std::string WaveBytes(const std::vector<std::int16_t>& samples) {
    constexpr std::uint32_t kHeader = 44;
    constexpr std::uint32_t kBytesPerSample = 2;
    const auto dataSize = static_cast<std::uint32_t>(samples.size() * kBytesPerSample);
    std::string bytes = "RIFF";
    Append(bytes, kHeader - 8 + dataSize, 4);  // size of everything after this number
    bytes += "WAVEfmt ";
    Append(bytes, 16, 4);  // size of the format chunk
    Append(bytes, 1, 2);   // PCM
    Append(bytes, 1, 2);   // channels
    Append(bytes, kSampleRate, 4);
    Append(bytes, kSampleRate * kBytesPerSample, 4);
    Append(bytes, kBytesPerSample, 2);
    Append(bytes, kBytesPerSample * 8, 2);
    bytes += "data";
    Append(bytes, dataSize, 4);
    for (const std::int16_t sample : samples) {
        Append(bytes, static_cast<std::uint16_t>(sample), 2);
    }
    return bytes;
}

void WriteFile(const std::string& path, const std::string& bytes) {
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) {
        throw WriteError(path);
    }
    if (std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size()) {
        const std::system_error error = WriteError(path);
        std::fclose(file);  // the first error is reported
        throw error;
    }
    // fclose() writes the buffer, so a full disk may only be reported here.
    if (std::fclose(file) != 0) {
        throw WriteError(path);
    }
}

}  // namespace tickwell
