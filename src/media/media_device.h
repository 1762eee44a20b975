// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "media/command_parser.h"

namespace tickwell::media {

/// A device that is open under an alias. All functions throw CommandError on failure. The destructor stops
/// the sound.
class MediaDevice {
public:
    virtual ~MediaDevice() = default;

    /// Returns as soon as playback has started. Without a start it continues from the current position;
    /// without an end it plays to the end of the medium, even if an earlier command set another end.
    virtual void Play(const PlayOptions& options) = 0;
    virtual void Stop() = 0;   ///< the position becomes 0
    virtual void Pause() = 0;  ///< keeps the position
    virtual void Resume() = 0;

    /// `format`: in lower case; empty if none was given.
    virtual void SetTimeFormat(const QString& format) = 0;
    virtual QString Status(const StatusOptions& options) = 0;

    /// Whether the device is still playing, for commands that wait for the end. Throws if playback ended
    /// early because of an error.
    virtual bool IsPlaying() = 0;
};

}  // namespace tickwell::media
