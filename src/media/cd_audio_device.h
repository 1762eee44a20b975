// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/disc_map.h"
#include "media/media_device.h"
#include "media/ports/cd_drive.h"

namespace tickwell::media {

/// The device "cdaudio". A disc without audio tracks counts as no disc. A command that needs a disc while
/// there is none, and every query for "media present", start a new check of the drive.
class CdAudioDevice : public MediaDevice {
public:
    /// Both outlive this object.
    CdAudioDevice(CdDrive& drive, CdPlayback& playback) : m_drive(drive), m_playback(playback) {}
    CdAudioDevice(const CdAudioDevice&) = delete;
    CdAudioDevice& operator=(const CdAudioDevice&) = delete;
    ~CdAudioDevice() override { m_playback.Stop(); }

    void Play(const PlayOptions& options) override;
    void Stop() override;
    void Pause() override;
    void Resume() override;
    void SetTimeFormat(const QString& format) override;
    QString Status(const StatusOptions& options) override;
    bool IsPlaying() override;

private:
    CdPicture ReadyPicture();
    QString ModeText() const;
    QString MediaPresentText();

    CdDrive& m_drive;
    CdPlayback& m_playback;
    TimeFormat m_timeFormat = TimeFormat::Msf;
};

}  // namespace tickwell::media
