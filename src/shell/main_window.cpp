// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/main_window.h"

#include <QGuiApplication>
#include <QStyleHints>

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

}  // namespace

Form1::Form1(const MainWindowParts& parts)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      m_parts(parts),
      m_pacer(parts.clock, parts.timers),
      m_upperLine(MakeLine(u"MovingWord1"_s)),
      m_lowerLine(MakeLine(u"MovingWord2"_s)),
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
      m_screens(parts.handlers, parts.timers, [this] { ReturnToScreen(); }),
      m_gesture(QGuiApplication::styleHints()->startDragDistance()),
      m_tools(parts.folder, parts.starter),
      m_storage(parts.tray, *m_trayMenu, parts.handlers, parts.timers,
                [this](bool stored) { SetStored(stored); }) {
    setObjectName(u"Form1"_s);
    setWindowTitle(u"Tickwell"_s);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setMouseTracking(true);
    EnableItems();
    connect(m_menu, &QMenu::aboutToShow, this, &Form1::Menu_AboutToShow);
    m_lowerLine->BringUpForReaders([this] { BringUpShown(); });
    m_parts.jumps.Listen([this] { WakeTimers(); });
    m_parts.tray.WhenChanged([this] { Menu_AboutToShow(); });  // updates an open menu
}

std::unique_ptr<lines::MovingWord> Form1::MakeLine(const QString& name) {
    const lines::LineTime time{.clock = m_parts.clock, .timers = m_parts.timers, .pacer = m_pacer};
    auto line = std::make_unique<lines::MovingWord>(time, this);
    line->setObjectName(name);
    line->setMouseTracking(true);
    return line;
}

DisplayView Form1::ViewForDisplays() {
    return {.lines = {.upper = *m_upperLine, .lower = *m_lowerLine},
            .functions = *this,
            .isSeen = [this] { return m_pacer.IsSeen(); },
            .untilFrame = [this] { return m_pacer.UntilFrame(); },
            .linesWritten = [this] { WakeShown(); }};
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
    ApplyFace();
    const FaceSettings& face = m_parts.further.face;
    m_screens.Set({face.screen, {face.screenLeft, face.screenTop}});
    resize(m_geometry.Width(), height());
    ReturnToScreen();
    move(m_geometry.Position());
    m_upperLine->SetText(u"Tickwell Ver.2"_s);
    m_lowerLine->SetText(QString());
    m_startUpTimer->Start();
    m_chimeTimer.Start();
}

void Form1::ApplyStyles() {
    lines::ApplyLineStyles(*m_upperLine, *m_lowerLine, m_parts.settings);
    Form_Resize();
}

void Form1::ApplySettings() {
    ApplyStyles();
    ApplyFace();
    ReturnToScreen();
    ChangeFunction(GetFuncNumber());
    RaiseRefresh();
}

void Form1::Form_Resize() {
    const LineLayout layout = LayoutOf(width(), m_upperLine->TextHeight(), m_lowerLine->TextHeight());
    setFixedHeight(layout.height);
    m_upperLine->setGeometry(layout.upper);
    m_lowerLine->setGeometry(layout.lower);
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
        m_startUpTimer->SetInterval(kStartDelay);
        return;
    }
    m_startUpTimer->Stop();
    m_started = true;
    UpdateKeepTop();
    ChangeFunction(m_parts.settings.function);
}

void Form1::ChangeFunction(qint32 number) {
    m_switch.ChangeFunction(number);
    m_roll.FunctionChanged(number);
}

void Form1::RaiseRefresh() {
    for (const auto& display : m_displays) {
        display->Refresh();
    }
}

/// After a time jump something may be due earlier than the timers expect.
void Form1::WakeTimers() {
    m_chimeTimer.Wake();
    for (const auto& display : m_displays) {
        display->Wake();
    }
}

void Form1::WakeShown() const {
    if (Display* const shown = m_switch.Shown()) {
        shown->Wake();
    }
}

void Form1::BringUpShown() const {
    if (Display* const shown = m_switch.Shown()) {
        shown->BringUp();
    }
}

/// Lines are not updated while they are not visible, but at once when they become visible again.
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

/// Milliseconds until the window is kept on top again, at most kKeepTopTick. If the lines change every
/// second, this is the line's tick after the next one, so that both share one wake-up.
qint64 Form1::UntilKeepTop() const {
    const Display* const shown = m_switch.Shown();
    const qint64 untilLine = shown != nullptr && shown->Traits().turnsWithSeconds ? shown->UntilDue(true) : 0;
    const bool isTicking = untilLine > 1 && untilLine <= kSecond;  // 1 if it is ticking right now
    return isTicking ? kKeepTopTick - kSecond + untilLine : kKeepTopTick;
}

void Form1::SaveAll() {
    const ScreenPlace place = m_parts.further.face.staysOnScreen ? m_screens.Place() : ScreenPlace();
    m_parts.further.face.screen = place.screen;
    m_parts.further.face.screenLeft = place.offset.x();
    m_parts.further.face.screenTop = place.offset.y();
    SaveSettings(m_parts.store, m_parts.settings, m_parts.further, m_geometry.Geometry());
}

}  // namespace tickwell::shell
