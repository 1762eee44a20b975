// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/help_browser.h"

#include <QAbstractTextDocumentLayout>
#include <QFontInfo>
#include <QImage>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextDocument>
#include <QWheelEvent>
#include <algorithm>

namespace tickwell::help {

using namespace Qt::StringLiterals;

namespace {

bool IsDark(const QPalette& palette) {
    constexpr int kMiddle = 128;
    return palette.color(QPalette::Base).lightness() < kMiddle;
}

/// Colours follow the desktop's, except for links: dark desktops often keep the link blue of light ones.
QString StyleFor(const QPalette& palette) {
    const QString link = IsDark(palette) ? u"#8ab4ff"_s : u"#0b57c2"_s;
    return u"a { color: " + link +
           u"; text-decoration: none }"
           u"p, li { line-height: 135% }"
           u"table { border-collapse: collapse; border-style: solid; border-color: " +
           palette.color(QPalette::Mid).name() +
           u" }"
           u"th { background-color: " +
           palette.color(QPalette::AlternateBase).name() + u" }";
}

}  // namespace

HelpBrowser::HelpBrowser(QWidget* parent)
    : QTextBrowser(parent), m_plainSize(QFontInfo(font()).pointSizeF()) {
    setOpenLinks(false);
    document()->setDocumentMargin(fontMetrics().averageCharWidth() * 2);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { Scrolled(); });
    // Tables round their columns up and may be a pixel too wide, which does not justify a scroll bar.
    connect(horizontalScrollBar(), &QScrollBar::rangeChanged, this, [this](int /*least*/, int most) {
        setHorizontalScrollBarPolicy(most > 1 ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    });
}

void HelpBrowser::SetHtml(const QString& html) {
    m_html = html;
    Render();
}

void HelpBrowser::Render() {
    const QScopedValueRollback placing(m_placing, true);
    document()->setDefaultStyleSheet(StyleFor(palette()));
    setHtml(m_html);
    Place();
}

void HelpBrowser::SetPercent(int percent) {
    const QScopedValueRollback placing(m_placing, true);
    QFont scaled = font();
    scaled.setPointSizeF(m_plainSize * percent / 100);
    setFont(scaled);
    Place();
}

void HelpBrowser::GoTo(int position) {
    const QScopedValueRollback placing(m_placing, true);
    m_position = position;
    QTextCursor cursor(document());
    cursor.setPosition(position);
    setTextCursor(cursor);  // the arrow keys continue from here, and screen readers follow
    Place();
    Q_EMIT PositionChanged();
}

void HelpBrowser::Place() {
    document()->documentLayout()->documentSize();  // forces the layout: without it the heights are not known
    QTextCursor cursor(document());
    const int last = document()->characterCount() - 1;  // empty while the text is being replaced
    cursor.setPosition(std::min(m_position, last));
    const int top = verticalScrollBar()->value() + cursorRect(cursor).top();
    verticalScrollBar()->setValue(top - fontMetrics().height() / 2);
}

void HelpBrowser::Scrolled() {
    if (m_placing) {
        return;
    }
    m_position = cursorForPosition(QPoint(0, fontMetrics().height())).position();
    Q_EMIT PositionChanged();
}

QTextEdit::ExtraSelection HelpBrowser::Marked(const TextSpan& span, const QBrush& back,
                                              const QBrush& text) const {
    ExtraSelection selection;
    selection.cursor = QTextCursor(document());
    selection.cursor.setPosition(span.position);
    selection.cursor.setPosition(span.position + span.length, QTextCursor::KeepAnchor);
    selection.format.setBackground(back);
    selection.format.setForeground(text);
    return selection;
}

void HelpBrowser::ShowHits(const QList<TextSpan>& hits, const TextSpan& current) {
    const QBrush back(IsDark(palette()) ? QColor(0x6b, 0x58, 0x10) : QColor(0xff, 0xec, 0x99));
    QList<ExtraSelection> marks;
    for (const TextSpan& hit : hits) {
        marks.append(Marked(hit, back, palette().brush(QPalette::Text)));
    }
    marks.append(Marked(current, palette().brush(QPalette::Active, QPalette::Highlight),
                        palette().brush(QPalette::Active, QPalette::HighlightedText)));
    setExtraSelections(marks);
    Reveal(marks.constLast().cursor);
}

void HelpBrowser::HideHits() {
    setExtraSelections({});
    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    setTextCursor(cursor);
}

/// Scrolls a hit that is close to an edge to a third of the height, so that its context is visible.
void HelpBrowser::Reveal(const QTextCursor& cursor) {
    const QScopedValueRollback placing(m_placing, true);
    m_position = cursor.selectionStart();
    setTextCursor(cursor);
    const QRect place = cursorRect(cursor);
    const int line = place.height();
    if (place.top() < line || place.bottom() > viewport()->height() - 2 * line) {
        verticalScrollBar()->setValue(verticalScrollBar()->value() + place.top() - viewport()->height() / 3);
    }
    Q_EMIT PositionChanged();
}

/// Returns a transparent pixel for every resource. Without a valid result the document would open the file
/// itself, and for a picture a null image counts as no result. It caches results by name only, so the type
/// does not matter.
QVariant HelpBrowser::loadResource(int /*type*/, const QUrl& /*name*/) {
    QImage nothing(1, 1, QImage::Format_ARGB32);
    nothing.fill(Qt::transparent);
    return nothing;
}

void HelpBrowser::resizeEvent(QResizeEvent* event) {
    const QScopedValueRollback placing(m_placing, true);
    QTextBrowser::resizeEvent(event);
    Place();
}

void HelpBrowser::wheelEvent(QWheelEvent* event) {
    if (event->modifiers() != Qt::ControlModifier) {
        QTextBrowser::wheelEvent(event);
        return;
    }
    if (event->angleDelta().y() != 0) {
        Q_EMIT SizeTurned(event->angleDelta().y() > 0 ? 1 : -1);
    }
    event->accept();
}

void HelpBrowser::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !m_html.isEmpty()) {
        Render();
    }
}

/// Without a selection Qt would begin at the start of the page, not at the reading position.
bool HelpBrowser::focusNextPrevChild(bool next) {
    QTextCursor before = textCursor();
    const bool hadLink = before.hasSelection();
    if (!hadLink) {
        before.setPosition(m_position);
        before.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
        setTextCursor(before);
    }
    const bool hasMoved = QTextBrowser::focusNextPrevChild(next);
    const QTextCursor link = textCursor();
    if (hasFocus() && link != before) {
        Q_EMIT LinkReached(link.selectedText().simplified());
    } else if (!hadLink) {
        before.clearSelection();
        setTextCursor(before);
    }
    return hasMoved;
}

}  // namespace tickwell::help
