// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/lap_report.h"

#include "core/duration_text.h"
#include "core/weekday.h"
#include "core/words.h"
#include "timing/lap_line.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

/// The line with its interval, if it has one, in the second column.
QString InColumns(const QString& line) {
    const qsizetype interval = FindInterval(line);
    return interval < 0 ? line : line.first(interval) + u'\t' + line.sliced(interval).trimmed();
}

}  // namespace

QStringList LapReport(const QString& version, const QDateTime& now, const QString& list) {
    QStringList lines{
        u"Tickwell Ver.2  ストップウォッチ機能"_s,
        u"<<基本情報>>"_s,
        u"バージョン："_s + version,
        u"印刷日："_s + LongDateText(now.date()),
        u"印刷時刻："_s + LongTimeText(now.time()),
        QString(),
        u"<<ラップ/経歴一覧表>>"_s,
    };
    for (const QString& line : list.split(u"\r\n"_s)) {
        lines.append(InColumns(line));
    }
    lines += {QString(), u"<<終>>"_s};
    return lines;
}

QString LongDateText(QDate date) {
    const int weekday = WeekdayOf(date);
    return QString::number(date.year()) + u"年" + QString::number(date.month()) + u"月" +
           QString::number(date.day()) + u"日 " + WeekdayLetter(weekday, 1) + u"曜日";
}

QString LongTimeText(QTime time) {
    return QString::number(time.hour()) + u':' + TwoDigits(time.minute()) + u':' + TwoDigits(time.second());
}

}  // namespace tickwell::timing
