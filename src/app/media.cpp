// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/media.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace tickwell {

using namespace Qt::StringLiterals;

QString DiscHelperPath(const QString& executableFolder) {
    const QString beside = executableFolder + u"/tickwell-cd";
    return QFileInfo::exists(beside)
               ? beside
               : QDir::cleanPath(executableFolder + u"/" TICKWELL_HELPERS "/tickwell-cd");
}

Media::Media(const MediaParts& parts)
    : m_drive(parts.realTimers, parts.sound, DiscHelperPath(QCoreApplication::applicationDirPath()),
              parts.disc),
      m_system({{m_drive, m_drive, parts.sound, parts.realTimers, parts.wait},
                parts.boxes,
                parts.handlers,
                parts.timers,
                parts.tellsNoCdDrive}),
      m_mix(parts.realTimers, parts.sound),
      m_playback({m_mix, m_soundState, m_system.State(), parts.boxes, parts.timers}, parts.folder) {}

void Media::Close() {
    m_playback.AudioStop();
    m_system.Close();
}

}  // namespace tickwell
