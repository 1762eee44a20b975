// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QStringList>
#include <QtGlobal>
#include <functional>

namespace tickwell::media {

/// One second of a disc is 75 sectors; an audio sector has 588 frames of two samples, so 44100 frames a
/// second.
inline constexpr qint64 kFramesPerSector = 588;

enum class CdStatus {
    NoDisc,
    TrayOpen,
    NotReady,  ///< nothing known yet, or the contents are being read
    Ready,     ///< the contents are known and valid
    Failed,    ///< the drive cannot be used: no permission, or no program to read it
};

enum class CdMode {
    Stopped,
    Seeking,  ///< started, but no sound yet
    Playing,
    Paused
};

struct CdTrackEntry {
    qint32 start = 0;  ///< first sector; sector 0 is the start of the disc's program area
    bool isAudio = true;

    bool operator==(const CdTrackEntry&) const = default;
};

/// The contents of a disc. The starts are always ascending and the lead-out is last; a disc for which this
/// does not hold counts as no disc.
struct CdContents {
    QList<CdTrackEntry> tracks;  ///< track 1 first; at most 99
    qint32 leadOut = 0;          ///< the sector after the last track

    bool operator==(const CdContents&) const = default;
};

inline constexpr int kLongestCdTitle = 200;  ///< characters

/// The last known state of the drive. All but `status` and `number` are valid only if status is Ready.
struct CdPicture {
    CdStatus status = CdStatus::NotReady;
    quint32 number = 0;  ///< changes each time contents appear or disappear
    CdContents contents;
    QStringList titles;  ///< of the disc, then of each track: single lines of at most kLongestCdTitle
                         ///< characters, empty if unknown. Empty list: no titles, or none requested.
    CdMode mode = CdMode::Stopped;
    qint64 position = 0;     ///< frames from the start of sector 0 to the one being heard
    bool readError = false;  ///< playback ended early because the disc could not be read any further; cleared
                             ///< by the next Play or Stop. Single bad sectors play as silence, without error.
};

/// The drive, or an image used in its place. A separate process accesses the disc: nothing here blocks, every
/// function except Exists() answers from the last known state.
class CdDrive {
public:
    virtual ~CdDrive() = default;

    /// Whether the drive's device node or the image file exists now. Does not access the disc.
    virtual bool Exists() const = 0;

    /// The absolute path of the drive or image that the user has named, whether it exists or not; empty if
    /// none.
    virtual QString Named() const = 0;

    /// The last known state, with the current position and mode.
    virtual CdPicture Picture() const = 0;

    /// Starts a check of the drive: status and, if it changed or is unknown, contents. Does nothing while a
    /// check is running. A Ready disc stays Ready until the check finds otherwise.
    virtual void Look() = 0;

    /// `changed` is called each time status, number or titles have changed: from the event loop, never during
    /// a call of this port. One listener; an empty function removes it.
    virtual void WhenChanged(std::function<void()> changed) = 0;
};

/// Plays ranges of the disc. Sectors of data tracks are skipped: the position jumps past them. At the end of
/// the range the mode is Stopped and the position is that end. If the disc is removed or changed, playback
/// ends at once.
class CdPlayback {
public:
    virtual ~CdPlayback() = default;

    /// Plays from a frame, counted from the start of sector 0, up to `toSector`, exclusive. Ends any earlier
    /// playback. Both are inside the contents. Returns false, and nothing plays, if no sound output could be
    /// opened.
    virtual bool Play(qint64 fromFrame, qint32 toSector) = 0;

    /// Continues with the next frame and a new end: a paused disc plays again, a playing one only gets the
    /// new end. If stopped, plays from the position. Returns false like Play.
    virtual bool GoOn(qint32 toSector) = 0;

    /// Pauses sound and position without losing a frame. Does nothing unless seeking or playing.
    virtual void Pause() = 0;

    /// Ends playback and sets the position to 0.
    virtual void Stop() = 0;
};

}  // namespace tickwell::media
