// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/main_window.h"

#include <QGuiApplication>
#include <QStyleHints>

#include "core/settings_io.h"
#include "display/line_styles.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

// ms
constexpr int kFitDelay = 3000;
constexpr int kStartDelay = 8000;
constexpr int kTimeTick = 200;
constexpr int kDateTick = 10000;
constexpr int kUsageTick = 250;
constexpr int kBatteryTick = 10000;
constexpr int kMemoryTick = 2000;
constexpr int kKeepTopTick = 2000;
constexpr int kSecond = 1000;
constexpr int kCdTick = 500;
constexpr int kChimeTick = 1000;

}  // namespace

Form1::Form1(const MainWindowParts& parts)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      m_parts(parts),
      m_pacer(parts.clock, parts.timers),
      m_MovingWord1(std::make_unique<MovingWord>(LineTime{parts.clock, parts.timers, m_pacer}, this)),
      m_MovingWord2(std::make_unique<MovingWord>(LineTime{parts.clock, parts.timers, m_pacer}, this)),
      m_menu(new MainMenu(
          parts.handlers, [this](MenuCommand command, qint32 number) { Menu_Click(command, number); }, this)),
      m_trayMenu(new ItemMenu(
          u"Menu90", kTrayMenuItems, parts.handlers,
          [this](MenuCommand command, qint32 number) { Menu_Click(command, number); }, this)),
      m_clockLines(parts.settings, parts.clock, parts.dayDatabase, {*m_MovingWord1, *m_MovingWord2}),
      m_usageLines(parts.settings, parts.clock, {*m_MovingWord1, *m_MovingWord2}),
      m_batteryLines(parts.power, {*m_MovingWord1, *m_MovingWord2}),
      m_memoryLines(parts.memory, {*m_MovingWord1, *m_MovingWord2}),
      m_cdLines(parts.media.player, {*m_MovingWord1, *m_MovingWord2}, *this),
      m_chime(parts.clock, parts.settings, parts.media.playChime),
      m_setuptimer(parts.handlers.MakeTimer(parts.timers, kFitDelay, [this] { setuptimer_Timer(); })),
      m_Dz_Timer1(
          parts.handlers, parts.timers, kTimeTick, [this] { Dz_Timer1_Timer(); },
          [this] { return m_clockLines.UntilDue(m_pacer.IsSeen()); }),
      m_Dz_Timer2(parts.handlers.MakeTimer(parts.timers, kDateTick, [this] { m_clockLines.RotateTick(); })),
      m_Win_Timer(
          parts.handlers, parts.timers, kUsageTick, [this] { m_usageLines.Tick(); },
          [this] { return WhileSeen(m_usageLines.UntilDue()); }),
      m_BatTimer(parts.handlers.MakeTimer(parts.timers, kBatteryTick, [this] { m_batteryLines.Refresh(); })),
      m_MemoryTimer(
          parts.handlers, parts.timers, kMemoryTick, [this] { m_memoryLines.Tick(); },
          [this] { return WhileSeen(kMemoryTick); }),
      m_KeepTop(
          parts.handlers, parts.timers, kKeepTopTick, [this] { KeepTop_Timer(); },
          [this] { return UntilKeepTop(); }),
      m_CDTimer2(
          parts.handlers, parts.timers, kCdTick, [this] { m_cdLines.Tick(); },
          [this] { return WhileSeen(kCdTick); }),
      m_Timer3(
          parts.handlers, parts.timers, kChimeTick, [this] { m_chime.Timer3_Timer(); },
          [this] { return m_chime.UntilDue(); }),
      m_timing(parts.timing, {{*m_MovingWord1, *m_MovingWord2},
                              *this,
                              [this] { return m_pacer.UntilFrame(); },
                              [this] { m_Dz_Timer1.Wake(); }}),
      m_switch(
          parts.settings, {*m_MovingWord1, *m_MovingWord2}, *m_menu,
          {m_Dz_Timer1, *m_Dz_Timer2, m_Win_Timer, m_timing.Timer1(), *m_BatTimer, m_MemoryTimer, m_CDTimer2},
          {m_clockLines, m_usageLines, m_batteryLines, m_memoryLines, m_timing.Reading(), m_timing.Rest(),
           m_cdLines}),
      m_roll(parts.further.roll, parts.power, parts.handlers, parts.timers,
             [this](qint32 number) { ChangeFunction(number); }),
      m_gesture(QGuiApplication::styleHints()->startDragDistance()),
      m_tools(parts.folder, parts.starter),
      m_storage(parts.tray, *m_trayMenu, parts.handlers, parts.timers,
                [this](bool stored) { SetStored(stored); }) {
    setObjectName(u"Form1"_s);
    setWindowTitle(u"Tickwell"_s);
    m_MovingWord1->setObjectName(u"MovingWord1"_s);
    m_MovingWord2->setObjectName(u"MovingWord2"_s);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setMouseTracking(true);
    m_MovingWord1->setMouseTracking(true);
    m_MovingWord2->setMouseTracking(true);
    m_menu->Item(MenuCommand::ShowCalendar)->setEnabled(parts.windows.calendar != nullptr);
    m_menu->Item(MenuCommand::ShowSettings)->setEnabled(parts.windows.settings != nullptr);
    m_menu->Item(MenuCommand::ShowHelp)->setEnabled(parts.windows.help != nullptr);
    m_trayMenu->Item(MenuCommand::ShowHelp)->setEnabled(parts.windows.help != nullptr);
    m_menu->Item(MenuCommand::ShowAbout)->setEnabled(parts.windows.about != nullptr);
    connect(m_menu, &QMenu::aboutToShow, this, &Form1::Menu_AboutToShow);
    m_MovingWord2->BringUpForReaders([this] { m_timing.BringUp(); });
    m_parts.jumps.Listen([this] { WakeTimers(); });
    m_parts.tray.WhenChanged([this] { Menu_AboutToShow(); });  // an open menu follows
}

