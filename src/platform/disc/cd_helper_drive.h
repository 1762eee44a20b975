// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <optional>

#include "core/ports/timer.h"
#include "media/ports/cd_drive.h"
#include "platform/disc/cd_look.h"
#include "platform/disc/cd_stream.h"

namespace tickwell::platform {

/// Accesses the drive through tickwell-cd; this process never opens it. If the helper crashes, the disc
/// counts as not ready until a different one is detected.
class CdHelperDrive : public media::CdDrive, public media::CdPlayback {
public:
    /// `helper`: the path of tickwell-cd. `source`: a drive or an image; empty for the machine's own drive,
    /// which may be plugged in or removed. `wantsTitles`: whether a check that starts now reads the disc's
    /// titles. Timers and output outlive this object and run in real time, as drives and sound do.
    CdHelperDrive(
        RealTimerSource& timers, media::SoundOutput& output, const QString& helper, QString source,
        std::function<bool()> wantsTitles = [] { return false; });

    bool Exists() const override;
    QString Named() const override { return m_source; }
    media::CdPicture Picture() const override;
    void Look() override;
    void WhenChanged(std::function<void()> changed) override { m_changed = std::move(changed); }

    bool IsLooking() const { return m_look.IsUnderWay(); }

    bool Play(qint64 fromFrame, qint32 toSector) override;
    bool GoOn(qint32 toSector) override;
    void Pause() override { m_stream.Pause(); }
    void Stop() override;

private:
    void Tick();
    void Take(const CdSeen& seen);
    void TakeTrouble(CdStream::Trouble trouble);
    CdPlace Place() const;

    QString m_source;
    std::function<bool()> m_wantsTitles;
    ChildReaper m_reaper;  // outlives look and stream
    CdLook m_look;
    CdStream m_stream;
    CdSeen m_seen;
    quint32 m_number = 0;
    bool m_readError = false;
    std::optional<media::CdContents> m_distrusted;  // contents of a disc that crashed the helper
    std::function<void()> m_changed;
    std::unique_ptr<Timer> m_timer;  // runs while a check, a stream or an ending child process needs it
};

}  // namespace tickwell::platform
