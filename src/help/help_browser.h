// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTextBrowser>

#include "help/folded_text.h"

namespace tickwell::help {

/// The text of the help. Keeps the reading position when the window or the text changes its size. Loads
/// nothing but the text that it is given: no pictures, style sheets or other pages.
class HelpBrowser : public QTextBrowser {
    Q_OBJECT

public:
    explicit HelpBrowser(QWidget* parent);

    void SetHtml(const QString& html);
    void SetPercent(int percent);

    /// The character at the top of the view, unless the end of the text prevents it from being scrolled
    /// there.
    int Position() const { return m_position; }
    void GoTo(int position);

    /// Highlights all hits, `current` more strongly, and scrolls to that one.
    void ShowHits(const QList<TextSpan>& hits, const TextSpan& current);
    void HideHits();

    QVariant loadResource(int type, const QUrl& name) override;

Q_SIGNALS:
    void PositionChanged();
    /// The wheel was turned with Ctrl held: positive means up.
    void SizeTurned(int direction);
    /// Tab has moved to the link with this text.
    void LinkReached(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void Place();
    void Scrolled();
    void Render();
    void Reveal(const QTextCursor& cursor);
    QTextEdit::ExtraSelection Marked(const TextSpan& span, const QBrush& back, const QBrush& text) const;

    QString m_html;
    qreal m_plainSize;  // points
    int m_position = 0;
    bool m_placing = false;  // the current scrolling is not the reader's
};

}  // namespace tickwell::help
