// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell {

/// Milliseconds to whole seconds, halves to even (500 is 0, 1500 is 2).
qint32 WholeSeconds(qint32 milliseconds);

/// The time since the system started, in milliseconds. Hours are not limited to 24; in kanji they are written
/// by KanjiNumber. Clock::Tick is negative after 24.8 days, and then so are the parts shown. `displayMode` as
/// in ClockText; the hour style makes no difference.
QString UsageText(qint64 milliseconds, qint32 language, qint32 displayMode, qint32 hourStyle);

/// Stopwatch and timer reading h:mm'ss"fff. A negative duration was measured across midnight: one day is
/// added.
QString ElapsedText(qint32 milliseconds);

/// m:ss. Replaces its argument with the rounded number of seconds: pass a copy if the milliseconds are still
/// needed.
QString MinSecText(qint32& milliseconds);

/// "05", "-05": at least two digits after the sign.
QString TwoDigits(qint32 value);

}  // namespace tickwell
