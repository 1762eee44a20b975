// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <memory>
#include <span>

namespace tickwell::media {

/// The layout of sound: signed 16-bit samples in native byte order, channels interleaved. One sample of every
/// channel is a frame.
struct SoundFormat {
    int rate = 0;      ///< frames per second
    int channels = 0;  ///< 1 or 2

    bool operator==(const SoundFormat&) const = default;
};

/// How long to keep a stream open after the device has taken its last frame, in ms: the sound server still
/// buffers up to 200 ms, later on a busy machine, and closing the device would cut them off.
inline constexpr int kSoundTail = 500;

/// One open device, which plays queued frames in order and without gaps. Nothing here waits for sound. The
/// destructor closes the device and drops queued frames. Do not keep a stream open while nothing plays: even
/// a silent device costs time.
class SoundStream {
public:
    virtual ~SoundStream() = default;

    /// Appends complete frames, which are copied. Returns false if the device accepted none of them because
    /// it is lost.
    virtual bool Queue(std::span<const qint16> samples) = 0;

    /// Queued frames that the device has not taken yet; the frames queued in total minus this are the
    /// position. Does not change while the stream is held.
    virtual qint64 FramesWaiting() const = 0;

    /// Pauses the sound without losing a frame, or continues with the next frame. A new stream is not held.
    virtual void Hold(bool held) = 0;

    /// Drops the queued frames.
    virtual void Clear() = 0;

    /// Whether the connection to the sound server is lost. The queue then drains silently; a new stream may
    /// be opened.
    virtual bool IsLost() const = 0;
};

/// Opens sound devices.
class SoundOutput {
public:
    virtual ~SoundOutput() = default;

    /// A stream of exactly this format; null if none can be opened. Several may be open at a time. The output
    /// outlives its streams.
    virtual std::unique_ptr<SoundStream> Open(const SoundFormat& format) = 0;
};

}  // namespace tickwell::media
