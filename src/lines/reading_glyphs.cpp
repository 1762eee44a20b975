// SPDX-License-Identifier: GPL-3.0-or-later
#include "lines/reading_glyphs.h"

#include <QGlyphRun>
#include <QTextLayout>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace tickwell::lines {

using namespace Qt::StringLiterals;

namespace {

bool IsDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

/// Whether a character is drawn to the right of the one before it, whatever the two are: Latin, kana,
/// ideographs and full-width forms.
bool IsSimple(QChar character) {
    const char16_t code = character.unicode();
    return code < 0x0300 || (code >= 0x2E80 && code < 0xD800) || (code >= 0xFF00 && code < 0xFFF0);
}

bool IsTemplateOf(const QString& pattern, const QString& text) {
    return std::equal(pattern.begin(), pattern.end(), text.begin(), text.end(), [](QChar each, QChar shown) {
        return each == shown || (each == u'0' && IsDigit(shown));
    });
}

QString WithDigits(QString text, int digit) {
    std::replace_if(text.begin(), text.end(), IsDigit, QChar(u'0' + digit));
    return text;
}

/// Each digit once after each digit: "00102…0911213…99".
QString AllPairs() {
    QString pairs;
    for (char16_t first = u'0'; first <= u'9'; ++first) {
        pairs += first;
        for (char16_t second = first + 1; second <= u'9'; ++second) {
            pairs += first;
            pairs += second;
        }
    }
    return pairs + u'0';
}

/// The indices of the first and the last digit that differ; nullopt if nothing or anything else differs.
std::optional<std::pair<qsizetype, qsizetype>> ChangedDigits(const QString& before, const QString& after) {
    std::optional<std::pair<qsizetype, qsizetype>> changed;
    if (before.size() != after.size()) {
        return changed;
    }
    for (qsizetype i = 0; i < after.size(); ++i) {
        if (before[i] == after[i]) {
            continue;
        }
        if (!IsDigit(before[i]) || !IsDigit(after[i])) {
            return std::nullopt;
        }
        changed = {changed ? changed->first : i, i};
    }
    return changed;
}

}  // namespace

/// The glyphs in the order of the characters; empty if there is not one for each.
std::vector<ReadingGlyphs::Glyph> ReadingGlyphs::LayOut(const QString& text, const QPaintDevice& device) {
    QTextLayout layout(text, m_font, const_cast<QPaintDevice*>(&device));
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(QWIDGETSIZE_MAX);
    layout.endLayout();
    m_size = {line.naturalTextWidth(), line.height()};
    std::vector<Glyph> glyphs;
    const QList<QGlyphRun> runs = layout.glyphRuns();
    for (const QGlyphRun& run : runs) {
        if (!m_fonts.contains(run.rawFont())) {
            m_fonts.append(run.rawFont());
        }
        const auto font = static_cast<int>(m_fonts.indexOf(run.rawFont()));
        const QList<quint32> indices = run.glyphIndexes();
        const QList<QPointF> places = run.positions();
        for (qsizetype i = 0; i < indices.size(); ++i) {
            glyphs.push_back({font, indices[i], places[i]});
        }
    }
    // The runs are sorted by their fonts, not by their positions.
    std::sort(glyphs.begin(), glyphs.end(),
              [](const Glyph& left, const Glyph& right) { return left.place.x() < right.place.x(); });
    if (glyphs.size() != static_cast<std::size_t>(text.size())) {
        glyphs.clear();
    }
    return glyphs;
}

/// Whether the glyphs of digits, and the distances between them, are the same next to any other digit.
bool ReadingGlyphs::AreDigitsIndependent(const QPaintDevice& device) {
    const QString pairs = AllPairs();
    const std::vector<Glyph> glyphs = LayOut(pairs, device);
    const std::vector<Glyph> zeros = LayOut(WithDigits(pairs, 0), device);
    const std::vector<Glyph> each = LayOut(u"0123456789"_s, device);
    if (glyphs.empty() || zeros.empty() || each.empty()) {
        return false;
    }
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        const Glyph& alone = each.at(static_cast<std::size_t>(pairs[static_cast<qsizetype>(i)].digitValue()));
        if (glyphs[i].place != zeros[i].place || glyphs[i].index != alone.index ||
            glyphs[i].font != alone.font) {
            return false;
        }
    }
    return true;
}

