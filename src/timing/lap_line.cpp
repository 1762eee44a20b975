// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/lap_line.h"

#include "core/duration_text.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kBegin = u"  (+";

}  // namespace

QString LapLine(const Stopwatch::Lap& lap) {
    return u"Lapse"_s + QString::number(lap.number) + u"  " + ElapsedText(lap.reading);
}

QString IntervalText(const Stopwatch::Lap& lap) {
    return kBegin + ElapsedText(lap.interval) + u')';
}

qsizetype FindInterval(QStringView text) {
    return text.indexOf(kBegin);
}

}  // namespace tickwell::timing
