// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <optional>

#include "help/folded_text.h"

namespace tickwell {

/// A search through the whole help: its hits, and the one that the reader stands at.
class HelpSearch {
public:
    /// Looks the term up; the reader comes to the first hit at or behind `from`, else to the first of all.
    void Start(const FoldedText& text, const QString& term, int from);

    /// To the hit behind or before; from the last to the first and back. Without a hit nothing happens.
    void Next();
    void Previous();

    const QList<TextSpan>& Hits() const { return m_hits; }
    std::optional<TextSpan> Current() const;

    /// Which hit of how many, or that there is none; empty while nothing is searched for.
    QString CountText() const;

private:
    QList<TextSpan> m_hits;
    qsizetype m_current = 0;
    bool m_searching = false;
};

}  // namespace tickwell
