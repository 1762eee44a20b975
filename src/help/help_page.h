// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <optional>

#include "help/folded_text.h"

class QTextDocument;

namespace tickwell::help {

/// A heading below the title. Positions are characters from the start of the document.
struct HelpHeading {
    int level = 0;  ///< 2 and up, as in <h2>
    QString title;
    int position = 0;

    bool operator==(const HelpHeading&) const = default;
};

/// A keyword of the index and its target position.
struct HelpKeyword {
    QString word;
    int position = 0;

    bool operator==(const HelpKeyword&) const = default;
};

/// The structure of a help file. Its index is the links after the anchor "index", so that the file is also
/// readable in any browser.
struct HelpPage {
    QList<HelpHeading> headings;
    QList<HelpKeyword> index;
    QHash<QString, int> anchors;  ///< name to position
    FoldedText text;

    /// Start of a topic; the start of the page for an unknown number.
    int TopicPosition(int topic) const;

    /// Target of a link. nullopt for a link out of the page: the help never leaves its file.
    std::optional<int> LinkPosition(const QString& href) const;

    /// Index in `headings` of the heading above a position; -1 before the first.
    int HeadingAt(int position) const;
};

/// Reads a document created from a help file.
HelpPage HelpPageOf(const QTextDocument& document);

}  // namespace tickwell::help
