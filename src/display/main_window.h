// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "core/day_changes.h"
#include "core/display_function.h"
#include "core/handlers.h"
#include "core/ports/clock.h"
#include "core/ports/memory.h"
#include "core/ports/power.h"
#include "core/ports/settings_store.h"
#include "core/ports/timer.h"
#include "core/settings.h"
#include "display/clock_lines.h"
#include "display/frame_pacer.h"
#include "display/function_switch.h"
#include "display/main_menu.h"
#include "display/moving_word.h"
#include "display/pointer_gesture.h"
#include "display/usage_lines.h"
#include "display/window_geometry.h"

namespace tickwell {

/// What the main window works with; all outlive it.
struct MainWindowParts {
    AppSettings& settings;
    SettingsStore& store;
    const std::unique_ptr<DayDatabase>& dayDatabase;  ///< null while it is closed
    const Clock& clock;
    TimerSource& timers;
    const Power& power;
    const Memory& memory;
    Handlers& handlers;
    std::function<void()> closed;  ///< called once the window has closed; saving has been tried by then
};

/// The display window: two lines, small, without a frame, above all others. It ties the lines, the timers and
/// the menu to what computes them. Built at rest: Form_Load reads its place and starts it.
class Form1 : public QWidget, public DisplayFunctions, public DayChanges {
    Q_OBJECT

public:
    explicit Form1(const MainWindowParts& parts);

    /// Reads the stored place and width, gives the lines their look and starts the start-up delay. Throws
    /// RunTimeError; the window must then not be shown.
    void Form_Load();

    void ChangeFunction(qint32 number) override;
    qint32 GetFuncNumber() const override { return m_parts.settings.function; }

    void RaiseRefresh() override { m_clockLines.RaiseRefresh(); }

    /// Shows the window above the others, brought onto a screen when it lay wholly outside.
    void ComeForward();

    /// Writes the settings with the window's present place. Throws RunTimeError.
    void SaveAll();

    /// The menus that stand open.
    QList<QMenu*> VisibleMenus() const;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Form_Resize();
    void setuptimer_Timer();
    void Dz_Timer1_Timer();
    void Menu_Click(const MenuItem& item);
    void ApplyStyles();
    void PopUpMenu(QPoint at);

    MainWindowParts m_parts;
    FramePacer m_pacer;
    std::unique_ptr<MovingWord> m_MovingWord1;  // they leave before their pacer does
    std::unique_ptr<MovingWord> m_MovingWord2;
    MainMenu* m_menu;  // owned by the window, as its child
    ClockLines m_clockLines;
    UsageLines m_usageLines;
    BatteryLines m_batteryLines;
    MemoryLines m_memoryLines;
    std::unique_ptr<Timer> m_setuptimer;
    std::unique_ptr<Timer> m_Dz_Timer1;
    std::unique_ptr<Timer> m_Dz_Timer2;
    std::unique_ptr<Timer> m_Win_Timer;
    std::unique_ptr<Timer> m_BatTimer;
    std::unique_ptr<Timer> m_MemoryTimer;
    FunctionSwitch m_switch;
    GeometryKeeper m_geometry;
    PointerGesture m_gesture;
    bool m_fitted = false;  // the first half of the start-up delay is over
};

/// Makes the window and its lines known to screen readers. Once a process, before the window.
void InstallMainWindowAccessibility();

}  // namespace tickwell
