// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <span>

#include "sound_helper/protocol.h"

namespace tickwell::platform {

/// The file in memory through which tickwell-sound gets the sound of a stream (see its protocol.h). Sound
/// that was taken is freed.
class SoundQueue {
public:
    SoundQueue();
    ~SoundQueue();
    SoundQueue(const SoundQueue&) = delete;
    SoundQueue& operator=(const SoundQueue&) = delete;

    /// False if the machine has no memory for it; then nothing else may be called.
    bool IsGood() const { return m_shared != nullptr; }

    /// The descriptor, for the helper. This object keeps it.
    int File() const { return m_file; }

    /// Returns false, and appends nothing, if there is no memory for it.
    bool Append(std::span<const qint16> samples);

    /// Bytes that were queued and neither taken nor dropped.
    qint64 Waiting() const;

    /// On return nothing is taken any more, until it is no longer held.
    void Hold(bool held);

    void Drop();

    /// Whether the helper's device has lost its sound server.
    bool IsDeviceLost() const { return m_shared->isDeviceLost; }

private:
    quint64 Start() const;
    void FreeTaken();

    int m_file = -1;
    sound_helper::SharedSound* m_shared = nullptr;  // mapped
    quint64 m_freed = 0;                            // bytes of sound that are no longer in the file
};

}  // namespace tickwell::platform
