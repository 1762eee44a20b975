// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

#include "media/ports/cd_drive.h"
#include "media/ports/sound_output.h"
#include "platform/disc/cd_stretch.h"
#include "platform/processes/child_process.h"

namespace tickwell::platform {

/// A disc or image that is present, with its contents.
struct CdPlace {
    QString source;
    media::CdContents contents;
};

/// Plays a range of a disc: reads ahead through tickwell-cd and queues the sound.
class CdStream {
public:
    enum class Trouble { None, DiscGone, HelperDied, OutputGone };

    /// `helper`: the path of tickwell-cd. Output and reaper outlive this object.
    CdStream(media::SoundOutput& output, ChildReaper& reaper, QString helper);

    /// See CdPlayback.
    bool Play(const CdPlace& place, qint64 fromFrame, qint32 toSector);
    bool GoOn(const CdPlace& place, qint32 toSector);
    void Pause();
    void Stop();

    media::CdMode Mode() const { return m_mode; }
    qint64 Position() const;

    /// To be called every `milliseconds`. Returns what has stopped playback, if it was not the end of the
    /// range.
    Trouble Tick(int milliseconds);

    /// Whether it holds neither a device nor a helper and needs no ticks.
    bool IsIdle() const { return m_stream == nullptr && !m_child.IsRunning(); }

private:
    bool IsAllRead() const { return m_run >= m_stretch.Runs().size(); }
    Trouble ReadAhead();
    void StartRun();
    bool QueueSound(QByteArray bytes);
    void Sound();
    void Halt(qint64 position);
    void Release();
    void TickAtRest(int milliseconds);

    media::SoundOutput& m_output;
    QString m_helper;
    ChildProcess m_child;
    std::unique_ptr<media::SoundStream> m_stream;
    media::CdMode m_mode = media::CdMode::Stopped;
    media::CdMode m_pausedMode = media::CdMode::Playing;  // while paused: the mode to resume
    qint64 m_position = 0;                                // frame, while not playing
    CdPlace m_place;
    CdStretch m_stretch;
    qsizetype m_run = 0;   // the run being read or to be read next
    qint64 m_queued = 0;   // frames of the range
    qsizetype m_skip = 0;  // bytes of the run's first sector before its start
    QByteArray m_half;     // the incomplete frame at the end of the data read
    int m_rested = 0;      // ms since the device last took sound, or since the pause
};

}  // namespace tickwell::platform
