// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace tickwell::help {

/// Part of a text: its start and its length in UTF-16 units.
struct TextSpan {
    int position = 0;
    int length = 0;

    bool operator==(const TextSpan&) const = default;
};

/// A text prepared for search. Case and character width are ignored: ﾀｲﾏｰ, as in the menus, is found as
/// タイマー, and vice versa.
class FoldedText {
public:
    explicit FoldedText(QStringView text = {});

    /// All occurrences of the term in the original text, in order, without overlaps. Blanks around the term
    /// are ignored; an empty term has no occurrences.
    QList<TextSpan> Find(const QString& term) const;

private:
    QString m_folded;
    QList<int> m_origins;  // the original position of each folded character, then the original length
};

}  // namespace tickwell::help
