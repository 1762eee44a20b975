// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/folded_text.h"

namespace tickwell::help {

namespace {

/// Whether a character belongs to the previous one: half-width kana have separate voicing marks.
bool Joins(QChar character) {
    constexpr QChar kVoiced(u'ﾞ');
    constexpr QChar kSemiVoiced(u'ﾟ');
    return character == kVoiced || character == kSemiVoiced || character.isLowSurrogate() ||
           character.category() == QChar::Mark_NonSpacing;
}

QString Folded(QStringView cluster) {
    // Fast path: most characters have no other form and need no normalisation.
    if (cluster.size() == 1 && cluster[0].decompositionTag() == QChar::NoDecomposition) {
        return cluster[0].toCaseFolded();
    }
    return cluster.toString().normalized(QString::NormalizationForm_KC).toCaseFolded();
}

qsizetype ClusterEnd(QStringView text, qsizetype begin) {
    qsizetype end = begin + 1;
    while (end < text.size() && Joins(text[end])) {
        ++end;
    }
    return end;
}

}  // namespace

FoldedText::FoldedText(QStringView text) {
    m_folded.reserve(text.size());
    m_origins.reserve(text.size() + 1);
    for (qsizetype begin = 0; begin < text.size();) {
        const qsizetype end = ClusterEnd(text, begin);
        const QString folded = Folded(text.mid(begin, end - begin));
        m_folded += folded;
        m_origins.insert(m_origins.size(), folded.size(), static_cast<int>(begin));
        begin = end;
    }
    m_origins.append(static_cast<int>(text.size()));
}

QList<TextSpan> FoldedText::Find(const QString& term) const {
    const QString folded = FoldedText(term).m_folded.trimmed();
    QList<TextSpan> spans;
    if (folded.isEmpty()) {
        return spans;
    }
    for (qsizetype at = m_folded.indexOf(folded); at >= 0; at = m_folded.indexOf(folded, at)) {
        const int begin = m_origins[at];
        // One character may have been folded into several: extends the span to the end of the last original.
        qsizetype end = at + folded.size();
        while (m_origins[end] == m_origins[end - 1]) {
            ++end;
        }
        spans.append({begin, m_origins[end] - begin});
        at = end;
    }
    return spans;
}

}  // namespace tickwell::help
