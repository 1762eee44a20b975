// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/lap_table.h"

#include <QRegularExpression>
#include <QStringList>
#include <functional>

#include "core/byte_order_mark.h"
#include "core/duration_text.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kMsInHour = 3'600'000;
constexpr qint32 kMsInMinute = 60'000;
constexpr qint32 kMsInSecond = 1000;
constexpr int kReading = 2;   // groups of a line's expression, after the number of the lap
constexpr int kInterval = 6;  // these are the first of four each

/// The milliseconds of a reading whose four numbers are the groups from `first` on.
qint32 MillisecondsAt(const QRegularExpressionMatch& match, int first) {
    return match.captured(first).toInt() * kMsInHour + match.captured(first + 1).toInt() * kMsInMinute +
           match.captured(first + 2).toInt() * kMsInSecond + match.captured(first + 3).toInt();
}

QList<QStringList> RowsOf(const QString& list) {
    static const QRegularExpression line(
        uR"re(^(?:Lapse(\d+) |【Stop】) ?(\d+):(\d\d)'(\d\d)"(\d{3})(?:  \(\+(\d+):(\d\d)'(\d\d)"(\d{3})\))?$)re"_s);
    QList<QStringList> rows{
        {u"番号"_s, u"種類"_s, u"経過時間"_s, u"経過ミリ秒"_s, u"区間"_s, u"区間ミリ秒"_s}};
    qint32 before = 0;  // the reading of the last lap
    for (const QString& text : list.split(u"\r\n"_s)) {
        const QRegularExpressionMatch match = line.match(text);
        if (!match.hasMatch()) {
            continue;  // the empty line in front of stops without a lap
        }
        const qint32 reading = MillisecondsAt(match, kReading);
        QStringList row{
            match.captured(1), u"ストップ"_s, ElapsedText(reading), QString::number(reading), {}, {}};
        if (!match.captured(1).isEmpty()) {
            // A list without intervals has the readings that they are the differences of.
            const qint32 interval =
                match.capturedLength(kInterval) > 0 ? MillisecondsAt(match, kInterval) : reading - before;
            before = reading;
            row[1] = u"ラップ"_s;
            row[4] = ElapsedText(interval);
            row[5] = QString::number(interval);
        }
        rows.append(row);
    }
    return rows;
}

QString TextOf(const QList<QStringList>& rows, QChar joint, const QString& end,
               const std::function<QString(const QString&)>& written) {
    QString text;
    for (const QStringList& row : rows) {
        QStringList fields;
        for (const QString& field : row) {
            fields.append(written(field));
        }
        text += fields.join(joint) + end;
    }
    return text;
}

/// A field is quoted only if it has to be.
QString CsvField(const QString& field) {
    static const QRegularExpression special(u"[\",\r\n]"_s);
    return field.contains(special) ? u'"' + QString(field).replace(u'"', u"\"\""_s) + u'"' : field;
}

}  // namespace

QString LapsForClipboard(const QString& list) {
    return TextOf(RowsOf(list), u'\t', u"\n"_s, [](const QString& field) { return field; });
}

QByteArray LapsAsCsv(const QString& list) {
    return kByteOrderMark + TextOf(RowsOf(list), u',', u"\r\n"_s, CsvField).toUtf8();
}

}  // namespace tickwell::timing
