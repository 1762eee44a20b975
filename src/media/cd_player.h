// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/cd_controls.h"
#include "media/cd_player_parts.h"
#include "media/cd_seek.h"
#include "media/cd_texts.h"
#include "media/cd_views.h"

namespace tickwell::media {

/// The CD player without its window. It exists as long as the program, whether or not the window is open.
class CdPlayer {
public:
    explicit CdPlayer(const CdPlayerParts& parts);

    /// The lines to write to from now on; null for none.
    void SetDisplay(CdDisplay* display) { m_display = display; }

    /// Called whenever Controls() or the state has changed; an empty function if there is no window.
    void SetWindow(std::function<void()> changed) { m_changed = std::move(changed); }

    /// Sets the object that is notified of the player's changes from now on; null for none.
    void SetFollower(CdFollower* follower) { m_follower = follower; }

    /// The player's window was shown or hidden.
    void ShowWindow(bool isShown);

    /// The disc's titles have become known, or the setting that shows them has changed.
    void TitlesChanged();

    /// Called when the function or the window is opened: detects a disc that was inserted in the meantime.
    void Appear();

    /// Whether the function or the window was opened since the start of the program.
    bool HasAppeared() const { return m_hasAppeared; }

    /// Writes both lines according to the state.
    void ShowLines();

    /// Resets the player: disc present, stopped, no track chosen. Ends at the first query that fails; the
    /// player is then not ready.
    void CDSetUp();

    /// Makes the player not ready. Sends the device no command.
    void CDSetDown();

    void Command1_Click(int index);

    /// A button is pressed or released; see CdSeek.
    void Command1_Press(int index) { m_seek.Hold(index); }
    void Command1_Release() { m_seek.Release(); }

    /// While the disc plays: continues at a position, in ms from the start of track 1 to the end of the disc.
    void GoTo(qint32 position) { m_seek.GoTo(position); }

    /// `index`: 1 to 3, for display formats 0 to 2.
    void cdm_Click(int index);

    /// The drive has a different disc, or none.
    void DeviceChanged();

    /// Stops and closes the device. Lines and window are no longer used.
    void Close();

    const CdPlayerState& State() const { return m_state; }
    const CdControls& Controls() const { return m_controls; }
    CdTexts& Texts() { return m_texts; }
    const CdTexts& Texts() const { return m_texts; }

private:
    void SetBotton();
    void EnterState(qint32 state, const QString& caption);
    void ClickStopped(int index);
    void ClickPlaying(int index);
    void Resume();
    void Play();
    void PlayAnew();
    void PreviousWhilePlaying();
    void ChooseTrack(qint32 track);
    void Pause();
    void Stop(bool showError);
    void Recover();
    void CDTimer1_Timer();
    void LookTick();
    void KeepLooking();
    void TellWindow();
    void TellTrack();
    void TellFollower();
    void TellJump();
    bool IsShowing() const;

    CdPlayerState& m_state;
    Multimedia& m_media;
    CdDevice& m_device;
    CdTexts m_texts;
    CdSeek m_seek;
    CdControls m_controls;
    std::unique_ptr<Timer> m_followTimer;  // while playing: polls the device
    std::unique_ptr<Timer> m_lookTimer;    // while shown and not ready: looks for a disc
    CdDisplay* m_display = nullptr;
    CdFollower* m_follower = nullptr;
    qint32 m_followedTrack = 0;  // as last polled; unlike CdTrack, not set by the texts of the lines
    std::function<void()> m_changed;
    bool m_isWindowShown = false;
    bool m_hasAppeared = false;
};

/// The previous and the next track, cyclic; from track 0 (none chosen) the last and the first one.
qint32 TrackBefore(qint32 track, qint32 count);
qint32 TrackBehind(qint32 track, qint32 count);

}  // namespace tickwell::media
