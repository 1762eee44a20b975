// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QPaintDevice>
#include <QString>
#include <optional>
#include <vector>

namespace tickwell::lines {

/// A part of a painted text, in pixels from its start; glyphs may extend to the left of that.
struct TextSpan {
    qreal begin;
    qreal end;
};

/// Where the characters of a reading are, of which only digits change. They are laid out only once: that
/// takes longer than everything else in a frame of a running stopwatch. Only for fonts with digits of equal
/// width that do not depend on their neighbours, and for texts in which each character has a glyph to the
/// right of the one before.
class ReadingPlaces {
public:
    /// The part in which `after` looks different from `before`, if only digits have changed; nullopt if
    /// something else may look different as well. `font` is used on `device`.
    std::optional<TextSpan> ChangedSpan(const QString& before, const QString& after, const QFont& font,
                                        const QPaintDevice& device);

private:
    struct Glyph {
        quint32 index;
        qreal place;

        bool operator==(const Glyph&) const = default;
    };

    void Prepare(const QString& text, const QFont& font, const QPaintDevice& device);
    bool KeepsItsPlaces(const QString& text, const QPaintDevice& device);
    bool AreDigitsIndependent(const QPaintDevice& device);
    std::vector<Glyph> LayOut(const QString& text, const QPaintDevice& device);

    QString m_template;  // a reading with all digits replaced by zeros
    QFont m_font;
    int m_pixelSize = 0;  // of the font, in pixels of the program
    bool m_isUsable = false;
    std::vector<Glyph> m_zeros;  // of the template
    qreal m_width = 0;           // of the text that was laid out last
    qreal m_overhang = 0;        // how far glyphs, especially slanted ones, may extend beyond their place
};

}  // namespace tickwell::lines
