// SPDX-License-Identifier: GPL-3.0-or-later
#include "lines/changed_part.h"

#include <algorithm>
#include <cmath>

namespace tickwell::lines {

namespace {

bool IsDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

/// Whether a character is drawn to the right of the one before it, without regard to the one after the next:
/// Latin, kana, ideographs and full-width forms.
bool IsSimple(QChar character) {
    const char16_t code = character.unicode();
    return code < 0x0300 || (code >= 0x2E80 && code < 0xD800) || (code >= 0xFF00 && code < 0xFFF0);
}

}  // namespace

std::optional<TextSpan> ChangedSpan(const QString& before, const QString& after,
                                    const QFontMetricsF& metrics) {
    const auto start = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    if (before.size() != after.size() || start.first == before.end() ||
        !std::all_of(after.begin(), after.end(), IsSimple)) {
        return std::nullopt;
    }
    const qsizetype first = start.first - before.begin();
    qsizetype last = first;
    for (qsizetype i = first; i < after.size(); ++i) {
        if (before[i] != after[i]) {
            if (!IsDigit(before[i]) || !IsDigit(after[i])) {
                return std::nullopt;
            }
            last = i;
        }
    }
    // With one neighbour on each side: the distance between two glyphs may depend on both (kerning).
    const qsizetype end = std::min(last + 2, after.size());
    const qreal right = metrics.horizontalAdvance(after.left(end));
    if (metrics.horizontalAdvance(before.left(end)) != right) {
        return std::nullopt;  // everything that follows has moved
    }
    // The glyphs of slanted fonts extend beyond their advances.
    const qreal overhang = std::ceil(metrics.height() / 4);
    const qreal left = metrics.horizontalAdvance(after.left(std::max<qsizetype>(first - 1, 0)));
    return TextSpan{left - overhang, right + overhang};
}

}  // namespace tickwell::lines
