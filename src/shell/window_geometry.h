// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>

#include "core/settings.h"

namespace tickwell::shell {

/// Twips to logical pixels, 15 to 1, to the nearest.
int PixelsOf(qint32 twips);

/// The main window's place and width. It holds what was stored as long as the window is where that puts it;
/// only what the user moves or drags wider is turned into twips anew.
class GeometryKeeper {
public:
    const WindowGeometry& Geometry() const { return m_geometry; }
    void Set(const WindowGeometry& geometry) { m_geometry = geometry; }

    /// Where to put the window. No check against the screen; only numbers that the window system cannot hold
    /// are cut.
    QPoint Position() const;
    /// How wide, at least 1 pixel.
    int Width() const;

    /// The window was found at this place. While a window manager takes it in, places in between are reported
    /// that may even stay wrong: true then asks for the window to be put again where it belongs.
    bool Moved(QPoint position);
    void Resized(int width);

    /// From now on every place is meant: the user has hold of the window, or its manager has had time enough.
    void Settle() { m_placings = 0; }
    /// The window is about to be taken in anew.
    void Unsettle() { m_placings = kPlacings; }

private:
    static constexpr int kPlacings = 5;  // a manager that knows better must win in the end

    WindowGeometry m_geometry;
    int m_placings = kPlacings;  // how often it is still put back
};

/// How the two lines share the window.
struct LineLayout {
    QRect upper;
    QRect lower;
    int height = 0;  ///< of the window, pixels
};

/// Two lines as high as their texts and a small margin; spare height of a low window goes to both.
LineLayout LayoutOf(int width, int upperTextHeight, int lowerTextHeight);

/// `window` brought onto `screen` when it lies on none of `screens`, else as it is.
QRect BroughtBack(const QRect& window, const QList<QRect>& screens, const QRect& screen);

}  // namespace tickwell::shell
