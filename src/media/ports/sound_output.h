// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <memory>
#include <span>

namespace tickwell {

/// How sound is laid out: signed 16-bit samples of this machine's byte order, the channels of one moment side
/// by side. One sample of every channel is a frame.
struct SoundFormat {
    int rate = 0;      ///< frames a second
    int channels = 0;  ///< 1 or 2

    bool operator==(const SoundFormat&) const = default;
};

/// How long a stream is to be kept after its last frame was taken, in ms: the sound server still holds that
/// much, and closing the device would cut it off.
inline constexpr int kSoundTail = 200;

/// One open device, which plays what is queued, in order and without gaps. Nothing here ever waits for sound.
/// Its destruction closes the device and drops what still waits; keep none open while nothing sounds, even a
/// silent device costs time.
class SoundStream {
public:
    virtual ~SoundStream() = default;

    /// Appends whole frames; they are copied. False when the device took none of them: it is lost.
    virtual bool Queue(std::span<const qint16> samples) = 0;

    /// Frames queued that the device has not taken yet. Queued in all less this is the position. Stands still
    /// while the stream is held.
    virtual qint64 FramesWaiting() const = 0;

    /// Holds the sound with every frame kept, or lets it go on with the very next one. A new stream is not
    /// held.
    virtual void Hold(bool held) = 0;

    /// Drops the frames that wait.
    virtual void Clear() = 0;

    /// The sound server has gone. The queue then drains on in silence; a new stream may be opened.
    virtual bool IsLost() const = 0;
};

/// Where sound comes out.
class SoundOutput {
public:
    virtual ~SoundOutput() = default;

    /// A stream of exactly this format, or nothing where none can be opened. Several may be open at a time.
    /// The output outlives its streams.
    virtual std::unique_ptr<SoundStream> Open(const SoundFormat& format) = 0;
};

}  // namespace tickwell
