// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVBoxLayout>

namespace tickwell::controls {

/// The height that a window without its frame can have on its screen, in logical pixels.
int RoomFor(const QWidget& window);

/// If the window of the layout `rows` is higher than `room`, moves its rows into a scroll area, all but the
/// last `below` ones, which stay in sight. Otherwise changes nothing. To be called before the window is
/// shown. The tab order stays.
void ScrollIfTooHigh(QVBoxLayout& rows, int below, int room);

}  // namespace tickwell::controls
