// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/anniversary_deletion.h"

namespace tickwell::book {

using namespace Qt::StringLiterals;

QString TickedText(qsizetype ticked) {
    return u"現在 "_s + QString::number(ticked) + u"項目";
}

std::unique_ptr<AnniversaryChange> DeletionOf(store::DayDatabase& database, days::ListedRows rows,
                                              std::vector<bool> isTicked, const Corrections& corrections) {
    return std::make_unique<AnniversaryChange>(
        database, std::move(rows), std::move(isTicked),
        [](store::DayDatabase& opened, qint64 key) { opened.DeleteRow(u"Kinenbi", key); }, corrections);
}

}  // namespace tickwell::book
