// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "media/cd_controls.h"
#include "media/cd_device.h"
#include "media/cd_seek.h"
#include "media/cd_texts.h"

namespace tickwell {

/// The main window's lines, as far as they are the CD player's.
class CdDisplay {
public:
    virtual ~CdDisplay() = default;

    /// Whether the lines show the player now. While they do not, nothing is written to them.
    virtual bool IsShown() const = 0;
    virtual void ShowUpper(const QString& text) = 0;
    virtual void ShowLower(const QString& text) = 0;
};

/// What the CD player works with; all outlive it.
struct CdPlayerParts {
    CdPlayerState& state;
    Multimedia& media;
    CdDevice& device;
    Handlers& handlers;
    TimerSource& timers;
};

/// The CD player without its window: it is there as long as the program, with the window or without.
class CdPlayer {
public:
    explicit CdPlayer(const CdPlayerParts& parts);

    /// The lines to write to from now on; nothing where there are none.
    void SetDisplay(CdDisplay* display) { m_display = display; }

    /// What is called whenever Controls() or the state has changed; an empty function where there is no
    /// window.
    void SetWindow(std::function<void()> changed) { m_changed = std::move(changed); }

    /// The player's window has come or gone.
    void ShowWindow(bool isShown);

    /// The function or the window was opened: a disc that was put in since is found.
    void Appear();

    /// Writes both lines as the state has them.
    void ShowLines();

    /// The reset: a disc is there, stopped, with no track chosen. Stops at the first question that fails; the
    /// player is not ready then.
    void CDSetUp();

    /// Not ready. Asks the device nothing.
    void CDSetDown();

    void Command1_Click(int index);

    /// A button is held or let go; see CdSeek.
    void Command1_Press(int index) { m_seek.Hold(index); }
    void Command1_Release() { m_seek.Release(); }

    /// `index`: 1 to 3, for the formats 0 to 2.
    void cdm_Click(int index);

    /// The drive has another disc, or none.
    void DeviceChanged();

    /// Stops and closes the device. Neither lines nor window are touched from now on.
    void Close();

    const CdPlayerState& State() const { return m_state; }
    const CdControls& Controls() const { return m_controls; }
    CdTexts& Texts() { return m_texts; }

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
    bool IsShowing() const;

    CdPlayerState& m_state;
    Multimedia& m_media;
    CdDevice& m_device;
    CdTexts m_texts;
    CdSeek m_seek;
    CdControls m_controls;
    std::unique_ptr<Timer> m_CDTimer1;   // while it plays: follows the device
    std::unique_ptr<Timer> m_lookTimer;  // while it is shown and not ready: looks for a disc
    CdDisplay* m_display = nullptr;
    std::function<void()> m_changed;
    bool m_isWindowShown = false;
};

/// The track before or behind another in a circle; from no track at all the last or the first.
qint32 TrackBefore(qint32 track, qint32 count);
qint32 TrackBehind(qint32 track, qint32 count);

}  // namespace tickwell
