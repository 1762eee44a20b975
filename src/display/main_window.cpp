// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QStyleHints>
#include <QWindow>

#include "core/settings_io.h"
#include "display/line_look.h"

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

void ApplyStyle(MovingWord& word, const LineStyle& style, qint32 wipeKind) {
    word.setFont(FontOf(style));
    word.SetForeColor(style.color);
    word.SetWipeKind(wipeKind);
}

}  // namespace

Form1::Form1(const MainWindowParts& parts)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      m_parts(parts),
      m_pacer(parts.clock, parts.timers),
      m_MovingWord1(std::make_unique<MovingWord>(LineTime{parts.clock, parts.timers, m_pacer}, this)),
      m_MovingWord2(std::make_unique<MovingWord>(LineTime{parts.clock, parts.timers, m_pacer}, this)),
      m_menu(new MainMenu(
          parts.handlers, [this](const MenuItem& item) { Menu_Click(item); }, this)),
      m_clockLines(parts.settings, parts.clock, parts.dayDatabase, {*m_MovingWord1, *m_MovingWord2}),
      m_usageLines(parts.settings, parts.clock, {*m_MovingWord1, *m_MovingWord2}),
      m_batteryLines(parts.power, {*m_MovingWord1, *m_MovingWord2}),
      m_memoryLines(parts.memory, {*m_MovingWord1, *m_MovingWord2}),
      m_setuptimer(parts.handlers.MakeTimer(parts.timers, kFitDelay, [this] { setuptimer_Timer(); })),
      m_Dz_Timer1(parts.handlers.MakeTimer(parts.timers, kTimeTick, [this] { Dz_Timer1_Timer(); })),
      m_Dz_Timer2(parts.handlers.MakeTimer(parts.timers, kDateTick, [this] { m_clockLines.RotateTick(); })),
      m_Win_Timer(parts.handlers.MakeTimer(parts.timers, kUsageTick, [this] { m_usageLines.Tick(); })),
      m_BatTimer(parts.handlers.MakeTimer(parts.timers, kBatteryTick, [this] { m_batteryLines.Refresh(); })),
      m_MemoryTimer(parts.handlers.MakeTimer(parts.timers, kMemoryTick, [this] { m_memoryLines.Tick(); })),
      m_switch(parts.settings, {*m_MovingWord1, *m_MovingWord2}, *m_menu,
               {*m_Dz_Timer1, *m_Dz_Timer2, *m_Win_Timer, *m_BatTimer, *m_MemoryTimer},
               {m_clockLines, m_usageLines, m_batteryLines, m_memoryLines}),
      m_gesture(QGuiApplication::styleHints()->startDragDistance()) {
    setObjectName(u"Form1"_s);
    setWindowTitle(u"Tickwell"_s);
    m_MovingWord1->setObjectName(u"MovingWord1"_s);
    m_MovingWord2->setObjectName(u"MovingWord2"_s);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setMouseTracking(true);
    m_MovingWord1->setMouseTracking(true);
    m_MovingWord2->setMouseTracking(true);
}

void Form1::Form_Load() {
    WindowGeometry geometry;
    LoadWindowGeometry(m_parts.store, m_parts.settings, geometry);
    m_geometry.Set(geometry);
    ApplyStyles();
    resize(m_geometry.Width(), height());
    move(m_geometry.Position());
    m_MovingWord1->SetText(u"Tickwell Ver.2"_s);
    m_MovingWord2->SetText(QString());
    m_setuptimer->Start();
}

