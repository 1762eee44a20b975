// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/media_system.h"

namespace tickwell::media {

MediaSystem::MediaSystem(const MediaSystemParts& parts)
    : m_drive(parts.devices.drive),
      m_devices(parts.devices),
      m_media(m_devices, parts.boxes, m_state),
      m_device(m_media, {parts.tellsNoCdDrive, parts.noticeSilenced, parts.devices.drive.Named()}),
      m_player({.state = m_cdState,
                .media = m_media,
                .device = m_device,
                .handlers = parts.handlers,
                .timers = parts.timers}) {
    m_media.SetNotReady([this] { m_player.CDSetDown(); });
    m_drive.WhenChanged(
        [this, &handlers = parts.handlers] { handlers.Run([this] { m_player.DeviceChanged(); }); });
}

MediaSystem::~MediaSystem() {
    m_drive.WhenChanged({});
}

}  // namespace tickwell::media
