// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QString>

namespace tickwell::lines {

/// The appearance of an outlined text.
struct OutlinedLook {
    QFont font;
    QColor text;
    QColor outline;
    int width = 1;  ///< of the outline, logical pixels, above 0
    qreal pixelRatio = 1;

    bool operator==(const OutlinedLook&) const = default;
};

/// A line of text with an outline and no background. The picture is cached: an unchanged text is only copied,
/// and for a new text only the part that differs from the previous one is outlined. For a clock that is one
/// digit a second.
class OutlinedText {
public:
    /// The picture of a text in an area of this size (logical pixels), `indent` pixels from its left edge and
    /// centred vertically; premultiplied. Valid until the next call.
    const QImage& Picture(const QString& text, QSize size, int indent, const OutlinedLook& look);

private:
    void DrawText(int indent);
    void Outline(const QRect& part);

    QString m_text;
    QSize m_size;
    OutlinedLook m_look;
    QImage m_fill;     // the text alone
    QImage m_picture;  // the text on its outline
};

}  // namespace tickwell::lines
