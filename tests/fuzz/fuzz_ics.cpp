// SPDX-License-Identifier: GPL-3.0-or-later
// Arbitrary iCalendar files, passed through the helper and the program. Whatever is written is understood,
// each event is refused with a reason or becomes rows, each row that is offered falls on a day, and a row
// that is written comes back.

#include <QTimeZone>
#include <algorithm>

#include "core/errors.h"
#include "exchange/calendar_reading.h"
#include "exchange/calendar_writer.h"
#include "exchange/row_rule.h"
#include "fuzz/fuzz_check.h"
#include "ical_helper/calendar_file.h"
#include "ical_helper/protocol.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

const QDate kToday(2026, 11, 23);

/// The offer of a file; nullopt if it is refused.
std::optional<exchange::Offer> OfferOf(const QByteArray& file, bool splits) {
    ical_helper::Wanted wanted{.events = {}, .period = {kToday, kToday.addYears(1)}};
    if (splits) {
        wanted.events = {0, 1, 2};
    }
    exchange::CalendarReading reading(kToday, splits);
    const int code = ical_helper::ReadCalendar(file, wanted, [&reading](const QByteArray& line) {
        Require(!line.contains('\n'), "a record is one line");
        reading.Take(line + '\n');  // throws if the program does not understand the helper
        return true;
    });
    try {
        reading.End(code);
    } catch (const RunTimeError& error) {
        Require(code != ical_helper::kEndDone && !error.Reason().isEmpty(),
                "only refused files have no entries");
        return std::nullopt;
    }
    while (!reading.Convert()) {
    }
    return reading.TakeOffer();
}

void RequireSound(const exchange::Entry& entry) {
    Require(entry.row.name.toUcs4().size() <= exchange::kLongestName, "names are short");
    Require(!entry.row.name.contains(u'\n') && !entry.row.name.contains(u'\r'), "names are one line");
    if (entry.state == exchange::EntryState::Refused) {
        Require(!entry.reason.isEmpty(), "a refusal has a reason");
    } else {
        Require(!exchange::RulesOf(entry.row).empty(), "a row falls on a day");
    }
}

void RequireComesBack(const exchange::Offer& offer) {
    exchange::CalendarWriter writer(QDateTime(kToday, QTime(12, 0), QTimeZone::utc()));
    std::vector<days::Anniversary> written;
    for (const exchange::Entry& entry : offer.entries) {
        const bool isRow = entry.state == exchange::EntryState::New;
        if (isRow && std::find(written.begin(), written.end(), entry.row) == written.end()) {
            written.push_back(entry.row);
            Require(writer.AddAnniversary(entry.row), "a row can be written");
        }
    }
    const std::optional<exchange::Offer> again = OfferOf(writer.Take(), false);
    Require(again.has_value(), "a written file is read");
    std::vector<days::Anniversary> read;
    for (const exchange::Entry& entry : again->entries) {
        if (std::find(read.begin(), read.end(), entry.row) == read.end()) {
            read.push_back(entry.row);
        }
    }
    Require(read == written, "rows come back exactly");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray file = InputBytes(data, size);
    for (const bool splits : {false, true}) {
        if (const std::optional<exchange::Offer> offer = OfferOf(file, splits)) {
            for (const exchange::Entry& entry : offer->entries) {
                RequireSound(entry);
            }
            RequireComesBack(*offer);
        }
    }
    return 0;
}
