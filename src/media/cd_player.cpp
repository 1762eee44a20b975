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
      m_texts(parts.state, parts.media, parts.titles),
      m_seek(parts.state, parts.media, parts.handlers, parts.timers, [this] { TellJump(); }),
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
    m_hasAppeared = true;
    TellFollower();
    if (m_state.CdState != kCdStopped && m_state.CdState != kCdNotReady) {
        return;
    }
    if (m_device.IsOpen()) {
        m_media.MciSend(u"status CDP media present"_s, false);  // starts a drive check in the background
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
        m_display->ShowUpper(m_texts.UpperText());
        m_display->ShowLower(*lower);
    }
}

void CdPlayer::TitlesChanged() {
    TellWindow();
    ShowLines();
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

void CdPlayer::Close() {
    m_display = nullptr;
    m_follower = nullptr;
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
    TellFollower();
}

/// The window shows the track only if there are titles.
void CdPlayer::TellTrack() {
    if (m_texts.HasTitles()) {
        TellWindow();
    } else {
        TellFollower();
    }
}

void CdPlayer::TellFollower() {
    if (m_follower != nullptr) {
        m_follower->PlayerChanged();
    }
}

void CdPlayer::TellJump() {
    if (m_follower != nullptr) {
        m_follower->PlayerJumped();
    }
}

bool CdPlayer::IsShowing() const {
    return m_isWindowShown || (m_display != nullptr && m_display->IsShown());
}

}  // namespace tickwell::media
