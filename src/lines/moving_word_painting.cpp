// SPDX-License-Identifier: GPL-3.0-or-later
// How a line is painted: on its background colour, or as an outlined text with nothing behind it.
#include <QPaintEvent>
#include <QPainter>

#include "lines/line_look.h"
#include "lines/moving_word.h"

namespace tickwell::lines {

void MovingWord::paintEvent(QPaintEvent* event) {
    const QRect open = event->rect();
    QPainter painter(this);
    if (m_outline) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(open, Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    } else {
        painter.fillRect(open, ColorFromNumber(m_backColor));
    }
    painter.setPen(ColorFromNumber(m_foreColor));
    if (!IsWiping()) {
        DrawPart(painter, open, m_text, m_scroll.Offset(), m_outlined);
        return;
    }
    DrawPart(painter, m_wipe.OldPart(size()) & open, m_oldText, 0, m_oldOutlined);
    DrawPart(painter, m_wipe.NewPart(size()) & open, m_text, 0, m_outlined);
}

/// The text as painted: unless the line scrolls, its beginning, with an ellipsis if that is chosen.
QString MovingWord::Displayed(const QString& text, int offset) const {
    const bool isElided = offset == 0 && m_longText != LongText::CutOff;
    return isElided ? fontMetrics().elidedText(text, Qt::ElideRight, width() - kLineIndent) : text;
}

/// `offset`: pixels by which the text is scrolled to the left.
void MovingWord::DrawPart(QPainter& painter, const QRect& part, const QString& text, int offset,
                          OutlinedText& outlined) const {
    if (part.isEmpty() || text.isEmpty()) {
        return;
    }
    painter.setClipRect(part);
    const QString shown = Displayed(text, offset);
    if (m_outline.value_or(0) <= 0) {
        painter.drawText(rect().adjusted(kLineIndent - offset, 0, 0, 0),
                         Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, shown);
        return;
    }
    // Wide enough for the complete scrolling text, so that one picture serves all of its steps.
    const int hidden = offset > 0 ? fontMetrics().horizontalAdvance(text) : 0;
    const OutlinedLook look{.font = font(),
                            .text = ColorFromNumber(m_foreColor),
                            .outline = ColorFromNumber(m_backColor),
                            .width = *m_outline,
                            .pixelRatio = devicePixelRatioF()};
    const QSize area(std::max(width(), kLineIndent + hidden + *m_outline), height());
    painter.drawImage(QPoint(-offset, 0), outlined.Picture(shown, area, kLineIndent, look));
}

}  // namespace tickwell::lines
