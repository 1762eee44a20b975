// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell {

/// One of the two lines of the main window, as the rest of the program sees it.
class TextLine {
public:
    virtual ~TextLine() = default;

    /// Shows the text with the current wipe. Text() returns it at once, while the wipe is still running.
    virtual void ShowText(const QString& text) = 0;

    /// Replaces the text at once; a running wipe ends.
    virtual void SetText(const QString& text) = 0;

    virtual QString Text() const = 0;
};

/// Both lines, owned by the main window.
struct TextLines {
    TextLine& upper;  ///< MovingWord1
    TextLine& lower;  ///< MovingWord2
};

}  // namespace tickwell
