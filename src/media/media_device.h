// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "media/command_parser.h"

namespace tickwell {

/// A device that is open under an alias. Whatever fails throws CommandError. Its destruction ends its sound.
class MediaDevice {
public:
    virtual ~MediaDevice() = default;

    /// Returns as soon as it plays. Without a start it goes on from the position, without an end it runs to
    /// the end of all; an end that was given before is forgotten.
    virtual void Play(const PlayOptions& options) = 0;
    virtual void Stop() = 0;   ///< the position is 0 then
    virtual void Pause() = 0;  ///< the position stays
    virtual void Resume() = 0;

    /// `format`: in small letters; empty where none was named.
    virtual void SetTimeFormat(const QString& format) = 0;
    virtual QString Status(const StatusOptions& options) = 0;

    /// Whether somebody who waits for the end still has to. Throws when the end came too early.
    virtual bool IsPlaying() = 0;
};

}  // namespace tickwell
