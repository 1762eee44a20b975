// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/cd_audio_device.h"

#include "media/command_error.h"

namespace tickwell::media {

using namespace Qt::StringLiterals;

namespace {

void RequireDriver(const CdPicture& picture) {
    if (picture.status == CdStatus::Failed) {
        throw CommandError(kErrorDriver);
    }
}

bool IsPlayable(const CdPicture& picture) {
    return picture.status == CdStatus::Ready && DiscMap(picture.contents).HasAudio();
}

void RequireRead(const CdPicture& picture) {
    if (picture.readError) {
        throw CommandError(kErrorRead);
    }
}

}  // namespace

CdPicture CdAudioDevice::ReadyPicture() {
    CdPicture picture = m_drive.Picture();
    if (!IsPlayable(picture)) {
        m_drive.Look();
        RequireDriver(picture);
        throw CommandError(kErrorNotReady);
    }
    return picture;
}

void CdAudioDevice::Play(const PlayOptions& options) {
    const CdPicture picture = ReadyPicture();
    const DiscMap disc(picture.contents);
    const qint32 to = options.to ? disc.SectorOf(*options.to, m_timeFormat) : disc.LeadOut();
    // The commands count from track 1; a position before it does not exist for them.
    const bool isBefore = picture.position < disc.FirstSector() * kFramesPerSector;
    const bool goesOn = !options.from && !isBefore;
    const qint64 from =
        goesOn ? picture.position
               : (options.from ? disc.SectorOf(*options.from, m_timeFormat) : disc.FirstSector()) *
                     kFramesPerSector;
    if (from > to * kFramesPerSector) {
        throw CommandError(kErrorOutside);
    }
    if (!(goesOn ? m_playback.GoOn(to) : m_playback.Play(from, to))) {
        throw CommandError(kErrorNoSound);
    }
}

void CdAudioDevice::Stop() {
    ReadyPicture();
    m_playback.Stop();
}

void CdAudioDevice::Pause() {
    RequireRead(ReadyPicture());
    m_playback.Pause();
}

void CdAudioDevice::Resume() {
    throw CommandError(kErrorNotSupported);
}

void CdAudioDevice::SetTimeFormat(const QString& format) {
    if (format == u"milliseconds" || format == u"ms") {
        m_timeFormat = TimeFormat::Milliseconds;
    } else if (format == u"msf") {
        m_timeFormat = TimeFormat::Msf;
    } else if (format == u"tmsf") {
        m_timeFormat = TimeFormat::Tmsf;
    } else {
        throw CommandError(kErrorCdTimeFormat);
    }
}

QString CdAudioDevice::Status(const StatusOptions& options) {
    if (options.item == StatusItem::Mode) {
        return ModeText();
    }
    if (options.item == StatusItem::MediaPresent) {
        return MediaPresentText();
    }
    const CdPicture picture = ReadyPicture();
    const DiscMap disc(picture.contents);
    if (options.item == StatusItem::TrackCount) {
        return QString::number(disc.TrackCount());
    }
    if (options.item == StatusItem::Length) {
        const qint32 from = options.track ? disc.StartOf(*options.track) : disc.FirstSector();
        const qint32 to = options.track ? disc.EndOf(*options.track) : disc.LeadOut();
        return disc.LengthText(from, to, m_timeFormat);
    }
    if (options.track) {
        return disc.PositionText(disc.StartOf(*options.track) * kFramesPerSector, m_timeFormat);
    }
    RequireRead(picture);
    return options.item == StatusItem::CurrentTrack ? QString::number(disc.TrackAt(picture.position))
                                                    : disc.PositionText(picture.position, m_timeFormat);
}

QString CdAudioDevice::ModeText() const {
    const CdPicture picture = m_drive.Picture();
    RequireDriver(picture);
    if (picture.status == CdStatus::TrayOpen) {
        return u"open"_s;
    }
    if (!IsPlayable(picture)) {
        return u"not ready"_s;
    }
    switch (picture.mode) {
        case CdMode::Seeking:
            return u"seeking"_s;
        case CdMode::Playing:
            return u"playing"_s;
        case CdMode::Paused:
            return u"paused"_s;
        case CdMode::Stopped:
            break;
    }
    return u"stopped"_s;
}

QString CdAudioDevice::MediaPresentText() {
    const CdPicture picture = m_drive.Picture();
    m_drive.Look();
    RequireDriver(picture);
    return IsPlayable(picture) ? u"true"_s : u"false"_s;
}

bool CdAudioDevice::IsPlaying() {
    const CdPicture picture = m_drive.Picture();
    RequireRead(picture);
    return picture.status == CdStatus::Ready &&
           (picture.mode == CdMode::Playing || picture.mode == CdMode::Seeking);
}

}  // namespace tickwell::media
