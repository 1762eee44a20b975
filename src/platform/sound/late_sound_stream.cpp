// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sound/late_sound_stream.h"

#include <utility>

namespace tickwell::platform {

bool LateSoundStream::Queue(std::span<const qint16> samples) {
    if (!IsStillOpening()) {
        return m_stream != nullptr && m_stream->Queue(samples);
    }
    m_samples.insert(m_samples.end(), samples.begin(), samples.end());
    return true;
}

qint64 LateSoundStream::FramesWaiting() const {
    if (!IsStillOpening()) {
        return m_stream == nullptr ? 0 : m_stream->FramesWaiting();
    }
    return static_cast<qint64>(m_samples.size()) / m_format.channels;
}

void LateSoundStream::Hold(bool held) {
    m_isHeld = held;
    if (!IsStillOpening() && m_stream != nullptr) {
        m_stream->Hold(held);
    }
}

void LateSoundStream::Clear() {
    m_samples.clear();
    if (!IsStillOpening() && m_stream != nullptr) {
        m_stream->Clear();
    }
}

bool LateSoundStream::IsLost() const {
    return !IsStillOpening() && (m_stream == nullptr || m_stream->IsLost());
}

/// Whether the device is still not open. Once it is, passes the buffered samples on.
bool LateSoundStream::IsStillOpening() const {
    if (m_look == nullptr) {
        return false;
    }
    auto opened = m_look();
    if (!opened) {
        return true;
    }
    m_look = nullptr;
    m_stream = std::move(*opened);
    const std::vector<qint16> samples = std::exchange(m_samples, {});
    if (m_stream != nullptr) {
        m_stream->Hold(m_isHeld);
        if (!samples.empty() && !m_stream->Queue(samples)) {
            m_stream.reset();
        }
    }
    return false;
}

}  // namespace tickwell::platform
