// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>

#include "core/day_changes.h"
#include "core/display.h"
#include "core/sleeping_timer.h"
#include "displays/function_switch.h"
#include "displays/roll.h"
#include "lines/moving_word.h"
#include "shell/click_through.h"
#include "shell/full_screen_hiding.h"
#include "shell/main_menu.h"
#include "shell/main_window_parts.h"
#include "shell/movable_window.h"
#include "shell/reading_announcer.h"
#include "shell/tool_launcher.h"
#include "shell/window_keys.h"

namespace tickwell::shell {

/// The main window: two lines, small, frameless, above all other windows. Connects lines, timers and menu
/// with the classes that determine their contents. Idle until Form_Load.
class Form1 : public MovableWindow, public DisplayFunctions, public DayChanges {
    Q_OBJECT

public:
    explicit Form1(const MainWindowParts& parts);
    ~Form1() override;

    /// Reads the stored position and width, applies the styles to the lines and starts the start-up delay.
    /// Throws RunTimeError; the window must then not be shown.
    void Form_Load();
    void ChangeFunction(qint32 number) override;
    qint32 GetFuncNumber() const override { return m_parts.settings.function; }
    /// The same for another program: the settings file keeps the function chosen by the user or the roll.
    void ShowForNow(qint32 number);

    const Displays& AllDisplays() const { return m_displays; }
    /// The settings have changed: applies styles, function, date and roll at once.
    void ApplySettings();
    void RaiseRefresh() override;

    /// Shows the window above all others, even if it was in the notification area, on another workspace,
    /// outside all screens, or hidden by the window manager.
    void ComeForward();
    /// The same, and opens the menu for use with the keyboard.
    void ComeForwardWithMenu();

    /// While the settings dialog is open, the window does not raise itself above it.
    void HoldKeepTop(bool held);
    /// Writes the settings and the window's current geometry. Throws RunTimeError.
    void SaveAll();
    /// The open menus.
    QList<QMenu*> VisibleMenus() const;

protected:
    void Clicked(QPoint pointer) override;
    void PlaceChanged() override { m_hiding.Look(); }
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    MenuChosen WhenChosen();
    ReadingAnnouncer::Parts HowToAnnounce();
    void Form_Resize();
    void SwitchTo(qint32 number);
    void setuptimer_Timer();
    void KeepTop_Timer();
    void Menu_Click(MenuCommand command, qint32 number);
    void Menu_AboutToShow();
    void ApplyStyles();
    void OpenMenuByKey();
    void SetStored(bool stored);
    void SetSeen(bool isSeen);
    DisplayView ViewForDisplays();
    qint64 UntilKeepTop() const;
    void UpdateKeepTop();
    bool IsCovered() const;
    bool IsLost() const;
    void ShowAgain();
    void Declare();
    void UpdateShown();
    bool IsInUse() const;
    void ApplySwitcher();
    void ShowThrough();
    void ApplyFace();

    MainWindowParts m_parts;
    lines::FramePacer m_pacer;
    std::unique_ptr<lines::MovingWord> m_upperLine;  // destroyed before the pacer, which they use
    std::unique_ptr<lines::MovingWord> m_lowerLine;
    Displays m_displays;
    MainMenu* m_menu;      // owned by the window, as its child
    ItemMenu* m_trayMenu;  // owned by the window, as its child
    displays::Chime m_chime;
    std::unique_ptr<Timer> m_startUpTimer;
    SleepingTimer m_keepTopTimer;
    SleepingTimer m_chimeTimer;
    displays::FunctionSwitch m_switch;
    displays::Roll m_roll;
    ToolLauncher m_tools;
    TrayStorage m_storage;
    WindowKeys m_keys;
    ReadingAnnouncer m_announcer;
    FullScreenHiding m_hiding;
    ClickThrough m_clicks;
    bool m_fitted = false;           // 3 s after the start: the window has its final size
    bool m_started = false;          // 8 s later: the stored display has been started
    std::optional<qint32> m_stored;  // the function to store while another one is shown temporarily
    bool m_keepTopHeld = false;
};

}  // namespace tickwell::shell
