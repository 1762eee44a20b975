// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/entry.h"

#include <algorithm>

#include "core/one_line.h"
#include "exchange/row_rule.h"

namespace tickwell::exchange {

using namespace Qt::StringLiterals;

namespace {

/// Each CR LF is one line break.
QString NameOf(QString name) {
    return OnOneLine(name.replace(u"\r\n"_s, u"\n"_s));
}

/// The first `most` characters; one outside the basic plane counts as one.
QString Cut(const QString& name, int most) {
    qsizetype end = 0;
    for (int characters = 0; characters < most && end < name.size(); ++characters) {
        end += name.at(end).isHighSurrogate() && end + 1 < name.size() ? 2 : 1;
    }
    return name.first(end);
}

}  // namespace

Entry EntryOf(const QString& name, days::Anniversary row) {
    const QString whole = NameOf(name);
    row.name = Cut(whole, kLongestName);
    const bool isCut = row.name.size() < whole.size();
    return {.row = std::move(row), .state = EntryState::New, .when = {}, .reason = {}, .isCut = isCut};
}

Entry RefusedEntry(const QString& name, const QString& when, const QString& reason) {
    Entry entry = EntryOf(name, {});
    entry.state = EntryState::Refused;
    entry.when = when;
    entry.reason = reason;
    entry.isCut = false;
    return entry;
}

QString WhenOf(const Entry& entry) {
    return entry.state == EntryState::Refused ? entry.when : WhenText(entry.row);
}

QString StateText(const Entry& entry) {
    switch (entry.state) {
        case EntryState::New:
            return u"新しい"_s;
        case EntryState::Stored:
            return u"すでにあります"_s;
        case EntryState::Refused:
            return u"取り込めません："_s + entry.reason;
    }
    Q_UNREACHABLE();
}

QString SumsText(const Offer& offer) {
    const auto count = [&offer](EntryState state) {
        return std::count_if(offer.entries.begin(), offer.entries.end(),
                             [state](const Entry& entry) { return entry.state == state; });
    };
    const auto cut = std::count_if(offer.entries.begin(), offer.entries.end(),
                                   [](const Entry& entry) { return entry.isCut; });
    QString text = u"新しい %1件、すでにあります %2件、取り込めません %3件"_s.arg(count(EntryState::New))
                       .arg(count(EntryState::Stored))
                       .arg(count(EntryState::Refused));
    if (cut > 0) {
        text += u"、長い名前を%1文字で切ったもの %2件"_s.arg(kLongestName).arg(cut);
    }
    if (offer.cancelled > 0) {
        text += u"、取り消された予定 %1件"_s.arg(offer.cancelled);
    }
    if (offer.others > 0) {
        text += u"、日付のないもの %1件"_s.arg(offer.others);
    }
    return text;
}

}  // namespace tickwell::exchange
