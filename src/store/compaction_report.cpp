// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/compaction_report.h"

#include <cmath>
#include <cstdlib>

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kKilobyte = 1024;

QString Title() {
    return u"データベースの最適化"_s;
}

}  // namespace

QString CompactionRatio(qint32 before, qint32 after) {
    constexpr qint64 kWhole = 1000;
    constexpr qint64 kTenths = 10;
    // In this order: multiplying first would round differently.
    const double share = static_cast<double>(after) / static_cast<double>(before);
    const qint64 tenths = kWhole - static_cast<qint64>(std::floor(share * static_cast<double>(kWhole)));
    QString text = QString::number(std::abs(tenths) / kTenths);
    if (tenths % kTenths != 0) {
        text += u'.' + QString::number(std::abs(tenths) % kTenths);
    }
    return tenths < 0 ? u'-' + text : text;
}

Message CompactionDone(qint32 before, qint32 after) {
    return {
        MessageIcon::Information, Title(),
        u"データベースの最適化が終了しました。\r\n\r\n     最適前：%1KB\r\n     最適後：%2KB\r\n     圧縮率：%3%"_s
            .arg(before / kKilobyte)
            .arg(after / kKilobyte)
            .arg(CompactionRatio(before, after))};
}

Message CompactionFailed() {
    return {MessageIcon::Exclamation, Title(), u"データベースの最適化に失敗しました。"_s};
}

}  // namespace tickwell::store
