// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell {

/// Topics of the help file that windows open, by number. A topic's anchor in the file is "topic" and the
/// number.
inline constexpr int kHelpContents = 1;
inline constexpr int kHelpContact = 6;
inline constexpr int kHelpStopwatch = 31;
inline constexpr int kHelpTimer = 32;
inline constexpr int kHelpSettings = 41;

/// Shows the help file of the program's folder.
class HelpViewer {
public:
    virtual ~HelpViewer() = default;

    /// Brings the help to the front at this topic; a number that is not in the file shows its beginning.
    /// Throws RunTimeError if the file cannot be read.
    virtual void ShowTopic(int topic) = 0;
};

}  // namespace tickwell
