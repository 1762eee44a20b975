// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tickwell::ical_helper {

/// Protocol between the program and its helper tickwell-ical.
///
///   tickwell-ical FILE FROM TO
/// reads the iCalendar file FILE, up to kMostBytes, and writes lines of fields separated by tabs:
///
///   at BYTES                       how much of the file has been read, from time to time
///   event LINE FLAGS NAME UID START DAYS RULES RDATES EXDATES RECURRENCE ROW OCCURRENCES
///                                  one VEVENT, in the order of the file
///   other COUNT                    at the end: how many to-dos and journal entries it has
///   refused WORD LINE              instead, if the whole file is refused
///
/// Its standard input lists, one per line, the numbers of the events, counted from 0, whose occurrences from
/// FROM to the day before TO are wanted; dates are written YYYYMMDD. Each date is that of the zone in which
/// the event takes place.
///
/// LINE: of its BEGIN, counted from 1. FLAGS: letters, see below. NAME, UID and ROW (the value of kRowName)
/// are percent-encoded UTF-8. START: empty if it has no valid date. DAYS: how many days it takes if it is
/// for whole days, else 1. RDATES, EXDATES and OCCURRENCES are dates separated by commas; RECURRENCE is a
/// date or empty.
///
/// RULES, separated by "|", each have nine fields separated by ";": the frequency such as YEARLY, INTERVAL,
/// COUNT (0: none), UNTIL (a date or empty), BYMONTH, BYMONTHDAY, BYDAY (such as 2MO), BYSETPOS, all lists
/// separated by commas, and the letters of parts that it has besides.
///
/// The library may crash or hang on a crafted file: the output is valid only if the helper exits with
/// kEndDone.
inline constexpr const char* kAtWord = "at";
inline constexpr const char* kEventWord = "event";
inline constexpr const char* kOtherWord = "other";
inline constexpr const char* kRefusedWord = "refused";
inline constexpr int kEventFields = 13;
inline constexpr int kRuleFields = 9;

inline constexpr char kFieldJoint = '\t';
inline constexpr char kListJoint = ',';
inline constexpr char kRuleJoint = '|';
inline constexpr char kRulePartJoint = ';';

/// FLAGS
inline constexpr char kCancelled = 'c';
inline constexpr char kNamed = 'n';
inline constexpr char kUnreadable = 'u';   // a date or rule that could not be read
inline constexpr char kOwnDayOff = 'd';    // written by this program for a day off or a mark
inline constexpr char kExcluding = 'x';    // has an EXRULE
inline constexpr char kUnknownZone = 'z';  // has a moment in UTC, and its own zone is unknown
inline constexpr char kEndless = 'e';      // its occurrences were wanted and too many to be computed

/// Further parts of a rule.
inline constexpr char kByWeek = 'w';
inline constexpr char kByYearDay = 'y';
inline constexpr char kByTime = 't';
inline constexpr char kOtherCalendar = 'r';

/// WORDs of "refused".
inline constexpr const char* kCannotRead = "cannot-read";  // LINE is 0
inline constexpr const char* kTooLarge = "too-large";      // LINE is 0
inline constexpr const char* kNoCalendar = "no-calendar";  // it does not begin like one
inline constexpr const char* kTooLong = "too-long";        // a line
inline constexpr const char* kNotUtf8 = "not-utf8";
inline constexpr const char* kTooDeep = "too-deep";  // nested components
inline constexpr const char* kTooBig = "too-big";    // an event
inline constexpr const char* kWrongEnd = "wrong-end";
inline constexpr const char* kCutOff = "cut-off";  // the file ends inside a component

/// What only this program writes into events, so that its own files come back exactly: year, month, day and
/// week of the row, separated by ";"; and for events that are no anniversary, the kind of day.
inline constexpr const char* kRowName = "X-TICKWELL-ROW";
inline constexpr const char* kDayName = "X-TICKWELL-DAY";

inline constexpr int kMostBytes = 40 * 1024 * 1024;
inline constexpr int kMostDepth = 16;
inline constexpr int kMostEventBytes = 1024 * 1024;  // of the lines that are read
inline constexpr int kMostOccurrences = 400;         // of an event; more do not fit into a year
inline constexpr int kMostSeconds = 120;  // of CPU time, then the system ends it; occurrences get half

/// Exit codes.
inline constexpr int kEndDone = 0;
inline constexpr int kEndUsage = 1;
inline constexpr int kEndRefused = 2;

}  // namespace tickwell::ical_helper
