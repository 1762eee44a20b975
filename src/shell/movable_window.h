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

/// What a MovableWindow needs; all outlive it.
struct MovableWindowParts {
    Handlers& handlers;
    TimerSource& timers;
    const FaceSettings& face;
    bool isPlacedByCompositor;  ///< a Wayland compositor decides its position and performs its drags
};

/// A frameless window that can be dragged anywhere on its area, and widened at its right edge. It keeps its
/// stored position while a window manager places it, and returns to the connected screens if the settings
/// select that.
class MovableWindow : public QWidget {
protected:
    MovableWindow(Qt::WindowFlags flags, const MovableWindowParts& parts);

    /// A button was released without a drag, at this screen position.
    virtual void Clicked(QPoint pointer) = 0;

    /// The window may be on another screen: a button was released, or the screens have changed.
    virtual void PlaceChanged() = 0;

    /// Whether the left button is down on the window.
    bool IsPressed() const { return m_gesture.IsPressed(); }

    /// Moves the window onto the connected screens if the settings select that.
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
