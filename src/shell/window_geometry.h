// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>

#include "core/settings.h"

namespace tickwell::shell {

/// Twips to logical pixels: divided by 15, halves to even.
int PixelsOf(qint32 twips);

/// The main window's position and width. Keeps the stored values in twips while the window has that geometry;
/// only a position or width that the user has changed is converted.
class GeometryKeeper {
public:
    const WindowGeometry& Geometry() const { return m_geometry; }
    void Set(const WindowGeometry& geometry) { m_geometry = geometry; }

    /// The position for the window, limited only by the coordinate range of the window system, not by the
    /// screen.
    QPoint Position() const;
    /// The width for the window, at least 1 pixel.
    int Width() const;

    /// The window was moved to this position. While the window manager places it, intermediate positions are
    /// reported, and even the last one can be wrong: returns true if the window should be moved back to
    /// Position().
    bool Moved(QPoint position);
    void Resized(int width);

    /// From now on every position counts as intentional: the user drags the window, or the window manager has
    /// had time to place it.
    void Settle() { m_placings = 0; }
    /// The window manager is about to place the window again.
    void Unsettle() { m_placings = kPlacings; }

private:
    static constexpr int kPlacings = 5;  // limited, so that an insistent window manager wins eventually

    WindowGeometry m_geometry;
    int m_placings = kPlacings;  // how many times the window may still be moved back
};

/// How the two lines share the window.
struct LineLayout {
    QRect upper;
    QRect lower;
    int height = 0;  ///< of the window, pixels
};

/// The height of each line is that of its text plus a small margin. If the total is below the minimum height
/// or below `windowHeight`, the lines share the surplus.
LineLayout LayoutOf(int width, int upperTextHeight, int lowerTextHeight, int windowHeight = 0);

/// `window` moved to the top left corner of `screen` if it intersects none of `screens`; otherwise unchanged.
QRect BroughtBack(const QRect& window, const QList<QRect>& screens, const QRect& screen);

}  // namespace tickwell::shell
