// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "core/handlers.h"
#include "core/ports/timer.h"
#include "core/settings.h"
#include "shell/pointer_gesture.h"
#include "shell/screen_keeper.h"
#include "shell/window_geometry.h"

namespace tickwell::shell {

/// What a MovableWindow works with; all outlive it.
struct MovableWindowParts {
    Handlers& handlers;
    TimerSource& timers;
    const FaceSettings& face;
    bool isPlacedByCompositor;  ///< the compositor of a Wayland session places the window and drags it
};

/// A frameless window that is dragged by its area, and by its right edge to another width. It keeps its
/// stored position while a window manager places it, and returns to the connected screens if the user wants
/// that.
class MovableWindow : public QWidget {
protected:
    MovableWindow(Qt::WindowFlags flags, const MovableWindowParts& parts);

    /// A button was released without a drag, at this position on the screen.
    virtual void Clicked(QPoint pointer) = 0;

    /// The window may be on another screen: a button was released, or the screens have changed.
    virtual void PlaceChanged() = 0;

    /// Whether the left button is down on the window.
    bool IsPressed() const { return m_gesture.IsPressed(); }

    /// Brings the window to where it belongs on the connected screens, if the user wants that.
    void ReturnToScreen();

    GeometryKeeper& Keeper() { return m_geometry; }
    const GeometryKeeper& Keeper() const { return m_geometry; }
    ScreenKeeper& Screens() { return m_screens; }

    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;

private:
    bool HandsDragOver();

    MovableWindowParts m_moving;
    GeometryKeeper m_geometry;
    ScreenKeeper m_screens;
    PointerGesture m_gesture;
};

}  // namespace tickwell::shell
