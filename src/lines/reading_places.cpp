// SPDX-License-Identifier: GPL-3.0-or-later
#include "lines/reading_places.h"

#include <QFontInfo>
#include <QGlyphRun>
#include <QTextLayout>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace tickwell::lines {

using namespace Qt::StringLiterals;

namespace {

constexpr int kDigits = 10;

// Screen pixels. Qt draws glyphs of larger fonts as paths, whose edges depend on the clipped part.
constexpr qreal kLargestCachedGlyph = 64;

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
std::vector<ReadingPlaces::Glyph> ReadingPlaces::LayOut(const QString& text, const QPaintDevice& device) {
    QTextLayout layout(text, m_font, const_cast<QPaintDevice*>(&device));
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(QWIDGETSIZE_MAX);
    layout.endLayout();
    m_width = line.naturalTextWidth();
    m_overhang = std::ceil(line.height() / 4);
    std::vector<Glyph> glyphs;
    const QList<QGlyphRun> runs = layout.glyphRuns();
    for (const QGlyphRun& run : runs) {
        const QList<quint32> indices = run.glyphIndexes();
        const QList<QPointF> places = run.positions();
        for (qsizetype i = 0; i < indices.size(); ++i) {
            glyphs.push_back({indices[i], places[i].x()});
        }
    }
    // The runs are sorted by their fonts, not by their places.
    std::sort(glyphs.begin(), glyphs.end(),
              [](const Glyph& left, const Glyph& right) { return left.place < right.place; });
    if (glyphs.size() != static_cast<std::size_t>(text.size())) {
        glyphs.clear();
    }
    return glyphs;
}

/// Whether the glyphs of digits, and the distances between them, are the same next to any other digit.
bool ReadingPlaces::AreDigitsIndependent(const QPaintDevice& device) {
    const QString pairs = AllPairs();
    const std::vector<Glyph> glyphs = LayOut(pairs, device);
    const std::vector<Glyph> zeros = LayOut(WithDigits(pairs, 0), device);
    const std::vector<Glyph> each = LayOut(u"0123456789"_s, device);
    if (glyphs.empty() || zeros.empty() || each.empty()) {
        return false;
    }
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        const int digit = pairs[static_cast<qsizetype>(i)].digitValue();
        if (glyphs[i].place != zeros[i].place ||
            glyphs[i].index != each.at(static_cast<std::size_t>(digit)).index) {
            return false;
        }
    }
    return true;
}

/// Lays out the template with each digit; false if anything but the digits themselves differs then.
bool ReadingPlaces::KeepsItsPlaces(const QString& text, const QPaintDevice& device) {
    for (int digit = kDigits - 1; digit > 0; --digit) {
        const std::vector<Glyph> glyphs = LayOut(WithDigits(text, digit), device);
        m_zeros = LayOut(WithDigits(text, 0), device);
        if (m_zeros.empty() || glyphs.size() != m_zeros.size()) {
            return false;
        }
        for (std::size_t i = 0; i < glyphs.size(); ++i) {
            const bool isDigit = IsDigit(text[static_cast<qsizetype>(i)]);
            if (isDigit ? glyphs[i].place != m_zeros[i].place : glyphs[i] != m_zeros[i]) {
                return false;
            }
        }
    }
    return true;
}

void ReadingPlaces::Prepare(const QString& text, const QFont& font, const QPaintDevice& device) {
    m_template = WithDigits(text, 0);
    m_font = font;
    m_pixelSize = QFontInfo(font).pixelSize();
    m_isUsable = std::all_of(text.begin(), text.end(), IsSimple) && AreDigitsIndependent(device) &&
                 KeepsItsPlaces(text, device);
}

std::optional<TextSpan> ReadingPlaces::ChangedSpan(const QString& before, const QString& after,
                                                   const QFont& font, const QPaintDevice& device) {
    const auto changed = ChangedDigits(before, after);
    if (!changed) {
        return std::nullopt;
    }
    if (font != m_font || !IsTemplateOf(m_template, after)) {
        Prepare(after, font, device);
    }
    if (!m_isUsable || m_pixelSize * device.devicePixelRatioF() >= kLargestCachedGlyph) {
        return std::nullopt;
    }
    const auto next = static_cast<std::size_t>(changed->second) + 1;
    const qreal end = next < m_zeros.size() ? m_zeros[next].place : m_width;
    return TextSpan{m_zeros[static_cast<std::size_t>(changed->first)].place - m_overhang, end + m_overhang};
}

}  // namespace tickwell::lines
