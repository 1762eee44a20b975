// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace tickwell {

/// A stretch of a text: where it begins and how many UTF-16 units it has.
struct TextSpan {
    int position = 0;
    int length = 0;

    bool operator==(const TextSpan&) const = default;
};

/// A text as it is searched. Case makes no difference, nor does the width of a character: what the menus
/// write as ﾀｲﾏｰ is found as タイマー, and the other way round.
class FoldedText {
public:
    explicit FoldedText(QStringView text = {});

    /// All places in the original text where the term stands, in order, none overlapping another. Blanks
    /// around the term are dropped; an empty term stands nowhere.
    QList<TextSpan> Find(const QString& term) const;

private:
    QString m_folded;
    QList<int> m_origins;  // of each folded character, and at last the length of the original
};

}  // namespace tickwell
