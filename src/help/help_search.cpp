// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/help_search.h"

#include <algorithm>

namespace tickwell::help {

using namespace Qt::StringLiterals;

void HelpSearch::Start(const FoldedText& text, const QString& term, int from) {
    m_searching = !term.trimmed().isEmpty();
    m_hits = text.Find(term);
    const auto behind = std::find_if(m_hits.begin(), m_hits.end(),
                                     [from](const TextSpan& hit) { return hit.position >= from; });
    m_current = behind == m_hits.end() ? 0 : behind - m_hits.begin();
}

void HelpSearch::Next() {
    if (!m_hits.isEmpty()) {
        m_current = (m_current + 1) % m_hits.size();
    }
}

void HelpSearch::Previous() {
    if (!m_hits.isEmpty()) {
        m_current = (m_current + m_hits.size() - 1) % m_hits.size();
    }
}

std::optional<TextSpan> HelpSearch::Current() const {
    return m_hits.isEmpty() ? std::nullopt : std::optional(m_hits[m_current]);
}

QString HelpSearch::CountText() const {
    if (!m_searching) {
        return QString();
    }
    if (m_hits.isEmpty()) {
        return u"見つかりません"_s;
    }
    return QString::number(m_current + 1) + u" / " + QString::number(m_hits.size()) + u" 件";
}

}  // namespace tickwell::help