void Form1::ApplyStyles() {
    const AppSettings& settings = m_parts.settings;
    ApplyStyle(*m_MovingWord1, settings.upper, settings.wipeKind);
    ApplyStyle(*m_MovingWord2, settings.lower, settings.wipeKind);
    m_MovingWord1->SetBackColor(settings.backColor);
    m_MovingWord2->SetBackColor(settings.backColor);
    m_MovingWord1->SetFrameInterval(FrameIntervalOf(settings.wipeSpeed));
    m_MovingWord2->SetFrameInterval(FrameIntervalOf(settings.wipeSpeed));
    m_MovingWord1->SetStepSize(StepSizeOf(settings.upper.fontSize, settings.wipeSpeed));
    m_MovingWord2->SetStepSize(StepSizeOf(settings.lower.fontSize, settings.wipeSpeed));
    Form_Resize();
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
        if (windowHandle() != nullptr && !windowHandle()->isExposed()) {
            hide();  // mapped while the window manager was itself starting up, and lost by it: once more
            show();
        }
        Form_Resize();
        m_setuptimer->SetInterval(kStartDelay);
        return;
    }
    m_setuptimer->Stop();
    ChangeFunction(m_parts.settings.function);
}

/// A look-up that fails is reported on its own: the time goes on.
void Form1::Dz_Timer1_Timer() {
    m_parts.handlers.Run([this] { m_clockLines.LookUp(); });
    m_clockLines.TimeTick();
}

void Form1::ChangeFunction(qint32 number) {
    m_switch.ChangeFunction(number);
}

void Form1::Menu_Click(const MenuItem& item) {
    switch (item.command) {
        case MenuCommand::ChangeFunction:
            ChangeFunction(item.function);
            break;
        case MenuCommand::Quit:
            close();
            break;
        case MenuCommand::ShowOperation:
        case MenuCommand::Separator:
            break;
    }
}

void Form1::ComeForward() {
    m_geometry.Settle();
    QList<QRect> screens;
    for (const QScreen* each : QGuiApplication::screens()) {
        screens.append(each->geometry());
    }
    const QRect primary = QGuiApplication::primaryScreen()->availableGeometry();
    move(BroughtBack(geometry(), screens, primary).topLeft());
    show();
    raise();
}

void Form1::SaveAll() {
    SaveSettings(m_parts.store, m_parts.settings, m_geometry.Geometry());
}

QList<QMenu*> Form1::VisibleMenus() const {
    return m_menu->isVisible() ? QList<QMenu*>{m_menu} : QList<QMenu*>();
}

void Form1::PopUpMenu(QPoint at) {
    m_menu->popup(at);
}

void Form1::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_geometry.Settle();
        m_gesture.Press(event->globalPosition().toPoint(), geometry());
    }
}

void Form1::mouseMoveEvent(QMouseEvent* event) {
    const bool atEdge = PointerGesture::IsAtEdge(mapFromGlobal(event->globalPosition()).toPoint(), size());
    setCursor(atEdge ? Qt::SizeHorCursor : Qt::ArrowCursor);
    if (const auto wanted = m_gesture.Move(event->globalPosition().toPoint())) {
        setGeometry(*wanted);
    }
}

/// Either button opens the menu with its release: by then it is known whether the left one was a drag.
void Form1::mouseReleaseEvent(QMouseEvent* event) {
    const bool click = event->button() == Qt::LeftButton && m_gesture.Release();
    if (click || event->button() == Qt::RightButton) {
        PopUpMenu(event->globalPosition().toPoint());
    }
}

void Form1::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard) {
        PopUpMenu(mapToGlobal(rect().bottomLeft()));
    }
}

void Form1::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_F10) {
        PopUpMenu(mapToGlobal(rect().bottomLeft()));
        return;
    }
    QWidget::keyPressEvent(event);
}

void Form1::moveEvent(QMoveEvent* /*event*/) {
    if (m_geometry.Moved(pos())) {
        QMetaObject::invokeMethod(
            this, [this] { move(m_geometry.Position()); }, Qt::QueuedConnection);
    }
}

void Form1::resizeEvent(QResizeEvent* event) {
    m_geometry.Resized(event->size().width());
    Form_Resize();
}

void Form1::closeEvent(QCloseEvent* event) {
    m_parts.handlers.Run([this] { SaveAll(); });
    event->accept();
    m_parts.closed();
}

}  // namespace tickwell
