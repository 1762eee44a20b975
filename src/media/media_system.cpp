// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/media_system.h"

#include <utility>

namespace tickwell::media {

MediaSystem::MediaSystem(const MediaSystemParts& parts)
    : m_drive(parts.devices.drive),
      m_showsTitles(parts.showsTitles),
      m_discNumber(m_drive.Picture().number),
      m_showedTitles(m_showsTitles()),
      m_devices(parts.devices),
      m_media(m_devices, parts.boxes, m_state),
      m_device(m_media, {parts.tellsNoCdDrive, parts.noticeSilenced, parts.devices.drive.Named()}),
      m_player({.state = m_cdState,
                .media = m_media,
                .device = m_device,
                .handlers = parts.handlers,
                .timers = parts.timers,
                .titles = [this] { return ShownTitles(); }}) {
    m_media.SetNotReady([this] { m_player.CDSetDown(); });
    m_drive.WhenChanged([this, &handlers = parts.handlers] { handlers.Run([this] { DriveChanged(); }); });
}

MediaSystem::~MediaSystem() {
    m_drive.WhenChanged({});
}

QStringList MediaSystem::ShownTitles() const {
    return m_showsTitles() ? m_drive.Picture().titles : QStringList();
}

/// New titles of the same disc must not reset the player.
void MediaSystem::DriveChanged() {
    const quint32 number = m_drive.Picture().number;
    if (std::exchange(m_discNumber, number) == number) {
        m_player.TitlesChanged();
    } else {
        m_player.DeviceChanged();
    }
}

/// The drive reads titles only if they are shown, so turning them on needs another check.
void MediaSystem::FollowSettings() {
    const bool isShown = m_showsTitles();
    if (std::exchange(m_showedTitles, isShown) == isShown || !m_player.HasAppeared()) {
        return;
    }
    if (isShown && m_drive.Picture().titles.isEmpty()) {
        m_drive.Look();
    }
    m_player.TitlesChanged();
}

}  // namespace tickwell::media
