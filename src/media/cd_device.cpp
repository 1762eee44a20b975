// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/cd_device.h"

namespace tickwell::media {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kSetFormat = u"set CDP time format milliseconds";

}  // namespace

void CdDevice::Open() {
    m_media.MciOpen(u"cdaudio"_s, u"CDP"_s, false);
    m_isOpen = m_media.State().MediaError == 0;
}

void CdDevice::OpenAtStart() {
    Open();
    if (m_isOpen || !m_tellsNoDrive) {
        m_media.MciSend(kSetFormat.toString(), m_isOpen);
        return;
    }
    m_media.MciSend(kSetFormat.toString(), {u"次回から表示しない"_s, [this](bool isTicked) {
                                                if (isTicked) {
                                                    m_tellsNoDrive = false;
                                                }
                                            }});
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
