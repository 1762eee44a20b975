// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/main_window.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QStyleHints>

#include "controls/announcer.h"
#include "core/settings_io.h"
#include "lines/line_styles.h"

namespace tickwell::shell {

using namespace Qt::StringLiterals;

namespace {

// ms
constexpr int kFitDelay = 3000;
constexpr int kStartDelay = 8000;
constexpr int kKeepTopTick = 2000;
constexpr int kSecond = 1000;
constexpr int kChimeTick = 1000;

std::unique_ptr<lines::MovingWord> MakeLine(const QString& name, const lines::LineTime& time,
                                            QWidget* window) {
    auto line = std::make_unique<lines::MovingWord>(time, window);
    line->setObjectName(name);
    line->setMouseTracking(true);
    return line;
}

void EnableItems(const MainMenu& menu, const ItemMenu& trayMenu, const OtherWindows& windows) {
    menu.Item(MenuCommand::ShowCalendar)->setEnabled(windows.calendar != nullptr);
    menu.Item(MenuCommand::ShowSettings)->setEnabled(windows.settings != nullptr);
    menu.Item(MenuCommand::ShowHelp)->setEnabled(windows.help != nullptr);
    trayMenu.Item(MenuCommand::ShowHelp)->setEnabled(windows.help != nullptr);
    menu.Item(MenuCommand::ShowAbout)->setEnabled(windows.about != nullptr);
}

}  // namespace

Form1::Form1(const MainWindowParts& parts)
    : MovableWindow(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint,
                    {.handlers = parts.handlers,
                     .timers = parts.timers,
                     .face = parts.further.face,
                     .isPlacedByCompositor = parts.isPlacedByCompositor}),
      m_parts(parts),
      m_pacer(parts.clock, parts.timers),
      m_upperLine(MakeLine(u"MovingWord1"_s, {parts.clock, parts.timers, m_pacer}, this)),
      m_lowerLine(MakeLine(u"MovingWord2"_s, {parts.clock, parts.timers, m_pacer}, this)),
      m_displays(parts.makeDisplays(ViewForDisplays())),
      m_menu(new MainMenu(m_displays, parts.handlers, WhenChosen(), this)),
      m_trayMenu(new ItemMenu(u"Menu90", kTrayMenuItems, parts.handlers, WhenChosen(), this)),
      m_chime(parts.clock, parts.settings, parts.playChime),
      m_startUpTimer(parts.handlers.MakeTimer(parts.timers, kFitDelay, [this] { setuptimer_Timer(); })),
      m_keepTopTimer(
          parts.handlers, parts.timers, kKeepTopTick, [this] { KeepTop_Timer(); },
          [this] { return UntilKeepTop(); }),
      m_chimeTimer(
          parts.handlers, parts.timers, kChimeTick, [this] { m_chime.Timer3_Timer(); },
          [this] { return m_chime.UntilDue(); }),
      m_switch(parts.settings, {.upper = *m_upperLine, .lower = *m_lowerLine}, *m_menu, m_displays),
      m_roll(m_displays, parts.further.roll, parts.power, parts.handlers, parts.timers,
             [this](qint32 number) { ChangeFunction(number); }),
      m_tools(parts.folder, parts.starter),
      m_storage(parts.tray, *m_trayMenu, parts.handlers, parts.timers,
                [this](bool stored) { SetStored(stored); }),
      m_keys(*this, *m_menu, parts.further.keyboard, parts.focus, [this] { Keeper().Settle(); }),
      m_announcer(HowToAnnounce(), parts.clock, parts.timers),
      m_hiding(parts.fullScreen, parts.handlers,
               {.id = [this] { return winId(); },
                .isInUse = [this] { return IsInUse(); },
                .update = [this] { UpdateShown(); }}),
      m_clicks({.window = *this,
                .further = parts.further,
                .storage = m_storage,
                .menu = *m_menu,
                .trayMenu = *m_trayMenu,
                .handlers = parts.handlers,
                .passClicks = parts.passClicks,
                .openMenu = [this] { ComeForwardWithMenu(); },
                .save = [this] { SaveAll(); }}) {
    setObjectName(u"Form1"_s);
    setWindowTitle(u"Tickwell"_s);
    setAttribute(Qt::WA_ShowWithoutActivating);
    // Qt chooses the pixel format when the native window is created, so a change needs a restart.
    setAttribute(Qt::WA_TranslucentBackground, parts.further.face.transparent);
    EnableItems(*m_menu, *m_trayMenu, parts.windows);
    connect(m_menu, &QMenu::aboutToShow, this, &Form1::Menu_AboutToShow);
    connect(
        m_menu, &QMenu::aboutToHide, this, [this] { m_hiding.Look(); }, Qt::QueuedConnection);
    m_lowerLine->BringUpForReaders([this] {
        if (Display* const shown = m_switch.Shown()) {
            shown->BringUp();
        }
    });
    for (lines::MovingWord* line : {m_upperLine.get(), m_lowerLine.get()}) {
        line->WhenTold([this] { m_announcer.LineChanged(); });
    }
    m_parts.jumps.Listen([this] {  // something may be due earlier than the timers expect
        m_chimeTimer.Wake();
        for (const auto& display : m_displays) {
            display->Wake();
        }
    });
    m_parts.tray.WhenChanged([this] {
        m_storage.AreaChanged();
        Menu_AboutToShow();  // updates an open menu
    });
}

DisplayView Form1::ViewForDisplays() {
    return {.lines = {.upper = *m_upperLine, .lower = *m_lowerLine},
            .functions = *this,
            .isSeen = [this] { return m_pacer.IsSeen(); },
            .untilFrame = [this] { return m_pacer.UntilFrame(); },
            .linesWritten =
                [this] {
                    if (Display* const shown = m_switch.Shown()) {
                        shown->Wake();
                    }
                }};
}

ReadingAnnouncer::Parts Form1::HowToAnnounce() {
    auto* announcer = new controls::Announcer(this);
    return {.isHeard = [this] { return QAccessible::isActive() && isActiveWindow(); },
            .read = [this]() -> QString { return m_upperLine->ToldText() + u' ' + m_lowerLine->ToldText(); },
            .say = [announcer](const QString& text) { announcer->Announce(text); }};
}

Form1::~Form1() {
    m_parts.tray.WhenChanged(nullptr);
    m_parts.jumps.Listen(nullptr);
}

void Form1::Form_Load() {
    WindowGeometry geometry;
    m_menu->ShowTools(m_tools.Present());
    LoadWindowGeometry(m_parts.store, m_parts.settings, geometry);
    Keeper().Set(geometry);
    ApplyStyles();
    ApplyFace();
    const FaceSettings& face = m_parts.further.face;
    Screens().Set({face.screen, {face.screenLeft, face.screenTop}});
    resize(Keeper().Width(), height());
    ReturnToScreen();
    move(Keeper().Position());
    m_clicks.Apply();
    m_upperLine->SetText(u"Tickwell Ver.2"_s);
    m_lowerLine->SetText(QString());
    m_startUpTimer->Start();
    m_chimeTimer.Start();
    m_keys.Follow();
}

void Form1::ApplyStyles() {
    lines::ApplyLineStyles(*m_upperLine, *m_lowerLine, m_parts.settings);
    Form_Resize();
}

void Form1::ApplySettings() {
    ApplyStyles();
    ApplyFace();
    m_keys.Follow();
    m_clicks.Apply();
    ReturnToScreen();
    SwitchTo(GetFuncNumber());
    RaiseRefresh();
}

void Form1::Form_Resize() {
    const int upperText = m_upperLine->TextHeight();
    const int lowerText = m_lowerLine->TextHeight();
    setFixedHeight(LayoutOf(width(), upperText, lowerText).height);
    // Needed even though the height is fixed: some compositors enforce a greater minimum height.
    const LineLayout layout = LayoutOf(width(), upperText, lowerText, height());
    m_upperLine->setGeometry(layout.upper);
    m_lowerLine->setGeometry(layout.lower);
}

/// The start-up delay in two halves: the lines are fitted once the desktop has settled, then the function
/// starts.
void Form1::setuptimer_Timer() {
    if (!m_fitted) {
        m_fitted = true;
        Keeper().Settle();
        if (isVisible() && IsLost()) {
            ShowAgain();  // it was mapped while the window manager was still starting up
        }
        Form_Resize();
        ShowThrough();  // a compositing manager may start later than this program
        m_startUpTimer->SetInterval(kStartDelay);
        return;
    }
    m_startUpTimer->Stop();
    m_started = true;
    UpdateKeepTop();
    SwitchTo(m_parts.settings.function);
}

void Form1::ChangeFunction(qint32 number) {
    m_stored.reset();
    SwitchTo(number);
}

void Form1::ShowForNow(qint32 number) {
    if (!m_stored) {
        m_stored = m_parts.settings.function;
    }
    SwitchTo(number);
}

void Form1::SwitchTo(qint32 number) {
    m_switch.ChangeFunction(number);
    m_roll.FunctionChanged(number);
}

void Form1::RaiseRefresh() {
    for (const auto& display : m_displays) {
        display->Refresh();
    }
}

/// Stops updating the lines while they are not visible, and updates them at once when they become visible
/// again.
void Form1::SetSeen(bool isSeen) {
    if (isSeen == m_pacer.IsSeen()) {
        return;
    }
    m_pacer.SetSeen(isSeen);
    if (isSeen) {
        for (const auto& display : m_displays) {
            display->Tick();
        }
    }
}

/// Milliseconds until the window is raised again, at most kKeepTopTick. If the lines change every second, the
/// timer is aligned with one of their ticks, so that both share one wake-up.
qint64 Form1::UntilKeepTop() const {
    const Display* const shown = m_switch.Shown();
    const qint64 untilLine = shown != nullptr && shown->Traits().turnsWithSeconds ? shown->UntilDue(true) : 0;
    const bool isTicking = untilLine > 1 && untilLine <= kSecond;  // 1 if the tick is happening right now
    return isTicking ? kKeepTopTick - kSecond + untilLine : kKeepTopTick;
}

void Form1::SaveAll() {
    const ScreenPlace place = m_parts.further.face.staysOnScreen ? Screens().Place() : ScreenPlace();
    m_parts.further.face.screen = place.screen;
    m_parts.further.face.screenLeft = place.offset.x();
    m_parts.further.face.screenTop = place.offset.y();
    AppSettings stored = m_parts.settings;
    stored.function = m_stored.value_or(stored.function);
    SaveSettings(m_parts.store, stored, m_parts.further, Keeper().Geometry());
}

}  // namespace tickwell::shell
