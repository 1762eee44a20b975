// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <algorithm>
#include <vector>

#include "media/ports/sound_output.h"

namespace tickwell {

/// Records what is queued, and plays only as many frames as the test says.
class FakeSoundOutput : public media::SoundOutput {
public:
    /// A device that was opened; kept after it is closed.
    struct Device {
        media::SoundFormat format;
        std::vector<qint16> samples;  // all ever queued
        std::vector<qint16> sounded;  // those taken and not dropped
        qint64 waiting = 0;           // frames
        bool held = false;
        bool lost = false;
        bool open = true;
    };

    std::unique_ptr<media::SoundStream> Open(const media::SoundFormat& format) override {
        if (!works || OpenDevices() >= most) {
            return nullptr;
        }
        auto device = std::make_shared<Device>();
        device->format = format;
        m_devices.append(device);
        return std::make_unique<Stream>(device);
    }

    /// Lets every open device that is not held take this many frames.
    void Sound(qint64 frames) {
        for (const auto& device : m_devices) {
            if (device->open && !device->held) {
                const qint64 taken = std::min(device->waiting, frames);
                const auto first = device->samples.end() - device->waiting * device->format.channels;
                device->sounded.insert(device->sounded.end(), first, first + taken * device->format.channels);
                device->waiting -= taken;
            }
        }
    }

    /// The devices opened so far, including closed ones.
    const QList<std::shared_ptr<Device>>& Devices() const { return m_devices; }
    qsizetype OpenDevices() const {
        return std::count_if(m_devices.begin(), m_devices.end(), [](const auto& each) { return each->open; });
    }

    bool works = true;
    qsizetype most = 100;  ///< devices that can be open at the same time

private:
    class Stream : public media::SoundStream {
    public:
        explicit Stream(std::shared_ptr<Device> device) : m_device(std::move(device)) {}
        Stream(const Stream&) = delete;
        Stream& operator=(const Stream&) = delete;
        ~Stream() override { m_device->open = false; }

        bool Queue(std::span<const qint16> samples) override {
            if (m_device->lost) {
                return false;
            }
            m_device->samples.insert(m_device->samples.end(), samples.begin(), samples.end());
            m_device->waiting += static_cast<qint64>(samples.size()) / m_device->format.channels;
            return true;
        }
        qint64 FramesWaiting() const override { return m_device->waiting; }
        void Hold(bool held) override { m_device->held = held; }
        void Clear() override { m_device->waiting = 0; }
        bool IsLost() const override { return m_device->lost; }

    private:
        std::shared_ptr<Device> m_device;
    };

    QList<std::shared_ptr<Device>> m_devices;
};

}  // namespace tickwell
