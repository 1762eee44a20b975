// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

#include "media/ports/cd_drive.h"
#include "media/ports/sound_output.h"
#include "platform/cd_stretch.h"
#include "platform/child_process.h"

namespace tickwell {

/// A disc, or an image, that is there with these contents.
struct CdPlace {
    QString source;
    CdContents contents;
};

/// Plays a stretch of a disc: reads ahead by way of tickwell-cd and queues the sound.
class CdStream {
public:
    enum class Trouble { None, DiscGone, HelperDied, OutputGone };

    /// `helper`: the path of tickwell-cd. Output and reaper outlive this object.
    CdStream(SoundOutput& output, ChildReaper& reaper, QString helper);

    /// As CdPlayback has them.
    bool Play(const CdPlace& place, qint64 fromFrame, qint32 toSector);
    bool GoOn(const CdPlace& place, qint32 toSector);
    void Pause();
    void Stop();

    CdMode Mode() const { return m_mode; }
    qint64 Position() const;

    /// To be called each `milliseconds`. What ended the playing now, if it was not the end of the stretch.
    Trouble Tick(int milliseconds);

    /// Neither a device nor a helper is held: no tick is needed.
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

    SoundOutput& m_output;
    QString m_helper;
    ChildProcess m_child;
    std::unique_ptr<SoundStream> m_stream;
    CdMode m_mode = CdMode::Stopped;
    CdMode m_pausedMode = CdMode::Playing;  // while paused: what goes on
    qint64 m_position = 0;                  // frame, while nothing is played
    CdPlace m_place;
    CdStretch m_stretch;
    qsizetype m_run = 0;   // of the stretch, that is read or is to be read next
    qint64 m_queued = 0;   // frames of the stretch
    qsizetype m_skip = 0;  // bytes of the run's first sector that lie before its start
    QByteArray m_half;     // the begun frame at the end of what was read
    int m_rested = 0;      // ms since the last sound was taken, or since the pause
};

}  // namespace tickwell