/// Lays out the template with each digit; false if anything but the digits themselves differs then.
bool ReadingGlyphs::LayOutAll(const QString& text, const QPaintDevice& device) {
    for (int digit = 0; digit < kDigits; ++digit) {
        m_glyphs.at(static_cast<std::size_t>(digit)) = LayOut(WithDigits(text, digit), device);
    }
    const std::vector<Glyph>& zeros = m_glyphs.front();
    return !zeros.empty() &&
           std::all_of(m_glyphs.begin(), m_glyphs.end(), [&](const std::vector<Glyph>& glyphs) {
               if (glyphs.size() != zeros.size()) {
                   return false;
               }
               for (std::size_t i = 0; i < zeros.size(); ++i) {
                   const bool isDigit = IsDigit(text[static_cast<qsizetype>(i)]);
                   if (isDigit ? glyphs[i].place != zeros[i].place : glyphs[i] != zeros[i]) {
                       return false;
                   }
               }
               return true;
           });
}

void ReadingGlyphs::Prepare(const QString& text, const QFont& font, const QPaintDevice& device) {
    m_template = WithDigits(text, 0);
    m_font = font;
    m_fonts.clear();
    m_isUsable = std::all_of(text.begin(), text.end(), IsSimple) && AreDigitsIndependent(device) &&
                 LayOutAll(text, device);
}

/// How far glyphs, especially slanted ones, may extend beyond their place, in pixels.
qreal ReadingGlyphs::Overhang() const {
    return std::ceil(m_size.height() / 4);
}

std::optional<TextSpan> ReadingGlyphs::ChangedSpan(const QString& before, const QString& after,
                                                   const QFont& font, const QPaintDevice& device) {
    const auto changed = ChangedDigits(before, after);
    if (!changed) {
        return std::nullopt;
    }
    if (font != m_font || !IsTemplateOf(m_template, after)) {
        Prepare(after, font, device);
    }
    if (!m_isUsable) {
        return std::nullopt;
    }
    const std::vector<Glyph>& places = m_glyphs.front();
    const auto next = static_cast<std::size_t>(changed->second) + 1;
    const qreal end = next < places.size() ? places[next].place.x() : m_size.width();
    return TextSpan{places[static_cast<std::size_t>(changed->first)].place.x() - Overhang(),
                    end + Overhang()};
}

bool ReadingGlyphs::Draw(QPainter& painter, const QRect& part, const QRect& line, const QString& text,
                         const QFont& font) const {
    if (!m_isUsable || font != m_font || !IsTemplateOf(m_template, text)) {
        return false;
    }
    const QPointF origin(line.x(), line.y() + (line.height() - m_size.height()) / 2);
    const qreal reach = Overhang() + m_size.height();  // no glyph is wider than that
    for (int number = 0; number < m_fonts.size(); ++number) {
        QList<quint32> indices;
        QList<QPointF> places;
        for (qsizetype i = 0; i < text.size(); ++i) {
            const auto digits = static_cast<std::size_t>(IsDigit(text[i]) ? text[i].digitValue() : 0);
            const Glyph& glyph = m_glyphs.at(digits)[static_cast<std::size_t>(i)];
            const qreal left = origin.x() + glyph.place.x();
            if (glyph.font == number && left + reach >= part.left() && left - reach <= part.right()) {
                indices.append(glyph.index);
                places.append(glyph.place);
            }
        }
        if (!indices.isEmpty()) {
            QGlyphRun run;
            run.setRawFont(m_fonts[number]);
            run.setGlyphIndexes(indices);
            run.setPositions(places);
            painter.drawGlyphRun(origin, run);
        }
    }
    return true;
}

}  // namespace tickwell::lines
