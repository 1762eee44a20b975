// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/picked_style.h"

#include <QFontInfo>
#include <algorithm>

#include "lines/line_look.h"

namespace tickwell::settings_ui {

LineStyle OfferedStyle(const LineStyle& stored) {
    LineStyle offered = stored;
    offered.fontName = QFontInfo(lines::FontOf(stored)).family();
    offered.fontSize = std::clamp(stored.fontSize, kSmallestSize, kLargestSize);
    return offered;
}

LineStyle PickedStyle(const LineStyle& stored, const LineStyle& offered, const LineStyle& picked) {
    LineStyle style = picked;
    if (picked.fontName == offered.fontName) {
        style.fontName = stored.fontName;
    }
    if (picked.fontSize == offered.fontSize) {
        style.fontSize = stored.fontSize;
    }
    return style;
}

}  // namespace tickwell::settings_ui
