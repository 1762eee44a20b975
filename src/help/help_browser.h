// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTextBrowser>

#include "help/folded_text.h"

namespace tickwell {

/// The text of the help. It keeps the place where the reader is when the window or the text changes its size.
/// It reads nothing but the text it is given: no picture, no style, no page from elsewhere.
class HelpBrowser : public QTextBrowser {
    Q_OBJECT

public:
    explicit HelpBrowser(QWidget* parent);

    void SetHtml(const QString& html);
    void SetPercent(int percent);

    /// The character that the reader is at, which is at the top as far as the text's end allows.
    int Position() const { return m_position; }
    void GoTo(int position);

    /// Marks all hits, and one of them more; that one is scrolled to.
    void ShowHits(const QList<TextSpan>& hits, const TextSpan& current);
    void HideHits();

    QVariant loadResource(int type, const QUrl& name) override;

Q_SIGNALS:
    void PositionChanged();
    /// The wheel turned with Ctrl held: up is positive.
    void SizeTurned(int direction);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void Place();
    void Scrolled();
    void Render();
    void Reveal(const QTextCursor& cursor);
    QTextEdit::ExtraSelection Marked(const TextSpan& span, const QBrush& back, const QBrush& text) const;

    QString m_html;
    qreal m_plainSize;  // points
    int m_position = 0;
    bool m_placing = false;  // what scrolls now is not the reader
};

}  // namespace tickwell
