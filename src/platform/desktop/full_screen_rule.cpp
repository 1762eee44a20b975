// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/full_screen_rule.h"

#include <algorithm>

namespace tickwell::platform {

bool IsUnderFullScreen(const QList<DesktopWindow>& stack, quint32 active, const QRect& place) {
    const auto isThere = [&place](const DesktopWindow& each) {
        return each.isShown && !each.isOurs && each.area.intersects(place);
    };
    const auto topmost = std::find_if(stack.rbegin(), stack.rend(), isThere);
    return std::any_of(topmost, stack.rend(), [&](const DesktopWindow& each) {
        return each.isFullScreen && isThere(each) && (each.id == topmost->id || each.id == active);
    });
}

}  // namespace tickwell::platform