Form1::~Form1() {
    m_parts.tray.WhenChanged(nullptr);
    m_parts.jumps.Listen(nullptr);
}

void Form1::Form_Load() {
    WindowGeometry geometry;
    m_menu->ShowTools(m_tools.Present());
    LoadWindowGeometry(m_parts.store, m_parts.settings, geometry);
    m_geometry.Set(geometry);
    ApplyStyles();
    resize(m_geometry.Width(), height());
    move(m_geometry.Position());
    m_MovingWord1->SetText(u"Tickwell Ver.2"_s);
    m_MovingWord2->SetText(QString());
    m_setuptimer->Start();
    m_Timer3.Start();
}

void Form1::ApplyStyles() {
    ApplyLineStyles(*m_MovingWord1, *m_MovingWord2, m_parts.settings);
    Form_Resize();
}

void Form1::ApplySettings() {
    ApplyStyles();
    ChangeFunction(GetFuncNumber());
    RaiseRefresh();
}

void Form1::Form_Resize() {
    const LineLayout layout = LayoutOf(width(), m_MovingWord1->TextHeight(), m_MovingWord2->TextHeight());
    setFixedHeight(layout.height);
    m_MovingWord1->setGeometry(layout.upper);
    m_MovingWord2->setGeometry(layout.lower);
}

/// The start-up delay in two halves: the lines are fitted once the desktop has settled, then the function
/// starts.
void Form1::setuptimer_Timer() {
    if (!m_fitted) {
        m_fitted = true;
        m_geometry.Settle();
        if (isVisible() && IsLost()) {
            ShowAgain();  // it was mapped while the window manager was still starting up
        }
        Form_Resize();
        m_setuptimer->SetInterval(kStartDelay);
        return;
    }
    m_setuptimer->Stop();
    m_started = true;
    UpdateKeepTop();
    ChangeFunction(m_parts.settings.function);
}

/// A look-up that fails is reported on its own: the time goes on.
void Form1::Dz_Timer1_Timer() {
    m_parts.handlers.Run([this] { m_clockLines.LookUp(); });
    m_clockLines.TimeTick();
}

