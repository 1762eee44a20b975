// SPDX-License-Identifier: GPL-3.0-or-later
// Arbitrary contacts: the file or a birthday is refused with a reason, or the birthday is an anniversary of
// every year, on a day that exists.

#include "core/content_lines.h"
#include "core/errors.h"
#include "exchange/contacts.h"
#include "exchange/row_rule.h"
#include "fuzz/fuzz_check.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

void CheckTexts(const QByteArray& bytes) {
    const QString text = QString::fromUtf8(bytes).remove(u'\r');
    if (QString::fromUtf8(text.toUtf8()) != text) {
        return;  // half a character
    }
    const QByteArray line = FoldedLine("FN:" + EscapedText(text));
    for (const QByteArray& part : line.split('\n')) {
        Require(part.size() <= 76, "folded lines are short");
    }
    if (line.size() > ContentLines::kLongest || text.contains(u'\0')) {
        return;
    }
    ContentLines lines(line, [](const QByteArray&) { return true; });
    const std::optional<ContentLine> read = lines.Next();
    Require(read && UnescapedText(read->value) == text && !lines.Next(), "texts come back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray file = InputBytes(data, size);
    CheckTexts(file);
    const std::atomic<bool> isGivenUp = false;
    try {
        for (const exchange::Entry& entry : exchange::ReadContacts(file, isGivenUp).entries) {
            if (entry.state == exchange::EntryState::Refused) {
                Require(!entry.reason.isEmpty(), "a refusal has a reason");
                continue;
            }
            const days::Anniversary& row = entry.row;
            Require(row.year == 0 && row.month != 0 && row.day != 0 && row.week == 0 &&
                        !exchange::RulesOf(row).empty(),
                    "a birthday is a day of every year");
            Require(row.name.toUcs4().size() <= exchange::kLongestName, "names are short");
        }
    } catch (const RunTimeError& error) {
        Require(!error.Reason().isEmpty(), "a refusal has a reason");
    }
    return 0;
}
