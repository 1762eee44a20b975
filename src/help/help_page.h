// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <optional>

#include "help/folded_text.h"

class QTextDocument;

namespace tickwell {

/// A heading below the title. Positions are characters from the beginning of the document.
struct HelpHeading {
    int level = 0;  ///< 2 and up, as in <h2>
    QString title;
    int position = 0;

    bool operator==(const HelpHeading&) const = default;
};

/// A word of the index, and where it leads.
struct HelpKeyword {
    QString word;
    int position = 0;

    bool operator==(const HelpKeyword&) const = default;
};

/// What a help file holds. Its index is the links behind the anchor "index", so that any browser can read it.
struct HelpPage {
    QList<HelpHeading> headings;
    QList<HelpKeyword> index;
    QHash<QString, int> anchors;  ///< name to position
    FoldedText text;

    /// Where a topic begins; the beginning of the page for a number that it does not have.
    int TopicPosition(int topic) const;

    /// Where a link leads. Nothing for a link out of the page: the help never leaves its file.
    std::optional<int> LinkPosition(const QString& href) const;

    /// The heading that a position stands under, as its place in `headings`; -1 above the first.
    int HeadingAt(int position) const;
};

/// Reads a document that was made from a help file.
HelpPage HelpPageOf(const QTextDocument& document);

}  // namespace tickwell
