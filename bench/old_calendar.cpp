// SPDX-License-Identifier: GPL-3.0-or-later
// The cost of the old date and the season's name of every day from 1900 to 2100, compared with that of the
// date texts that the clock shows. Prints a table; never fails because of times.

#include <QElapsedTimer>
#include <algorithm>
#include <array>
#include <cstdio>

#include "core/clock_text.h"
#include "core/old_calendar.h"
#include "core/solar_terms.h"

using namespace tickwell;

namespace {

constexpr std::size_t kRounds = 15;  // the results are medians over these rounds
constexpr int kDays = 73414;

/// Milliseconds for all days. `use` returns a number, so that the compiler keeps the call.
template <typename Use>
double TimeOf(Use use) {
    std::array<double, kRounds> rounds{};
    qsizetype sum = 0;
    for (double& round : rounds) {
        QElapsedTimer clock;
        clock.start();
        const QDate first(1900, 1, 1);
        for (int day = 0; day < kDays; ++day) {
            sum += use(first.addDays(day));
        }
        round = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    }
    std::sort(rounds.begin(), rounds.end());
    return sum == 0 ? 0 : rounds.at(kRounds / 2);
}

void Print(const char* name, double milliseconds) {
    std::printf("%-44s %8.1f ms %8.0f ns a day\n", name, milliseconds, milliseconds * 1e6 / kDays);
}

}  // namespace

int main() {
    Print("the old date", TimeOf([](QDate day) { return OldDateOf(day).value_or(OldDate{}).day; }));
    Print("its text",
          TimeOf([](QDate day) { return OldDateText(OldDateOf(day).value_or(OldDate{})).size(); }));
    Print("the name of the day in the sun's year", TimeOf([](QDate day) { return SeasonName(day).size(); }));
    Print("the clock's text of the date",
          TimeOf([](QDate day) { return DateText(day, kLanguageJapanese, 1, 0).size(); }));
    return 0;
}
