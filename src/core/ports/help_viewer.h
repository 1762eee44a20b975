// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell {

/// Topics of the help file that windows open, by number. A topic's anchor in the file is "topic" and the
/// number.
inline constexpr int kHelpContents = 1;
inline constexpr int kHelpMainWindow = 2;
inline constexpr int kHelpContact = 6;
inline constexpr int kHelpAbout = 14;
inline constexpr int kHelpOfHelp = 16;
inline constexpr int kHelpCalendar = 21;
inline constexpr int kHelpEditor = 24;
inline constexpr int kHelpSearch = 25;
inline constexpr int kHelpDeletion = 26;
inline constexpr int kHelpStopwatch = 31;
inline constexpr int kHelpTimer = 32;
inline constexpr int kHelpCdPlayer = 33;
inline constexpr int kHelpSettings = 41;
inline constexpr int kHelpTextPage = 42;  // one page of the settings each, from here on
inline constexpr int kHelpClockPage = 43;
inline constexpr int kHelpRollPage = 44;
inline constexpr int kHelpChimePage = 45;
inline constexpr int kHelpDatabasePage = 46;
inline constexpr int kHelpCalendarPage = 47;
inline constexpr int kHelpCorrectionsPage = 48;
inline constexpr int kHelpFacePage = 49;
inline constexpr int kHelpRemotePage = 50;
inline constexpr int kHelpNoticesPage = 53;

/// Shows the help file of the program's folder.
class HelpViewer {
public:
    virtual ~HelpViewer() = default;

    /// Brings the help to the front at this topic; a number that is not in the file shows its beginning.
    /// Throws RunTimeError if the file cannot be read.
    virtual void ShowTopic(int topic) = 0;
};

}  // namespace tickwell
