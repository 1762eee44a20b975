// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell::print_helper {

/// Protocol between the program and its helper tickwell-print.
///
///   tickwell-print TITLE
/// reads the report from its standard input (UTF-8, lines separated by LF, a tab before a second column),
/// prints it on the user's default printer, and writes answers to its standard output, one per line:
///   WORD TAB QUEUE TAB REASON
/// The first answer is kAccepted, as soon as the print queue has the complete document, or one of the failure
/// words, after which the helper exits. After kAccepted it follows the job for up to kFollowSeconds and
/// writes kAborted if the queue aborts the job. QUEUE is empty if no printer is known. REASON is the message
/// of the print service, empty if there is none. Neither contains control characters.
///
///   tickwell-print --pdf FILE TITLE
/// reads the same and writes the report to FILE, an absolute path, as a PDF document on A4 paper: completely,
/// or it leaves FILE as it was. The answer is kAccepted, kNotPainted or kNotWritten, without a queue.
///
/// The helper may wait for the print service for up to kPatienceSeconds. It may be killed at any time.
inline constexpr const char* kAccepted = "accepted";
inline constexpr const char* kNoService = "no-service";  // cannot be reached, or does not answer
inline constexpr const char* kNoPrinter = "no-printer";  // no default printer
inline constexpr const char* kNotPainted = "not-painted";
inline constexpr const char* kRejecting = "rejecting";  // the queue currently accepts no jobs
inline constexpr const char* kForbidden = "forbidden";  // this user may not print
inline constexpr const char* kRefused = "refused";      // any other reason
inline constexpr const char* kAborted = "aborted";
inline constexpr const char* kNotWritten = "not-written";  // the file, for the reason of the system

inline constexpr const char* kPdfOption = "--pdf";

inline constexpr char kAnswerJoint = '\t';

inline constexpr int kFollowSeconds = 120;
inline constexpr int kPatienceSeconds = 600;

/// Exit codes.
inline constexpr int kPrintDone = 0;
inline constexpr int kPrintUsage = 1;
inline constexpr int kPrintFailed = 2;

}  // namespace tickwell::print_helper
