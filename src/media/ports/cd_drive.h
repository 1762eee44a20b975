// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QtGlobal>
#include <functional>

namespace tickwell {

/// A second of a disc has 75 sectors; a sector of sound has 588 frames of two samples, 44100 a second.
inline constexpr qint64 kFramesPerSector = 588;

enum class CdStatus {
    NoDisc,
    TrayOpen,
    NotReady,  ///< nothing is known yet, or contents are being read
    Ready,     ///< contents are known and hold good
    Failed,    ///< the drive cannot be worked at all: no right to it, or no program to read it
};

enum class CdMode {
    Stopped,
    Seeking,
    Playing,
    Paused
};  // Seeking: started, but the first sound is still to come

struct CdTrackEntry {
    qint32 start = 0;  ///< first sector; sector 0 is where the disc's program area begins
    bool isAudio = true;

    bool operator==(const CdTrackEntry&) const = default;
};

/// What is on a disc. A disc whose starts do not rise, or whose lead-out is not last, is none and never gets
/// here.
struct CdContents {
    QList<CdTrackEntry> tracks;  ///< track 1 first; at most 99
    qint32 leadOut = 0;          ///< the sector behind the last track

    bool operator==(const CdContents&) const = default;
};

/// What was last heard of the drive. All but `status` and `number` is of meaning only while status is Ready.
struct CdPicture {
    CdStatus status = CdStatus::NotReady;
    quint32 number = 0;  ///< another one each time that contents arrive or go
    CdContents contents;
    CdMode mode = CdMode::Stopped;
    qint64 position = 0;     ///< frames from the start of sector 0 to the one that sounds now
    bool readError = false;  ///< the last stretch ended early since it could not be read on; until the next
                             ///< Play or Stop. Single bad sectors are silence and no error.
};

/// The drive, or the image that stands for one, seen from the window. Whatever touches a disc happens in
/// another process: nothing here ever waits, everything answers from the last known picture.
class CdDrive {
public:
    virtual ~CdDrive() = default;

    /// There is a drive's node or an image's file at this moment. Its disc is not looked at.
    virtual bool Exists() const = 0;

    /// The last known picture. Position and mode are those of this moment.
    virtual CdPicture Picture() const = 0;

    /// Asks for a look at status and, where they changed or are not known, contents. While one is under way a
    /// further wish for it is dropped. A disc that stands as Ready stays so until the look has found
    /// otherwise.
    virtual void Look() = 0;

    /// `changed` is called each time that status or number have changed: from the event loop, never from
    /// inside a call into this port. One receiver; an empty function takes the old one away.
    virtual void WhenChanged(std::function<void()> changed) = 0;
};

/// Plays stretches of the disc. Sectors of data tracks make no sound: the position jumps behind them. At the
/// stretch's end the mode is Stopped and the position is that end. A disc that is gone or changed ends it at
/// once.
class CdPlayback {
public:
    virtual ~CdPlayback() = default;

    /// Plays from a frame, counted from the start of sector 0, up to `toSector`, which is no longer played.
    /// Whatever played or was paused before ends. Both lie within the contents. False when no sound output
    /// could be opened; nothing plays then.
    virtual bool Play(qint64 fromFrame, qint32 toSector) = 0;

    /// Goes on with the very next frame, with a new end: a paused disc plays again, one that plays just does
    /// not stop where it was to. From Stopped it is Play from the position. False as with Play.
    virtual bool GoOn(qint32 toSector) = 0;

    /// Holds the sound and the position, every frame kept. Nothing unless it seeks or plays.
    virtual void Pause() = 0;

    /// Ends playing; the position is 0.
    virtual void Stop() = 0;
};

}  // namespace tickwell
