// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/anniversary_edit.h"

#include "book/anniversary_statements.h"
#include "store/sql_compiler.h"

namespace tickwell::book {

std::unique_ptr<AnniversaryChange> EditOf(store::DayDatabase& database, const days::DayListRow& chosen,
                                          const Edit& edit, const Corrections& corrections) {
    const days::Anniversary& to = edit.entered;
    std::vector<store::ColumnValue> values{
        {u"Year", to.year}, {u"Month", to.month}, {u"Day", to.day}, {u"Week", to.week}};
    if (!chosen.itself || edit.isRenamed) {
        store::CompileSql(chosen.itself ? InsertSql(to)
                                        : UpdateSql(TargetOf(chosen, corrections), to));  // may throw
        values.push_back({u"Name", to.name});
    }
    return std::make_unique<AnniversaryChange>(
        database, QList<days::DayListRow>{chosen}, std::vector<bool>{true},
        [values](store::DayDatabase& opened, qint64 key) { opened.ChangeRow(u"Kinenbi", key, values); },
        corrections);
}

}  // namespace tickwell::book
