// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/day_list.h"

#include "core/errors.h"
#include "days/day_rule.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

namespace {

QString DayQuery(QDate date) {
    return AnniversaryQuery(date.year(), date.month(), date.day(), WeekCode(date));
}

QString HeadingOf(QDate date) {
    return date.toString(u"yyyy年M月d日") + u"の記念日";
}

QString CountOf(int rows) {
    return u"ﾃﾞｰﾀ件数 "_s + QString::number(rows) + u"件";
}

}  // namespace

void DayList::ListDay(store::DayDatabase& database, QDate date, bool isPanelOpen) {
    Show({});
    Listing listing{&database, date, store::RowSearch(DayQuery(date)), {}};
    listing.mark = database.Mark();
    const bool isDone = listing.search.Step(database);  // even if the panel is closed, to report errors
    if (!isPanelOpen) {
        return;
    }
    if (isDone) {
        ShowDay(listing);
    } else {
        m_heading = HeadingOf(date);
        m_countText = u"読み込んでいます"_s;
        m_listing = std::move(listing);
        Changed();
    }
}

void DayList::GoOn() {
    Listing listing = std::move(*m_listing);
    m_listing.reset();
    store::DayDatabase& database = *listing.database;
    const store::ChangeMark mark = database.Mark();
    if (mark != listing.mark) {
        listing.search = store::RowSearch(DayQuery(listing.date));
        listing.mark = mark;
    }
    if (listing.search.Step(database)) {
        ShowDay(listing);
    } else {
        m_listing = std::move(listing);
    }
}

void DayList::ShowDay(Listing& listing) {
    ListedRows rows(*listing.database, {{listing.search.Take(), RowForm::OfDay}});
    m_heading = HeadingOf(listing.date);
    m_countText = CountOf(rows.Count());
    Show(std::move(rows));
}

void DayList::ListFound(ListedRows rows, int searched) {
    m_heading = u"検索結果 (検索対象 "_s + QString::number(searched) + u"件)";
    m_countText = CountOf(rows.Count());
    Show(std::move(rows));
}

void DayList::ChooseRow(std::optional<int> index) {
    if (index) {
        m_selectedRow = *index + 1;
    }
}

std::optional<DayListRow> DayList::ChosenRow() const {
    if (m_selectedRow == 0) {
        return std::nullopt;
    }
    std::optional<DayListRow> row;
    if (m_selectedRow <= m_rows.Count()) {
        row = m_rows.Read(m_selectedRow - 1);
    }
    if (!row) {
        throw RunTimeError(u"選択した項目が一覧にありません。"_s);
    }
    return row;
}

void DayList::Show(ListedRows rows) {
    m_listing.reset();
    m_rows = std::move(rows);
    Changed();
}

void DayList::Changed() const {
    if (m_changed) {
        m_changed();
    }
}

}  // namespace tickwell::days
