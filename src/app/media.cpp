// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/media.h"

#include <QCoreApplication>

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

/// It lies beside the program.
QString HelperPath() {
    return QCoreApplication::applicationDirPath() + u"/tickwell-cd";
}

}  // namespace

Media::Media(const MediaParts& parts)
    : m_drive(parts.realTimers, parts.sound, HelperPath(), parts.disc),
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
