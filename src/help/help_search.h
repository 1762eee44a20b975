// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <optional>

#include "help/folded_text.h"

namespace tickwell::help {

/// A search in the complete help text: its hits and the current one.
class HelpSearch {
public:
    /// Searches for the term; the current hit is the first one at or after `from`, otherwise the first of
    /// all.
    void Start(const FoldedText& text, const QString& term, int from);

    /// Go to the next or previous hit, cyclically. Do nothing if there are no hits.
    void Next();
    void Previous();

    const QList<TextSpan>& Hits() const { return m_hits; }
    std::optional<TextSpan> Current() const;

    /// The number of the current hit and of all hits, or that there are none; empty while there is no search.
    QString CountText() const;

private:
    QList<TextSpan> m_hits;
    qsizetype m_current = 0;
    bool m_searching = false;
};

}  // namespace tickwell::help
