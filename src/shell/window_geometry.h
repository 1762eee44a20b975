// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>

#include "core/settings.h"

namespace tickwell::shell {

/// Twips to logical pixels: divided by 15, halves to even.
int PixelsOf(qint32 twips);

/// The main window's position and width. Keeps the stored values while the window is where they place it;
/// only a position or width that the user changes is converted to twips.
class GeometryKeeper {
public:
    const WindowGeometry& Geometry() const { return m_geometry; }
    void Set(const WindowGeometry& geometry) { m_geometry = geometry; }

    /// The position for the window. Not limited to the screen, only to the range of the window system.
    QPoint Position() const;
    /// The width for the window, at least 1 pixel.
    int Width() const;

    /// The window was moved to this position. While the window manager places it, intermediate positions are
    /// reported, and even the last one can be wrong: returns true if the window should be moved back to
    /// Position().
    bool Moved(QPoint position);
    void Resized(int width);

    /// From now on every position is intended: the user drags the window, or the window manager has had time
    /// to place it.
    void Settle() { m_placings = 0; }
    /// The window manager is about to place the window again.
    void Unsettle() { m_placings = kPlacings; }

private:
    static constexpr int kPlacings = 5;  // a window manager that insists on another position wins in the end

    WindowGeometry m_geometry;
    int m_placings = kPlacings;  // how often the window is still moved back
};

/// How the two lines share the window.
struct LineLayout {
    QRect upper;
    QRect lower;
    int height = 0;  ///< of the window, pixels
};

/// Each line has the height of its text and a small margin. If that is below the minimum height or below
/// `windowHeight`, both lines share the rest.
LineLayout LayoutOf(int width, int upperTextHeight, int lowerTextHeight, int windowHeight = 0);

/// `window` moved to the corner of `screen` if it intersects none of `screens`; otherwise unchanged.
QRect BroughtBack(const QRect& window, const QList<QRect>& screens, const QRect& screen);

}  // namespace tickwell::shell
