// SPDX-License-Identifier: GPL-3.0-or-later
// Arbitrary bytes as titles of a disc, passed through the helper and the program, and arbitrary answers of
// the helper. Whatever is shown must be a short text on one line, and the program must accept every title
// that the helper writes.

#include "cd_helper/disc_titles.h"
#include "fuzz/fuzz_check.h"
#include "platform/disc/cd_answer.h"
#include "platform/disc/cd_title.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

void RequireHarmless(const QString& title) {
    const QList<uint> characters = title.toUcs4();
    Require(characters.size() <= media::kLongestCdTitle, "a title is short");
    for (const uint character : characters) {
        const QChar::Category category = QChar::category(character);
        Require(category != QChar::Other_Control && category != QChar::Other_Format &&
                    category != QChar::Separator_Line && category != QChar::Separator_Paragraph &&
                    category != QChar::Other_Surrogate,
                "a title is one visible line");
    }
    Require(title == title.trimmed(), "a title has no blanks around it");
}

/// Passes a title from the disc to the window.
void CheckBytes(const QByteArray& bytes) {
    const std::string cut = cd_helper::CutTitle(cd_helper::SheetBytes(bytes.toStdString()));
    const auto encoded = QByteArray::fromStdString(cd_helper::PercentEncoded(cut));
    Require(cut.empty() || platform::IsEncodedTitle(encoded), "the program takes what the helper writes");
    if (!cut.empty()) {
        const QString title = platform::TitleFrom(encoded);
        RequireHarmless(title);
        const QByteArray utf8 = title.toUtf8();
        Require(cd_helper::CutTitle(utf8.toStdString()) == utf8.toStdString(), "a title is not cut twice");
    }
}

void CheckAnswer(const QByteArray& lines) {
    const platform::CdSeen seen = platform::SeenFrom("disc\naudio 0\naudio 9\nend 20\n" + lines);
    Require(seen.titles.isEmpty() || seen.status == media::CdStatus::Ready, "only a disc has titles");
    Require(seen.titles.isEmpty() || seen.titles.size() == seen.contents.tracks.size() + 1,
            "each track has its title");
    for (const QString& title : seen.titles) {
        RequireHarmless(title);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray input = InputBytes(data, size);
    CheckBytes(input);
    CheckAnswer(input);
    CheckAnswer("title 0 " + input + '\n');
    return 0;
}
