// SPDX-License-Identifier: GPL-3.0-or-later
// The actions of the player's buttons in each state.
#include "core/integers.h"
#include "media/cd_player.h"

namespace tickwell::media {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kRestartAfter = 1000;  // ms into a track: from there on "previous" restarts the track

}  // namespace

qint32 TrackBefore(qint32 track, qint32 count) {
    return track <= 1 ? count : track - 1;
}

qint32 TrackBehind(qint32 track, qint32 count) {
    return track == 0 || track >= count ? 1 : track + 1;
}

void CdPlayer::Command1_Click(int index) {
    switch (m_state.CdState) {
        case kCdPaused:
            Resume();
            break;
        case kCdStopped:
            ClickStopped(index);
            break;
        case kCdPlaying:
            ClickPlaying(index);
            break;
        default:
            break;
    }
}

/// While paused, every button resumes: pause is the only one enabled.
void CdPlayer::Resume() {
    EnterState(kCdPlaying, u"再生"_s);
    m_media.MciPlaySimple(u"CDP"_s, true);
}

void CdPlayer::ClickStopped(int index) {
    switch (index) {
        case kCdPrevious:
            ChooseTrack(TrackBefore(m_state.CdTrack, m_state.CdTrackCount));
            break;
        case kCdNext:
            ChooseTrack(TrackBehind(m_state.CdTrack, m_state.CdTrackCount));
            break;
        case kCdPlay:
            Play();
            break;
        default:
            break;
    }
}

/// Rewind and forward act while they are held; clicking them does nothing.
void CdPlayer::ClickPlaying(int index) {
    switch (index) {
        case kCdPrevious:
            PreviousWhilePlaying();
            break;
        case kCdPause:
            Pause();
            break;
        case kCdStop:
            Stop(true);
            break;
        case kCdNext:
            ChooseTrack(TrackBehind(m_state.CdTrack, m_state.CdTrackCount));
            PlayAnew();
            break;
        default:
            break;
    }
}

void CdPlayer::ChooseTrack(qint32 track) {
    m_state.CdTrack = track;
    TellTrack();
    const auto text = m_texts.SelectionText();
    if (text && m_display != nullptr && m_display->IsShown()) {
        if (m_texts.HasTitles()) {
            m_display->ShowUpper(m_texts.UpperText());
        }
        m_display->ShowLower(*text);
    }
}

void CdPlayer::Play() {
    if (m_state.CdTrack == 0) {
        m_state.CdTrack = 1;
    }
    EnterState(kCdPlaying, u"再生"_s);
    m_media.MciPlayTrack(u"CDP"_s, m_state.CdTrack, false, true);
    if (m_state.CdState == kCdPlaying) {
        m_followTimer->Start();
    }
}

/// Within the first second of a track, goes to the previous one; later, restarts the current one.
void CdPlayer::PreviousWhilePlaying() {
    const auto position = AskCd(m_media, u"status CDP position"_s, true);
    if (!position) {
        return;
    }
    const auto start =
        AskCd(m_media, u"status CDP position track "_s + QString::number(m_state.CdTrack), true);
    if (!start) {
        return;
    }
    if (CheckedSub(*position, *start) < kRestartAfter) {
        m_state.CdTrack = TrackBefore(m_state.CdTrack, m_state.CdTrackCount);
    }
    PlayAnew();
}

void CdPlayer::PlayAnew() {
    if (m_state.CdState == kCdPlaying) {
        m_media.MciStop(u"CDP"_s, true);
    }
    if (m_state.CdState == kCdPlaying) {  // after a failed stop the player is not ready
        m_media.MciPlayTrack(u"CDP"_s, m_state.CdTrack, false, true);
    }
    TellJump();
}

void CdPlayer::Pause() {
    m_seek.Release();
    EnterState(kCdPaused, u"一時停止"_s);
    m_media.MciPause(u"CDP"_s, true);
}

}  // namespace tickwell::media
