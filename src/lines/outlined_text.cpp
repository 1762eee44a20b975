// SPDX-License-Identifier: GPL-3.0-or-later
#include "lines/outlined_text.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace tickwell::lines {

namespace {

const QRgb* PixelsOf(const QImage& image, int row) {
    return reinterpret_cast<const QRgb*>(image.constScanLine(row));
}

/// The smallest rectangle outside of which two pictures of the same size are equal.
QRect Difference(const QImage& one, const QImage& other) {
    QRect different;
    for (int y = 0; y < one.height(); ++y) {
        const QRgb* const begin = PixelsOf(one, y);
        const QRgb* const end = begin + one.width();
        const auto first = std::mismatch(begin, end, PixelsOf(other, y));
        if (first.first != end) {
            const auto left = static_cast<int>(first.first - begin);
            int right = one.width() - 1;
            while (begin[right] == PixelsOf(other, y)[right]) {
                --right;
            }
            different |= QRect(QPoint(left, y), QPoint(right, y));
        }
    }
    return different;
}

/// The coverage (alpha) of part of a picture, with a margin filled with zeros or with the surrounding pixels.
struct Coverage {
    QRect area;
    std::vector<uchar> values;

    Coverage(const QImage& image, const QRect& wanted)
        : area(wanted),
          values(static_cast<std::size_t>(wanted.width()) * static_cast<std::size_t>(wanted.height())) {
        const QRect inside = wanted & image.rect();
        for (int y = inside.top(); y <= inside.bottom(); ++y) {
            const QRgb* const row = PixelsOf(image, y);
            std::transform(row + inside.left(), row + inside.right() + 1,
                           Row(y) + (inside.left() - wanted.left()),
                           [](QRgb pixel) { return static_cast<uchar>(qAlpha(pixel)); });
        }
    }

    uchar* Row(int y) { return values.data() + static_cast<std::ptrdiff_t>(y - area.top()) * area.width(); }
};

/// Computes one row of the coverage dilated by a disc: each value is the maximum within `radius` pixels.
void WidenRow(Coverage& coverage, int y, int radius, std::vector<uchar>& row) {
    std::fill(row.begin(), row.end(), uchar{0});
    const double reach = radius + 0.5;  // radius of a disc of whole pixels
    for (int dy = -radius; dy <= radius; ++dy) {
        const int half = static_cast<int>(std::sqrt(reach * reach - dy * dy));
        for (int dx = -half; dx <= half; ++dx) {
            const uchar* const from = coverage.Row(y + dy) + radius + dx;
            std::transform(row.begin(), row.end(), from, row.begin(),
                           [](uchar one, uchar other) { return std::max(one, other); });
        }
    }
}

/// Composites `top` over an opaque `color` with this coverage; both the result and `top` are premultiplied.
QRgb Over(QRgb top, const QColor& color, uchar coverage) {
    const int below = coverage * (255 - qAlpha(top)) / 255;
    const auto mixed = [below](int channel, int of) { return channel + of * below / 255; };
    return qRgba(mixed(qRed(top), color.red()), mixed(qGreen(top), color.green()),
                 mixed(qBlue(top), color.blue()), qAlpha(top) + below);
}

}  // namespace

const QImage& OutlinedText::Picture(const QString& text, QSize size, int indent, const OutlinedLook& look) {
    const bool isSame = size == m_size && look == m_look && !m_picture.isNull();
    if (isSame && text == m_text) {
        return m_picture;
    }
    m_text = text;
    m_size = size;
    m_look = look;
    const QImage before = isSame ? m_fill : QImage();
    const QSize pixels(static_cast<int>(std::ceil(size.width() * look.pixelRatio)),
                       static_cast<int>(std::ceil(size.height() * look.pixelRatio)));
    m_fill = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
    DrawText(indent);
    if (before.isNull()) {
        m_picture = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
    }
    Outline(before.isNull() ? m_fill.rect() : Difference(before, m_fill));
    m_picture.setDevicePixelRatio(look.pixelRatio);
    return m_picture;
}

void OutlinedText::DrawText(int indent) {
    m_fill.fill(Qt::transparent);
    m_fill.setDevicePixelRatio(m_look.pixelRatio);
    QPainter painter(&m_fill);
    painter.setFont(m_look.font);
    painter.setPen(m_look.text);
    painter.drawText(QRect(QPoint(), m_size).adjusted(indent, 0, 0, 0),
                     Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, m_text);
}

/// Composites the pixels that depend on this part of the text.
void OutlinedText::Outline(const QRect& part) {
    if (part.isEmpty()) {
        return;
    }
    const int radius = std::max(1, static_cast<int>(std::lround(m_look.width * m_look.pixelRatio)));
    const QRect changed = part.adjusted(-radius, -radius, radius, radius) & m_fill.rect();
    Coverage coverage(m_fill, changed.adjusted(-radius, -radius, radius, radius));
    std::vector<uchar> row(static_cast<std::size_t>(changed.width()));
    for (int y = changed.top(); y <= changed.bottom(); ++y) {
        WidenRow(coverage, y, radius, row);
        const QRgb* const top = PixelsOf(m_fill, y) + changed.left();
        auto* const to = reinterpret_cast<QRgb*>(m_picture.scanLine(y)) + changed.left();
        std::transform(row.begin(), row.end(), top, to,
                       [this](uchar covered, QRgb pixel) { return Over(pixel, m_look.outline, covered); });
    }
}

}  // namespace tickwell::lines
