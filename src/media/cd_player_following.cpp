// SPDX-License-Identifier: GPL-3.0-or-later
// How the player tracks the disc and the drive.
#include <utility>

#include "media/cd_player.h"

namespace tickwell::media {

using namespace Qt::StringLiterals;

/// Leaves the state "not ready". A failed command to another device sets it too, although the disc keeps
/// playing; the player then resumes tracking the playback.
void CdPlayer::Recover() {
    CDSetUp();
    if (m_state.CdState != kCdStopped || m_media.MciSend(u"status CDP mode"_s, false) != 0) {
        return;
    }
    const QString mode = m_media.State().MciReply;
    if (mode != u"playing" && mode != u"seeking" && mode != u"paused") {
        return;
    }
    const bool isPaused = mode == u"paused";
    EnterState(isPaused ? kCdPaused : kCdPlaying, isPaused ? u"一時停止"_s : u"再生"_s);
    m_followTimer->Start();
    ShowLines();
}

/// Tracks the device from track to track and to the end of the disc, whatever the main window shows. After a
/// read error the first query fails.
void CdPlayer::CDTimer1_Timer() {
    const auto track = AskCd(m_media, u"status CDP current track"_s, false);
    if (!track || m_media.MciSend(u"status CDP mode"_s, false) != 0) {
        return;
    }
    m_state.CdTrack = *track;
    if (std::exchange(m_followedTrack, *track) != *track) {
        TellTrack();
    }
    if (m_media.State().MciReply == u"stopped") {
        Stop(false);
    }
}

void CdPlayer::DeviceChanged() {
    if (!m_device.IsOpen()) {
        return;
    }
    if (m_state.CdState == kCdPlaying || m_state.CdState == kCdPaused) {
        CDTimer1_Timer();
    }
    if (m_state.CdState == kCdStopped || m_state.CdState == kCdNotReady) {
        Recover();
    }
}

void CdPlayer::LookTick() {
    if (m_state.CdState != kCdNotReady || !IsShowing()) {
        m_lookTimer->Stop();
        return;
    }
    const bool hasDisc = m_device.IsOpen() && m_media.MciSend(u"status CDP media present"_s, false) == 0 &&
                         m_media.State().MciReply == u"true";
    if (hasDisc || !m_device.IsOpen()) {  // a device that is not open gets reopened
        Recover();
    }
}

void CdPlayer::KeepLooking() {
    if (IsShowing() && !m_lookTimer->IsRunning()) {
        m_lookTimer->Start();
    }
}

}  // namespace tickwell::media
