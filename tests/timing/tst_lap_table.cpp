// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRandomGenerator>
#include <QTest>

#include "timing/lap_line.h"
#include "timing/lap_table.h"
#include "timing/reading_model.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

const QString kHeader = u"番号,種類,経過時間,経過ミリ秒,区間,区間ミリ秒"_s;

/// Reads CSV character by character, by the grammar of RFC 4180: records end with CR LF, a quoted field may
/// contain anything, with quotes doubled, and an unquoted one none of quote, comma, CR and LF. Nothing if it
/// breaks the grammar.
std::optional<QList<QStringList>> ReadCsv(const QString& text) {
    QList<QStringList> records;
    QStringList record;
    qsizetype at = 0;
    while (at < text.size()) {
        QString field;
        if (text.at(at) == u'"') {
            for (++at;; ++at) {
                if (at >= text.size()) {
                    return std::nullopt;
                }
                if (text.at(at) != u'"') {
                    field += text.at(at);
                } else if (at + 1 < text.size() && text.at(at + 1) == u'"') {
                    field += text.at(at++);
                } else {
                    ++at;
                    break;
                }
            }
        } else {
            while (at < text.size() && !u",\"\r\n"_s.contains(text.at(at))) {
                field += text.at(at++);
            }
        }
        record.append(field);
        if (text.mid(at, 1) == u","_s) {
            ++at;
        } else if (text.mid(at, 2) == u"\r\n"_s) {
            at += 2;
            records.append(record);
            record.clear();
        } else {
            return std::nullopt;
        }
    }
    return record.isEmpty() ? std::optional(records) : std::nullopt;
}

struct RandomList {
    QString list;
    QList<QStringList> rows;  // those of its table
};

/// Laps at most `longest` ms apart, with some stops between them; with intervals or without.
RandomList MakeList(QRandomGenerator& random, int laps, int longest) {
    RandomList made{{}, {kHeader.split(u',')}};
    QStringList lines;
    const bool listsIntervals = random.bounded(2) == 0;
    qint32 reading = 0;
    qint32 last = 0;
    for (qint32 number = 1; number <= laps;) {
        reading += random.bounded(longest);
        if (random.bounded(10) == 0) {
            lines.append(u"【Stop】 "_s + ReadingOf(reading));
            made.rows.append(
                {QString(), u"ストップ"_s, ReadingOf(reading), QString::number(reading), {}, {}});
            continue;
        }
        const qint32 interval = reading - last;
        const Stopwatch::Lap lap{.number = number, .reading = reading, .interval = interval};
        lines.append(LapLine(lap) + (listsIntervals ? IntervalText(lap) : QString()));
        made.rows.append({QString::number(number), u"ラップ"_s, ReadingOf(reading), QString::number(reading),
                          ReadingOf(interval), QString::number(interval)});
        last = reading;
        ++number;
    }
    made.list = lines.join(u"\r\n"_s);
    return made;
}

QString Csv(const QString& list) {
    const QByteArray bytes = LapsAsCsv(list);
    return QString::fromUtf8(bytes.mid(3));
}

}  // namespace

/// Laps as a table for other programs.
class TstLapTable : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ATableHasByteOrderMarkHeaderAndRows();
    void TheClipboardHasTabs();
    void AnEmptyListHasOnlyTheHeader();
    void StopsHaveNeitherNumberNorInterval();
    void AnIntervalThatIsListedCounts();
    void FiveThousandRandomListsComeBack();
};

void TstLapTable::ATableHasByteOrderMarkHeaderAndRows() {
    const QByteArray csv = LapsAsCsv(u"Lapse1  0:00'01\"234\r\nLapse2  1:02'03\"004"_s);
    QVERIFY(csv.startsWith("\xEF\xBB\xBF"));
    QCOMPARE(QString::fromUtf8(csv.mid(3)),
             kHeader +
                 u"\r\n"
                 u"1,ラップ,\"0:00'01\"\"234\",1234,\"0:00'01\"\"234\",1234\r\n"
                 u"2,ラップ,\"1:02'03\"\"004\",3723004,\"1:02'01\"\"770\",3721770\r\n"_s);
}

void TstLapTable::TheClipboardHasTabs() {
    QCOMPARE(LapsForClipboard(u"Lapse1  0:00'01\"234\r\n【Stop】 0:00'02\"000"_s),
             u"番号\t種類\t経過時間\t経過ミリ秒\t区間\t区間ミリ秒\n"
             u"1\tラップ\t0:00'01\"234\t1234\t0:00'01\"234\t1234\n"
             u"\tストップ\t0:00'02\"000\t2000\t\t\n"_s);
}

void TstLapTable::AnEmptyListHasOnlyTheHeader() {
    QCOMPARE(Csv(QString()), kHeader + u"\r\n"_s);
}

void TstLapTable::StopsHaveNeitherNumberNorInterval() {
    QCOMPARE(Csv(u"\r\n【Stop】 0:00'01\"000\r\n【Stop】 596:31'23\"647"_s),
             kHeader +
                 u"\r\n"
                 u",ストップ,\"0:00'01\"\"000\",1000,,\r\n"
                 u",ストップ,\"596:31'23\"\"647\",2147483647,,\r\n"_s);
}

/// After a stop that lost its run, it is not the difference of the readings.
void TstLapTable::AnIntervalThatIsListedCounts() {
    QCOMPARE(Csv(u"Lapse1  0:00'10\"000  (+0:00'04\"000)\r\nLapse2  0:00'12\"000"_s),
             kHeader +
                 u"\r\n"
                 u"1,ラップ,\"0:00'10\"\"000\",10000,\"0:00'04\"\"000\",4000\r\n"
                 u"2,ラップ,\"0:00'12\"\"000\",12000,\"0:00'02\"\"000\",2000\r\n"_s);
}

void TstLapTable::FiveThousandRandomListsComeBack() {
    QRandomGenerator random(41'800);
    for (int round = 0; round < 5000; ++round) {
        // Most are short; some are long, and some take days.
        const int laps = round % 1000 == 0 ? 2000 : random.bounded(15);
        const RandomList made = MakeList(random, laps, laps < 15 && round % 10 == 0 ? 60'000'000 : 90'000);
        const auto read = ReadCsv(Csv(made.list));
        QVERIFY(read.has_value());
        QCOMPARE(*read, made.rows);
        QList<QStringList> pasted;
        for (const QString& row : LapsForClipboard(made.list).split(u'\n')) {
            pasted.append(row.split(u'\t'));
        }
        QCOMPARE(pasted.takeLast(), QStringList{QString()});  // behind the last line feed
        QCOMPARE(pasted, made.rows);
    }
}

QTEST_GUILESS_MAIN(TstLapTable)
#include "tst_lap_table.moc"