void Form1::ChangeFunction(qint32 number) {
    m_switch.ChangeFunction(number);
    m_roll.FunctionChanged(number);
    m_timing.FunctionChanged();
}

void Form1::RaiseRefresh() {
    m_clockLines.RaiseRefresh();
    m_Dz_Timer1.Wake();
}

/// Time went another way than they counted it.
void Form1::WakeTimers() {
    m_Dz_Timer1.Wake();
    m_Win_Timer.Wake();
    m_Timer3.Wake();
    m_timing.Wake();
}

/// What nobody sees is not brought up to date; the first frame that is seen shows what holds then.
void Form1::SetSeen(bool isSeen) {
    if (isSeen == m_pacer.IsSeen()) {
        return;
    }
    m_pacer.SetSeen(isSeen);
    if (isSeen) {
        m_Dz_Timer1.TickNow();
        m_Win_Timer.TickNow();
        m_MemoryTimer.TickNow();
        m_CDTimer2.TickNow();
        m_timing.TickNow();
    }
}

void Form1::Menu_Click(MenuCommand command, qint32 number) {
    switch (command) {
        case MenuCommand::ChangeFunction:
            return ChangeFunction(number);
        case MenuCommand::ShowCalendar:
            return m_parts.windows.calendar();
        case MenuCommand::StartTool:
            return m_tools.Start(number);
        case MenuCommand::ShowSettings:
            return m_parts.windows.settings();
        case MenuCommand::StoreInTray:
            return m_storage.Store();
        case MenuCommand::TakeFromTray:
            return m_storage.TakeBack();
        case MenuCommand::ShowHelp:
            return m_parts.windows.help();
        case MenuCommand::ShowAbout:
            return m_parts.windows.about();
        case MenuCommand::Quit:
            close();
            return;
        case MenuCommand::ShowOperation:
            return ShowOperation();
        case MenuCommand::Separator:
        case MenuCommand::Tools:
            return;
    }
}

/// The window of the function that is shown; some have none.
void Form1::ShowOperation() {
    if (GetFuncNumber() == kFunctionStopwatch) {
        m_timing.ShowStopForm();
    } else if (GetFuncNumber() == kFunctionTimer) {
        m_timing.ShowTimerForm();
    } else if (GetFuncNumber() == kFunctionCd) {
        m_parts.windows.cdPlayer();
    }
}

/// Where nothing shows an icon, putting the window away would lose it.
void Form1::Menu_AboutToShow() {
    m_menu->Item(MenuCommand::StoreInTray)->setEnabled(m_storage.CanStore());
}

/// Nothing is due to a line that nobody sees: it is brought up to date when it comes into sight.
qint64 Form1::WhileSeen(qint64 untilDue) const {
    return m_pacer.IsSeen() ? untilDue : SleepingTimer::kLongestSleep;
}

/// With the second tick of the line from now, so that both wake the machine up once; never later than its
/// interval.
qint64 Form1::UntilKeepTop() const {
    qint64 untilLine = 0;
    if (GetFuncNumber() == kFunctionClock) {
        untilLine = m_clockLines.UntilDue(true);
    } else if (GetFuncNumber() == kFunctionUsage) {
        untilLine = m_usageLines.UntilDue();
    }
    const bool isTicking = untilLine > 1 && untilLine <= kSecond;  // 1 where it ticks at this very moment
    return isTicking ? kKeepTopTick - kSecond + untilLine : kKeepTopTick;
}

void Form1::SaveAll() {
    SaveSettings(m_parts.store, m_parts.settings, m_parts.further, m_geometry.Geometry());
}

QList<QMenu*> Form1::VisibleMenus() const {
    QList<QMenu*> menus{m_menu};
    menus.append(m_menu->findChildren<QMenu*>());
    menus.removeIf([](const QMenu* menu) { return !menu->isVisible(); });
    return menus;
}

}  // namespace tickwell
