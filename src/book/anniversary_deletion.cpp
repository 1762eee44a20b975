// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/anniversary_deletion.h"

#include "book/anniversary_statements.h"
#include "core/errors.h"

namespace tickwell {

using namespace Qt::StringLiterals;

QString TickedText(qsizetype ticked) {
    return u"現在 "_s + QString::number(ticked) + u"項目";
}

void DeleteTicked(DayDatabase& database, const QList<DayListRow>& rows, const std::vector<bool>& isTicked) {
    DayTransaction transaction(database);  // the disk is waited for once, not for each entry
    try {
        for (qsizetype i = rows.size() - 1; i >= 0; --i) {
            if (isTicked.at(static_cast<std::size_t>(i))) {
                database.Execute(DeleteStatement(AnniversaryOf(rows.at(i))));
            }
        }
    } catch (const RunTimeError&) {
        transaction.Commit();  // what came before stays deleted
        throw;
    }
    transaction.Commit();
}

}  // namespace tickwell
