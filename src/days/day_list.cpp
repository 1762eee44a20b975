// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/day_list.h"

#include "core/errors.h"
#include "days/day_rule.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

QString CountOf(qsizetype rows) {
    return u"ﾃﾞｰﾀ件数 "_s + QString::number(rows) + u"件";
}

}  // namespace

void DayList::ListDay(DayDatabase& database, QDate date, bool isPanelOpen) {
    Show({});
    const ResultSet found = database.RunQuery(
        AnniversaryQuery(date.year(), date.month(), date.day(), WeekCode(date)));  // fails even when unseen
    if (!isPanelOpen) {
        return;
    }
    m_heading = date.toString(u"yyyy年M月d日") + u"の記念日";
    m_countText = CountOf(found.Count());
    QList<DayListRow> rows;
    for (const ResultRow& row : found) {
        rows.append(DayListRowOf(row));
    }
    Show(std::move(rows));
}

void DayList::ListFound(QList<DayListRow> rows, int searched) {
    m_heading = u"検索結果 (検索対象 "_s + QString::number(searched) + u"件)";
    m_countText = CountOf(rows.size());
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
    if (m_selectedRow > m_rows.size()) {
        throw RunTimeError(u"選択した項目が一覧にありません。"_s);
    }
    return m_rows.at(m_selectedRow - 1);
}

void DayList::Show(QList<DayListRow> rows) {
    m_rows = std::move(rows);
    if (m_changed) {
        m_changed();
    }
}

}  // namespace tickwell
