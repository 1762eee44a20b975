// SPDX-License-Identifier: GPL-3.0-or-later
#include "lines/wipe.h"

#include <algorithm>

namespace tickwell::lines {

int Wipe::Length(QSize line) const {
    switch (kind) {
        case kWipeLeftToRight:
        case kWipeRightToLeft:
            return line.width();
        case kWipeTopToBottom:
        case kWipeBottomToTop:
            return line.height();
        default:
            return 0;
    }
}

bool Wipe::Advance(int step, QSize line) {
    const int length = Length(line);
    position = std::min(position, length);
    position = std::max(1, step) < length - position ? position + std::max(1, step) : length;
    return position < length;
}

QRect Wipe::NewPart(QSize line) const {
    const int w = line.width();
    const int h = line.height();
    const int p = std::min(position, Length(line));
    switch (kind) {
        case kWipeLeftToRight:
            return {0, 0, p, h};
        case kWipeRightToLeft:
            return {w - p, 0, p, h};
        case kWipeTopToBottom:
            return {0, 0, w, p};
        case kWipeBottomToTop:
            return {0, h - p, w, p};
        default:
            return {QPoint(0, 0), line};
    }
}

QRect Wipe::OldPart(QSize line) const {
    const int w = line.width();
    const int h = line.height();
    const int p = std::min(position, Length(line));
    switch (kind) {
        case kWipeLeftToRight:
            return {p, 0, w - p, h};
        case kWipeRightToLeft:
            return {0, 0, w - p, h};
        case kWipeTopToBottom:
            return {0, p, w, h - p};
        case kWipeBottomToTop:
            return {0, 0, w, h - p};
        default:
            return {};
    }
}

}  // namespace tickwell::lines
