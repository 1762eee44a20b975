// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFontMetricsF>
#include <QString>
#include <optional>

namespace tickwell::lines {

/// A part of a painted text, in pixels from its start; glyphs may extend to the left of that.
struct TextSpan {
    qreal begin;
    qreal end;

    bool operator==(const TextSpan&) const = default;
};

/// The part of a line that looks different when it shows `after` instead of `before`, for readings of which
/// only digits change. `metrics`: those of the font that both are drawn with. nullopt if more has changed, or
/// if the glyphs of these characters may depend on others further away; then all of the line must be painted.
std::optional<TextSpan> ChangedSpan(const QString& before, const QString& after,
                                    const QFontMetricsF& metrics);

}  // namespace tickwell::lines
