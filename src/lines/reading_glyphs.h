// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QPainter>
#include <QRawFont>
#include <QString>
#include <array>
#include <optional>
#include <vector>

namespace tickwell::lines {

/// A part of a painted text, in pixels from its start; glyphs may extend to the left of that.
struct TextSpan {
    qreal begin;
    qreal end;
};

/// Draws readings of which only digits change, to the same pixels as QPainter::drawText, without laying them
/// out each time: that would take most of the time of a running stopwatch. Only for fonts with digits of
/// equal width that do not depend on their neighbours, and for texts in which each character has a glyph to
/// the right of the one before.
class ReadingGlyphs {
public:
    /// The part in which `after` looks different from `before`, if only digits have changed and `after` can
    /// be drawn here; otherwise nullopt. `font` is used on `device`.
    std::optional<TextSpan> ChangedSpan(const QString& before, const QString& after, const QFont& font,
                                        const QPaintDevice& device);

    /// Draws the glyphs of `text` that may reach into `part`, left-aligned and vertically centred in `line`.
    /// False, with nothing drawn, if the text and the font are not those of the last ChangedSpan, except for
    /// digits.
    bool Draw(QPainter& painter, const QRect& part, const QRect& line, const QString& text,
              const QFont& font) const;

private:
    static constexpr int kDigits = 10;

    struct Glyph {
        int font;  ///< index in m_fonts
        quint32 index;
        QPointF place;  ///< of its origin, from the top left corner of the laid out line

        bool operator==(const Glyph&) const = default;
    };

    void Prepare(const QString& text, const QFont& font, const QPaintDevice& device);
    bool LayOutAll(const QString& text, const QPaintDevice& device);
    bool AreDigitsIndependent(const QPaintDevice& device);
    std::vector<Glyph> LayOut(const QString& text, const QPaintDevice& device);
    qreal Overhang() const;

    QString m_template;  // a reading with all digits replaced by zeros
    QFont m_font;
    bool m_isUsable = false;
    QList<QRawFont> m_fonts;
    std::array<std::vector<Glyph>, kDigits>
        m_glyphs;   // of the template with each digit in place of the zeros
    QSizeF m_size;  // of the laid out line
};

}  // namespace tickwell::lines
