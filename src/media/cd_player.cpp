// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/cd_player.h"

namespace tickwell::media {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFollowInterval = 500;  // ms
constexpr int kLookInterval = 3000;   // ms

}  // namespace

CdPlayer::CdPlayer(const CdPlayerParts& parts)
    : m_state(parts.state),
      m_media(parts.media),
      m_device(parts.device),
      m_texts(parts.state, parts.media),
      m_seek(parts.state, parts.media, parts.handlers, parts.timers),
      m_followTimer(parts.handlers.MakeTimer(parts.timers, kFollowInterval, [this] { CDTimer1_Timer(); })),
      m_lookTimer(parts.handlers.MakeTimer(parts.timers, kLookInterval, [this] { LookTick(); })) {
    EnterState(kCdStopped, u"停止"_s);
}

void CdPlayer::ShowWindow(bool isShown) {
    m_isWindowShown = isShown;
    if (isShown) {
        Appear();
    }
}

void CdPlayer::Appear() {
    if (m_state.CdState != kCdStopped && m_state.CdState != kCdNotReady) {
        return;
    }
    if (m_device.IsOpen()) {
        m_media.MciSend(u"status CDP media present"_s, false);  // starts a look in the background
    }
    if (m_state.CdState == kCdNotReady || m_state.CdTrackCount == 0) {
        Recover();
    }
}

void CdPlayer::ShowLines() {
    if (m_display == nullptr || !m_display->IsShown()) {
        return;
    }
    if (m_state.CdState == kCdNotReady) {
        m_display->ShowUpper(u"オーディオCDの準備ができていません"_s);
        m_display->ShowLower(u"再生不可"_s);
        return;
    }
    const auto lower = m_state.CdState == kCdStopped ? m_texts.SelectionText() : m_texts.StatusText();
    if (lower) {  // otherwise the queries failed and the lines already say "not ready"
        m_display->ShowUpper(m_texts.TrackCountText());
        m_display->ShowLower(*lower);
    }
}

void CdPlayer::CDSetUp() {
    if (!m_device.IsOpen() && !m_device.OpenAgain()) {
        return;
    }
    const qint32 count = m_media.MciTrackCount(u"CDP"_s, false);
    if (m_media.State().MediaError != 0) {
        return;
    }
    m_state.CdTrackCount = count;
    m_state.CdTrack = 0;
    if (!m_texts.SelectionText()) {  // needed even if no line shows it: reads the length
        return;
    }
    m_followTimer->Stop();
    m_lookTimer->Stop();
    m_controls.menus = true;
    EnterState(kCdStopped, u"停止"_s);
    ShowLines();
}

void CdPlayer::CDSetDown() {
    m_followTimer->Stop();
    m_seek.Release();
    m_controls.buttons.fill(false);
    m_controls.menus = false;
    EnterState(kCdNotReady, u"再生不可"_s);
    ShowLines();
    KeepLooking();
}

void CdPlayer::SetBotton() {
    if (const CdButtons* buttons = CdButtonsOf(m_state.CdState)) {
        m_controls.buttons = *buttons;
    }
}

void CdPlayer::EnterState(qint32 state, const QString& caption) {
    m_state.CdState = state;
    m_controls.caption = caption;
    SetBotton();
    TellWindow();
}

void CdPlayer::Stop(bool showError) {
    m_seek.Release();
    EnterState(kCdStopped, u"停止"_s);
    m_media.MciStop(u"CDP"_s, showError);
    if (m_state.CdState != kCdStopped) {
        return;
    }
    m_controls.menus = true;
    m_state.CdTrack = 0;
    m_followTimer->Stop();
    TellWindow();
    ShowLines();
}

void CdPlayer::cdm_Click(int index) {
    m_state.CdDisplayFormat = index - 1;
    TellWindow();
}

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

/// Follows the device from track to track and to its end, whatever the main window shows. After a read error
/// the first query fails.
void CdPlayer::CDTimer1_Timer() {
    const auto track = AskCd(m_media, u"status CDP current track"_s, false);
    if (!track || m_media.MciSend(u"status CDP mode"_s, false) != 0) {
        return;
    }
    m_state.CdTrack = *track;
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
    if (hasDisc || !m_device.IsOpen()) {  // a device that is not open is opened again
        Recover();
    }
}

void CdPlayer::KeepLooking() {
    if (IsShowing() && !m_lookTimer->IsRunning()) {
        m_lookTimer->Start();
    }
}

void CdPlayer::Close() {
    m_display = nullptr;
    m_changed = nullptr;
    m_isWindowShown = false;
    m_followTimer->Stop();
    m_lookTimer->Stop();
    m_seek.Release();
    m_device.Close();
}

void CdPlayer::TellWindow() {
    if (m_changed) {
        m_changed();
    }
}

bool CdPlayer::IsShowing() const {
    return m_isWindowShown || (m_display != nullptr && m_display->IsShown());
}

}  // namespace tickwell::media
