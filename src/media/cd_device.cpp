// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/cd_device.h"

namespace tickwell::media {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kSetFormat = u"set CDP time format milliseconds";

/// The line below the message about a missing drive.
QString Below(const QString& named) {
    return named.isEmpty() ? QString()
                           : u"指定されたディスク："_s + named +
                                 u"\r\nこのファイルがありません。--disc または環境変数 TICKWELL_CD で指定した"
                                 u"名前を確かめてください。";
}

}  // namespace

void CdDevice::Open() {
    m_media.MciOpen(u"cdaudio"_s, u"CDP"_s, false);
    m_isOpen = m_media.State().MediaError == 0;
}

void CdDevice::OpenAtStart() {
    Open();
    if (m_isOpen || !m_notice.isWanted) {
        m_media.MciSend(kSetFormat.toString(), m_isOpen);
        return;
    }
    const auto onClosed = [this](bool isTicked) {
        if (isTicked) {
            m_notice.isWanted = false;
            m_notice.silenced();
        }
    };
    m_media.MciSend(kSetFormat.toString(), {u"次回から表示しない"_s, onClosed, Below(m_notice.named)});
}

bool CdDevice::OpenAgain() {
    Open();
    if (m_isOpen) {
        m_media.MciSend(kSetFormat.toString(), false);
    }
    return m_isOpen;
}

void CdDevice::Close() {
    m_isOpen = false;
    m_media.MciStop(u"CDP"_s, false);
    m_media.MciClose(u"CDP"_s, false);
}

}  // namespace tickwell::media
