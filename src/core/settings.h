// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "core/further_settings.h"

namespace tickwell {

/// The look of one of the two lines. The settings call the upper line A and the lower line B.
struct LineStyle {
    QString fontName;     ///< as chosen; kept and written back even if the font is not installed
    qint16 fontSize = 0;  ///< points
    qint32 color = 0;     ///< red + green * 256 + blue * 65536
    bool bold = false;
    bool italic = false;
    bool strikethrough = false;
    bool underline = false;

    bool operator==(const LineStyle&) const = default;
};

/// All settings, loaded once at start-up and stored when the main window closes, and with savesImmediately
/// also by OK and 適用. Only the types of values are checked; the code that uses a number defines what
/// unknown values mean.
struct AppSettings {
    qint32 chimeMode = 0;
    QString chimeSound;
    qint32 function = 0;  ///< the display function, kept for the next start
    qint32 wipeSpeed = 0;
    qint32 wipeKind = 0;
    qint32 backColor = 0;  ///< red + green * 256 + blue * 65536
    LineStyle upper;
    LineStyle lower;
    qint32 language = 0;
    qint32 yearStyle = 0;
    qint32 displayMode = 0;
    qint32 hourStyle = 0;
    qint32 rollInterval = 0;  ///< read when the window loads, otherwise unused, never written

    bool operator==(const AppSettings&) const = default;
};

/// Position and width of the main window in twips, 15 per logical pixel. The height follows from the fonts.
/// Kept in twips so that a stored 2506 stays 2506 although the screen shows 167 pixels.
struct WindowGeometry {
    qint32 width = 0;
    qint32 top = 0;
    qint32 left = 0;

    bool operator==(const WindowGeometry&) const = default;
};

}  // namespace tickwell
