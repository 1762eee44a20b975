// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/volume_output.h"

#include <QScopeGuard>
#include <algorithm>
#include <utility>
#include <vector>

namespace tickwell::media {

namespace {

constexpr int kFullVolume = 100;  // percent

}  // namespace

class VolumeOutput::Stream : public SoundStream {
public:
    Stream(const VolumeOutput& output, std::unique_ptr<SoundStream> stream)
        : m_output(output), m_stream(std::move(stream)) {}

    bool Queue(std::span<const qint16> samples) override {
        const int percent = m_output.Now();
        if (percent == kFullVolume) {
            return m_stream->Queue(samples);
        }
        std::vector<qint16> quieter(samples.size());
        std::transform(samples.begin(), samples.end(), quieter.begin(), [percent](qint16 sample) {
            return static_cast<qint16>(sample * percent / kFullVolume);  // towards zero
        });
        return m_stream->Queue(quieter);
    }
    qint64 FramesWaiting() const override { return m_stream->FramesWaiting(); }
    void Hold(bool held) override { m_stream->Hold(held); }
    void Clear() override { m_stream->Clear(); }
    bool IsLost() const override { return m_stream->IsLost(); }

private:
    const VolumeOutput& m_output;
    std::unique_ptr<SoundStream> m_stream;
};

std::unique_ptr<SoundStream> VolumeOutput::Open(const SoundFormat& format) {
    std::unique_ptr<SoundStream> stream = m_output.Open(format);
    return stream == nullptr ? nullptr : std::make_unique<Stream>(*this, std::move(stream));
}

void VolumeOutput::With(qint32 percent, const std::function<void()>& play) {
    m_instead = percent;
    const auto ended = qScopeGuard([this] { m_instead.reset(); });
    play();
}

int VolumeOutput::Now() const {
    return std::clamp(m_instead.value_or(m_percent()), 0, kFullVolume);
}

}  // namespace tickwell::media
