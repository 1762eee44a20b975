// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QString>

namespace tickwell::lines {

/// What an outlined text looks like.
struct OutlinedLook {
    QFont font;
    QColor text;
    QColor outline;
    int width = 1;  ///< of the outline, logical pixels, above 0
    qreal pixelRatio = 1;

    bool operator==(const OutlinedLook&) const = default;
};

/// A line of text with an outline and nothing behind it. The picture is kept, so painting an unchanged text
/// copies it, and a new text is outlined only where it differs from the previous one: of a clock that is a
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
    QImage m_picture;  // on its outline
};

}  // namespace tickwell::lines
